// SPDX-License-Identifier: GPL-3.0-or-later
// What one instance of the program tells another, and how it travels. Pure; any thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tovik::host {

/// The first number of a record. Whoever speaks to the player from outside uses 3.
enum class InstanceMessageKind : std::uint32_t {
    file = 3,                 ///< a path in a buffer of 255 bytes
    longFile = 0x474E4F4C,    ///< "LONG": a path of any length, in as many bytes as it has
    commandLine = 0x53445257, ///< "WRDS": the whole text of a command line, switches and all files
    toTheFront = 0x544E5246,  ///< "FRNT": the window is to be seen; the text is the desktop's token
};

struct InstanceMessage {
    InstanceMessageKind kind = InstanceMessageKind::file;
    std::string text{};

    bool operator==(const InstanceMessage&) const = default;
};

/// The buffer of a path, which a zero ends.
inline constexpr std::size_t kPathBuffer = 255;

/// More than a word of a command line can have.
inline constexpr std::size_t kLongestText = std::size_t{256} * 1024;

/// More than a whole one can have.
inline constexpr std::size_t kLongestLine = std::size_t{4} * 1024 * 1024;

/// The message that hands over a path: `file` while it fits the buffer, else `longFile`.
[[nodiscard]] InstanceMessage handOver(std::string_view path);

/// The record: two numbers of 32 bits, low byte first, then the text. The numbers are the kind and
/// the length of the text, with a zero behind it for `file`, whose buffer is always sent whole. A
/// text that is too long for its kind is cut.
[[nodiscard]] std::string recordOf(const InstanceMessage& message);

/// Takes a record as its bytes arrive.
class InstanceRecord {
public:
    enum class State : std::uint8_t { unfinished, whole, broken };

    /// Further bytes; those behind a whole or broken record are dropped. A kind or a length that
    /// cannot be is broken. Never keeps more than the record has.
    State take(std::string_view bytes);

    /// The message of a whole record, cut at its first zero.
    [[nodiscard]] InstanceMessage message() const;

private:
    [[nodiscard]] State judgeHead();

    std::string bytes_;
    std::size_t size_ = kHead; ///< as far as it is known
    State state_ = State::unfinished;

    static constexpr std::size_t kHead = 2 * sizeof(std::uint32_t);
};

} // namespace tovik::host
