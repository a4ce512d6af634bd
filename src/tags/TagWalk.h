// SPDX-License-Identifier: GPL-3.0-or-later
// The frames of an ID3v2 tag as they lie in the file, by the rules of its own version
// (id3.org: 2.2, 2.3 and 2.4). Other than the frames of `cMP3ID3v2` they are walked as the format
// says, since other programs wrote them. Any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::tags {

inline constexpr unsigned kOldestTag = 2; ///< ids of three letters
inline constexpr unsigned kUsualTag = 3;
inline constexpr unsigned kNewestTag = 4; ///< sizes of seven bits a byte

inline constexpr std::size_t kTagHeadSize = 10;

/// How a version writes its frames.
struct FrameForm {
    std::size_t headBytes;
    std::size_t idBytes;
    std::size_t sizeBytes;
    // Of the second byte of flags:
    unsigned unreadable; ///< compressed or encrypted
    unsigned grouped;    ///< a byte stands in front of the content
    unsigned measured;   ///< four bytes stand in front of it
    unsigned unsynchronised;
};

class TagWalk {
public:
    /// A frame within the tag that was walked.
    struct Frame {
        std::string_view id;
        std::string_view bytes; ///< head and content, as they lie in the file
    };

    /// Walks a tag that begins these bytes, which may end before or behind it. What is no tag, or
    /// compressed as a whole, has no version and no frames.
    explicit TagWalk(std::string_view tag);
    TagWalk(const TagWalk&) = delete;
    TagWalk& operator=(const TagWalk&) = delete;

    /// 2 to 4; 0 for what is no such tag.
    [[nodiscard]] unsigned version() const noexcept { return version_; }

    [[nodiscard]] const FrameForm& form() const noexcept;

    /// In their order; up to padding, or to what is no frame.
    [[nodiscard]] const std::vector<Frame>& frames() const noexcept { return frames_; }

    /// What stands behind the last frame in the place of padding, up to the end that the tag tells:
    /// frames with ids of another version or in small letters, and whatever follows those.
    [[nodiscard]] std::string_view rest() const noexcept { return rest_; }

    /// No frame is cut off: behind the frames and the rest there is nothing but padding.
    [[nodiscard]] bool complete() const noexcept { return complete_; }

    /// The bytes of head and extended head, of the frames and the rest, as they lie in the file;
    /// without the zeros of a tag that is unsynchronised as a whole.
    [[nodiscard]] std::size_t usedBytes() const noexcept { return usedBytes_; }

    /// The content of a frame as it was before it was put into the tag; nothing where it is
    /// compressed or encrypted.
    [[nodiscard]] std::optional<std::string> contentOf(const Frame& frame) const;

private:
    /// `told`: how much of it is the tag's by its own word.
    void walk(std::string_view body, std::size_t told);

    unsigned version_ = 0;
    std::string body_; ///< of a tag that is unsynchronised as a whole, without those zeros
    std::vector<Frame> frames_;
    std::string_view rest_;
    bool complete_ = true;
    std::size_t usedBytes_ = 0;
};

/// A number of bytes with so many bits each, the first one the highest.
[[nodiscard]] std::size_t tagNumber(std::string_view bytes, unsigned bitsPerByte) noexcept;

/// Seven bits a byte, or plain where a byte has eight: what wrote it did not know of that.
[[nodiscard]] std::size_t tagSize(std::string_view bytes) noexcept;

/// How many bytes a tag with this head may have behind it: the larger one of the two readings of
/// its size, so that what wrote plain sizes does not lose its last frames.
[[nodiscard]] std::size_t bodyBytes(std::string_view head) noexcept;

/// The bytes behind a text that ends with a zero, in units of one byte or two; nothing where it
/// does not end.
[[nodiscard]] std::optional<std::string_view> behindText(std::string_view text, bool wide);

} // namespace tovik::tags
