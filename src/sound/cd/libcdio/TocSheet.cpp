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

/// What a line says from the quote in front of a file's name on; empty when it names none.
std::string_view fromName(std::string_view line) {
    const std::string_view words = trimmedFront(line);
    for (const std::string_view word : kWords) {
        const std::string_view rest =
            words.starts_with(word) ? trimmedFront(words.substr(word.size())) : std::string_view{};
        if (rest.starts_with('"')) {
            return rest;
        }
    }
    return {};
}

/// What stands behind the quoted text that `words` begin with. A quote in it has a backslash in
/// front.
std::string_view behindName(std::string_view words) {
    constexpr std::size_t kEscaped = 2; // characters
    std::size_t at = 1;
    while (at < words.size() && words[at] != '"') {
        at += words[at] == '\\' ? kEscaped : 1U;
    }
    return at < words.size() ? words.substr(at + 1) : std::string_view{};
}

/// The word behind a file's name that tells the other byte order, with the blanks around it; empty
/// in a line without it.
std::string_view swapWord(std::string_view line) {
    constexpr std::string_view kSwap = "SWAP";
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::string_view behind = behindName(fromName(line));
    const std::string_view said = trimmedFront(behind);
    if (said.substr(0, said.find_first_of(kBlanks)) != kSwap) {
        return {};
    }
    return behind.substr(0, behind.size() - trimmedFront(said.substr(kSwap.size())).size());
}

/// The first line of a sheet with its end, which is taken off.
std::string_view takeLine(std::string_view& sheet) {
    const std::size_t end = sheet.find('\n');
    const std::string_view line =
        sheet.substr(0, end == std::string_view::npos ? sheet.size() : end + 1);
    sheet.remove_prefix(line.size());
    return line;
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

std::string readableSheet(std::string_view sheet, std::string_view folder) {
    std::string text;
    while (!sheet.empty()) {
        const std::string_view line = takeLine(sheet);
        const std::string_view name = fromName(line);
        std::string_view rest = line;
        if (name.size() > 1 && name[1] != '/') {
            const std::size_t inFront = line.size() - name.size() + 1;
            text.append(line.substr(0, inFront)).append(folder);
            rest = line.substr(inFront);
        }
        if (const std::string_view swap = swapWord(line); !swap.empty()) {
            const std::size_t behind = behindName(name).size() - swap.size();
            text.append(rest.substr(0, rest.size() - behind - swap.size())).append(" ");
            rest = rest.substr(rest.size() - behind);
        }
        text.append(rest);
    }
    return text;
}

bool swapsBytes(std::string_view sheet) {
    while (!sheet.empty()) {
        if (!swapWord(takeLine(sheet)).empty()) {
            return true;
        }
    }
    return false;
}

TocImage openTocSheet(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string sheet(kMostBytes, '\0');
    file.read(sheet.data(), static_cast<std::streamsize>(sheet.size()));
    sheet.resize(static_cast<std::size_t>(file.gcount()));
    const TemporarySheet copy(readableSheet(sheet, path.substr(0, path.rfind('/') + 1)));
    if (!copy.complete()) {
        return {};
    }
    return {.handle = share(cdio_open(copy.name().c_str(), DRIVER_CDRDAO)),
            .highByteFirst = !swapsBytes(sheet)};
}

} // namespace tovik::sound::libcdio
