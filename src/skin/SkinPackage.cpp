// SPDX-License-Identifier: GPL-3.0-or-later
#include "skin/SkinPackage.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "skin/HuffmanEncoder.h"
#include "skin/LittleEndian.h"

#include <limits>
#include <set>

namespace tovik::skin {

namespace {

using base::ErrorNumber;
using base::RuntimeError;

/// The signature of packages made here; its last five bytes are free.
constexpr std::string_view kWholeSignature = "TovikSkin1";
static_assert(kWholeSignature.size() == kSignatureBytes);

template <typename Number>
Number fitting(std::size_t number) {
    if (number > static_cast<std::size_t>(std::numeric_limits<Number>::max())) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    return static_cast<Number>(number);
}

void appendText(std::string& bytes, std::string_view text) {
    appendLittleEndian(bytes, fitting<std::uint16_t>(text.size()));
    bytes += text;
}

} // namespace

SkinPackageReader::SkinPackageReader(std::string_view bytes) : bytes_(bytes) {
    header_.signature = take(kSignatureBytes);
    for (std::string_view& text : header_.texts) {
        text = takeText();
    }
    header_.fileCount = takeNumber<std::int16_t>();
    header_.bytes = bytes_.substr(0, at_);
}

SkinPackageEntry SkinPackageReader::next() {
    SkinPackageEntry entry;
    entry.flag = takeNumber<std::uint8_t>();
    const auto packedSize = takeNumber<std::int32_t>();
    entry.fileName = takeText();
    if (packedSize < 0) {
        throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    }
    entry.payload = take(static_cast<std::size_t>(packedSize));
    return entry;
}

std::string_view SkinPackageReader::take(std::size_t count) {
    if (bytes_.size() - at_ < count) {
        throw RuntimeError(ErrorNumber::InputPastEndOfFile);
    }
    const std::string_view taken = bytes_.substr(at_, count);
    at_ += count;
    return taken;
}

std::string_view SkinPackageReader::takeText() {
    return take(takeNumber<std::uint16_t>());
}

template <typename Number>
Number SkinPackageReader::takeNumber() {
    return littleEndian<Number>(bytesOf(take(sizeof(Number))), 0);
}

bool staysInFolder(std::string_view fileName) noexcept {
    constexpr std::string_view kForbidden("/\\\0", 3);
    return !fileName.empty() && fileName != "." && fileName != ".." &&
           fileName.find_first_of(kForbidden) == std::string_view::npos;
}

std::string skinPackage(const std::vector<SkinFile>& files, std::string_view about) {
    std::string bytes(kWholeSignature);
    appendText(bytes, about);
    for (int text = 1; text < 4; ++text) {
        appendText(bytes, {});
    }
    appendLittleEndian(bytes, fitting<std::int16_t>(files.size()));
    std::set<std::string> names;
    for (const SkinFile& file : files) {
        if (!staysInFolder(file.name) || !names.insert(base::toLowerAscii(file.name)).second) {
            throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        }
        const std::string payload = smallestStream(file.data);
        appendLittleEndian(bytes, std::uint8_t{0});
        appendLittleEndian(bytes, fitting<std::int32_t>(payload.size()));
        appendText(bytes, file.name);
        bytes += payload;
    }
    return bytes;
}

} // namespace tovik::skin
