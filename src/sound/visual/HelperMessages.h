// SPDX-License-Identifier: GPL-3.0-or-later
// What the player and the process of a plug-in say to each other: one record a packet. Nothing that
// the process says is trusted. Any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace tovik::sound {

inline constexpr std::size_t kVisualSamples = 512;
inline constexpr std::size_t kVisualValues = 256;

/// Where the process finds its end of the socket.
inline constexpr int kHelperSocket = 3;

/// The first word of its command line: what it is to do. Both go on with the player's process id.
inline constexpr const char* kHelperRuns = "run";   ///< plug-in, settings
inline constexpr const char* kHelperLists = "list"; ///< file of known names, folders

/// What is heard, for one picture.
struct HeardSound {
    std::array<float, kVisualSamples> left{};
    std::array<float, kVisualSamples> right{};
    std::array<float, kVisualValues> spectrum{};
};

/// Each order is answered once: `drawn` for a picture, `taken` for all else.
enum class HelperOrderKind : std::uint32_t {
    resize, ///< width and height; a descriptor of the new picture comes along. Always the first
    render, ///< the sound
    click,  ///< x and y
};

struct HelperOrder {
    HelperOrderKind kind{};
    std::uint32_t number = 0; ///< of the picture's size, which an answer repeats
    std::int32_t x = 0;
    std::int32_t y = 0;
    HeardSound sound{}; ///< sent with `render` alone
};

enum class HelperAnswerKind : std::uint32_t {
    drawn,  ///< the picture is done
    taken,  ///< the size was taken, or the click
    named,  ///< the name of the plug-in follows
    listed, ///< path and name follow, a zero byte between them
    done,   ///< all were listed
};

inline constexpr std::size_t kLongestAnswerText = 8192;

struct HelperAnswerHead {
    HelperAnswerKind kind{};
    std::uint32_t number = 0;
};

struct HelperAnswer {
    HelperAnswerHead head;
    std::array<char, kLongestAnswerText> text{}; ///< as much of it as the packet brings
};

/// An order without sound is sent up to here.
inline constexpr std::size_t kShortOrder = offsetof(HelperOrder, sound);

} // namespace tovik::sound
