// SPDX-License-Identifier: GPL-3.0-or-later
// tovik-skin: makes skin packages and lists what is in them.
#include "base/AtomicFile.h"
#include "base/FileErrors.h"
#include "base/PathText.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "skin/Huffman.h"
#include "skin/SkinPackage.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace tovik;

constexpr int kUsageStatus = 2;
constexpr const char* kUsage =
    "usage: tovik-skin build OUT.tsf FILE...\n"
    "       tovik-skin list FILE.tsf\n"
    "A folder stands for the files in it, in the order of their names.\n";

/// What went wrong, with the file it went wrong with.
class Failure : public std::exception {
public:
    Failure(const std::string& file, const std::string& why) : text_(file + ": " + why) {}

    [[nodiscard]] const char* what() const noexcept override { return text_.c_str(); }

private:
    std::string text_;
};

std::string contentOf(const std::string& path) {
    std::string bytes;
    if (const std::error_code failure = base::readWholeFile(path, bytes)) {
        throw Failure(path, failure.message());
    }
    return bytes;
}

std::vector<std::string> filesOf(const std::string& path) {
    std::error_code failure;
    if (!fs::is_directory(path, failure)) {
        return {path};
    }
    std::vector<std::string> files;
    for (fs::directory_iterator entry(path, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        if (!entry->is_directory(failure)) {
            files.push_back(entry->path().native());
        }
    }
    if (failure) {
        throw Failure(path, failure.message());
    }
    std::ranges::sort(files);
    return files;
}

int build(const std::string& target, std::span<const std::string> sources) {
    std::vector<skin::SkinFile> files;
    for (const std::string& source : sources) {
        for (const std::string& path : filesOf(source)) {
            files.push_back({fs::path(path).filename().native(), contentOf(path)});
        }
    }
    std::string package;
    try {
        package = skin::skinPackage(files, "Tovik skin");
    } catch (const base::RuntimeError&) {
        throw Failure(target, "two files of one name, a name that is none, or too many files");
    }
    if (const std::error_code failure = base::replaceFile(target, package, base::Flush::No)) {
        throw Failure(target, failure.message());
    }
    return EXIT_SUCCESS;
}

const char* methodOf(std::string_view payload) {
    constexpr std::size_t kMethodAt = 2;
    if (payload.size() <= kMethodAt) {
        return "?";
    }
    switch (static_cast<unsigned char>(payload[kMethodAt])) {
    case skin::kMethodStored:
        return "stored";
    case skin::kMethodHuffman:
        return "huffman";
    default:
        return "?";
    }
}

int list(const std::string& path) {
    const std::string bytes = contentOf(path);
    try {
        skin::SkinPackageReader package(bytes);
        if (!package.header().signedAsSkin()) {
            throw Failure(path, "not a skin package");
        }
        for (int count = package.header().fileCount; count > 0; --count) {
            const skin::SkinPackageEntry entry = package.next();
            const std::size_t size = skin::HuffmanDecodeString(entry.payload).size();
            if (std::printf("%10zu %10zu %-8s %s\n", size, entry.payload.size(),
                            methodOf(entry.payload),
                            base::displayText(entry.fileName).c_str()) < 0) {
                throw Failure("output", base::lastSystemError().message());
            }
        }
    } catch (const base::RuntimeError& error) {
        throw Failure(path, error.description());
    }
    return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

int run(std::span<const std::string> words) {
    if (words.size() >= 3 && words[0] == "build") {
        return build(words[1], words.subspan(2));
    }
    if (words.size() == 2 && words[0] == "list") {
        return list(words[1]);
    }
    if (words.size() == 1 && words[0] == "--help") {
        return std::fputs(kUsage, stdout) < 0 ? EXIT_FAILURE : EXIT_SUCCESS;
    }
    std::fputs(kUsage, stderr);
    return kUsageStatus;
}

} // namespace

int main(int argc, char* argv[]) {
    try {
        return run(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "tovik-skin: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
