// SPDX-License-Identifier: GPL-3.0-or-later
// The package that a skin travels in, a flat archive: 10 bytes of signature, four texts, the number
// of entries (signed 16 bits), then the entries, each a flag (1 byte), the length of its payload
// (signed 32 bits), its file name and its payload, a stream as `Huffman.h` tells. A text is its
// length (16 bits) and its bytes. Integers have their low byte first. Any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::skin {

/// What the signature begins with.
inline constexpr std::string_view kSkinSignature = "Tovik";
inline constexpr std::size_t kSignatureBytes = 10;

struct SkinPackageHeader {
    std::string_view signature;
    std::array<std::string_view, 4> texts; ///< nothing reads them
    std::int16_t fileCount = 0;
    std::string_view bytes; ///< the whole header as it stands

    /// Whether this is a package at all.
    [[nodiscard]] bool signedAsSkin() const noexcept {
        return signature.starts_with(kSkinSignature);
    }
};

struct SkinPackageEntry {
    std::uint8_t flag = 0; ///< nothing reads it
    std::string_view fileName;
    std::string_view payload;
};

/// Reads a package from its bytes, which must outlive it and all that it returns.
class SkinPackageReader {
public:
    /// Reads the header. Raises 62 when the bytes end in it; the signature is not looked at.
    explicit SkinPackageReader(std::string_view bytes);

    [[nodiscard]] const SkinPackageHeader& header() const noexcept { return header_; }

    /// The next entry. Raises 62 when the bytes end in it, and 5 for a payload of less than no
    /// bytes.
    [[nodiscard]] SkinPackageEntry next();

private:
    [[nodiscard]] std::string_view take(std::size_t count);
    [[nodiscard]] std::string_view takeText();

    template <typename Number>
    [[nodiscard]] Number takeNumber();

    std::string_view bytes_;
    std::size_t at_ = 0;
    SkinPackageHeader header_;
};

/// Whether a file of that name would stand in the skin's folder itself: it is neither empty nor
/// "." or "..", and holds no separator of folders, of this system or another.
[[nodiscard]] bool staysInFolder(std::string_view fileName) noexcept;

struct SkinFile {
    std::string name;
    std::string data;
};

/// The bytes of a package with these files, each in the smallest stream; `about` is its first
/// text. Raises 5 for a name that does not stay in the folder, two that differ in case alone, and
/// anything that does not fit its field.
[[nodiscard]] std::string skinPackage(const std::vector<SkinFile>& files, std::string_view about);

} // namespace tovik::skin
