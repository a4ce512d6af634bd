// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/libcdio/TocSheet.h"

#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace tovik::sound::libcdio {

namespace {

constexpr std::array<std::string_view, 3> kWords = {"AUDIOFILE", "DATAFILE", "FILE"};

/// No sheet is as long.
constexpr std::size_t kMostBytes = 1'000'000;

std::string_view trimmedFront(std::string_view line) {
    const std::size_t first = line.find_first_not_of(" \t");
    return first == std::string_view::npos ? std::string_view{} : line.substr(first);
}

/// Where the name of a file begins in a line, behind its quote; npos when the line names none, or
/// an absolute one.
std::size_t relativeName(std::string_view line) {
    const std::string_view words = trimmedFront(line);
    for (const std::string_view word : kWords) {
        const std::string_view rest =
            words.starts_with(word) ? trimmedFront(words.substr(word.size())) : std::string_view{};
        if (rest.size() > 1 && rest[0] == '"' && rest[1] != '/') {
            return line.size() - rest.size() + 1;
        }
    }
    return std::string_view::npos;
}

/// A file that is gone when this is.
class TemporarySheet {
public:
    explicit TemporarySheet(std::string_view text) {
        std::error_code error;
        const auto folder = std::filesystem::temp_directory_path(error);
        constexpr std::string_view kEnding = ".toc"; // by which such sheets are known
        std::string name = (folder / "tovik-XXXXXX").string() + std::string(kEnding);
        const int file = ::mkstemps(name.data(), static_cast<int>(kEnding.size()));
        if (file >= 0) {
            name_ = name;
            complete_ =
                ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
            ::close(file);
        }
    }

    ~TemporarySheet() {
        if (!name_.empty()) {
            ::unlink(name_.c_str());
        }
    }

    TemporarySheet(const TemporarySheet&) = delete;
    TemporarySheet& operator=(const TemporarySheet&) = delete;

    [[nodiscard]] const std::string& name() const { return name_; }

    [[nodiscard]] bool complete() const { return complete_; }

private:
    std::string name_;
    bool complete_ = false;
};

} // namespace

std::string withAbsoluteNames(std::string_view sheet, std::string_view folder) {
    std::string text;
    while (!sheet.empty()) {
        const std::size_t end = sheet.find('\n');
        const std::size_t length = end == std::string_view::npos ? sheet.size() : end + 1;
        const std::string_view line = sheet.substr(0, length);
        if (const std::size_t name = relativeName(line); name != std::string_view::npos) {
            text.append(line.substr(0, name)).append(folder).append(line.substr(name));
        } else {
            text.append(line);
        }
        sheet.remove_prefix(length);
    }
    return text;
}

TocImage openTocSheet(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string sheet(kMostBytes, '\0');
    file.read(sheet.data(), static_cast<std::streamsize>(sheet.size()));
    sheet.resize(static_cast<std::size_t>(file.gcount()));
    const TemporarySheet copy(withAbsoluteNames(sheet, path.substr(0, path.rfind('/') + 1)));
    if (!copy.complete()) {
        return {};
    }
    return {.handle = share(cdio_open(copy.name().c_str(), DRIVER_CDRDAO)),
            .highByteFirst = sheet.find("SWAP") == std::string::npos};
}

} // namespace tovik::sound::libcdio
