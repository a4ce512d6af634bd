// SPDX-License-Identifier: GPL-3.0-or-later
// The colours of the skin. Light comes from above: of a pair the first is the upper one. Any
// thread.
#pragma once

#include <QRgb>

namespace tovik::skinart {

/// A surface that light falls on: its colour at the upper and at the lower edge.
struct Shade {
    QRgb top;
    QRgb bottom;
};

inline constexpr QRgb kNothing = 0x00000000;
inline constexpr QRgb kWhite = 0xFFFFFFFF;
inline constexpr QRgb kShadow = 0x70000000;

// The body: an indigo shell with a darker deck sunk into it.
inline constexpr Shade kShell{0xFF545BAC, 0xFF1E2147};
inline constexpr QRgb kShellRim = 0xFFA4ABE8;
inline constexpr QRgb kShellFoot = 0xFF10112A;
inline constexpr Shade kDeck{0xFF171934, 0xFF22254A};
inline constexpr QRgb kDeckEdge = 0xFF0B0C1E;
inline constexpr QRgb kDeckLip = 0xFF5258A0;

// The display: glass, and what glows behind it.
inline constexpr Shade kGlass{0xFF15172F, 0xFF090A18};
inline constexpr QRgb kGlassEdge = 0xFF03040C;
inline constexpr QRgb kGlassLine = 0xFF2B3160;
inline constexpr QRgb kGlow = 0xFF7DE6FF;
inline constexpr QRgb kGlowText = 0xFFEAFBFF;
inline constexpr QRgb kGlowDim = 0xFF6773AE;
inline constexpr QRgb kAmber = 0xFFFFA61F;
inline constexpr QRgb kAmberBright = 0xFFFFD08A;
inline constexpr QRgb kAmberDeep = 0xFFF2603C; ///< where it is loud
inline constexpr QRgb kRed = 0xFFFF5562;

// Cards: the light areas that bear dark words.
inline constexpr Shade kCard{0xFFE0E4F2, 0xFFC8CEE4};
inline constexpr Shade kCardHead{0xFFC2C9E2, 0xFFAEB6D6};
inline constexpr QRgb kCardLine = 0xFF949DC6;
inline constexpr QRgb kInk = 0xFF212152;
inline constexpr QRgb kInkSoft = 0xFF5D659A;
inline constexpr QRgb kGroove = 0xFF9FA8CE;

// Buttons.
inline constexpr Shade kFaceUp{0xFF7A82CC, 0xFF3F4584};
inline constexpr Shade kFaceOver{0xFFA3ABF4, 0xFF5D65B6};
inline constexpr Shade kFaceDown{0xFF14162F, 0xFF2B2F5E};
inline constexpr Shade kKnob{0xFFFFFFFF, 0xFFA6AED6};
inline constexpr QRgb kKnobMark = 0xFFF08A00;
inline constexpr QRgb kFaceEdge = 0xFF0A0B1A;
inline constexpr QRgb kFaceLip = 0x90FFFFFF;
inline constexpr QRgb kFaceRing = 0x90D6F4FF;
inline constexpr QRgb kFaceShadow = 0x80000008;
inline constexpr QRgb kIcon = 0xFFE9EDFF;
inline constexpr QRgb kIconDim = 0xFF9BA2D2;

} // namespace tovik::skinart
