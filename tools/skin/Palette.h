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
inline constexpr Shade kShell{0xFF4C52A0, 0xFF1F2148};
inline constexpr QRgb kShellRim = 0xFF8E95D6;
inline constexpr QRgb kShellFoot = 0xFF13142C;
inline constexpr Shade kDeck{0xFF1B1D3C, 0xFF262950};
inline constexpr QRgb kDeckEdge = 0xFF0F1024;
inline constexpr QRgb kDeckLip = 0xFF4B5092;

// The display: glass, and what glows behind it.
inline constexpr QRgb kGlass = 0xFF0D0F20;
inline constexpr QRgb kGlassEdge = 0xFF040510;
inline constexpr QRgb kGlassLine = 0xFF262B52;
inline constexpr QRgb kGlow = 0xFF7DE6FF;
inline constexpr QRgb kGlowText = 0xFFBFEFFF;
inline constexpr QRgb kGlowDim = 0xFF47507F;
inline constexpr QRgb kAmber = 0xFFFFA61F;
inline constexpr QRgb kAmberBright = 0xFFFFD08A;
inline constexpr QRgb kRed = 0xFFFF5562;

// Cards: the light areas that bear dark words.
inline constexpr Shade kCard{0xFFF4F6FC, 0xFFDDE1F0};
inline constexpr Shade kCardHead{0xFFD3D8EC, 0xFFC3C9E2};
inline constexpr QRgb kCardEdge = 0xFF101127;
inline constexpr QRgb kCardLine = 0xFFB4BBD8;
inline constexpr QRgb kInk = 0xFF212152;
inline constexpr QRgb kInkSoft = 0xFF7C83AE;
inline constexpr QRgb kGroove = 0xFFB0B8D8;

// Buttons.
inline constexpr Shade kFaceUp{0xFF7178BE, 0xFF444A88};
inline constexpr Shade kFaceOver{0xFF949CE6, 0xFF5C63AE};
inline constexpr Shade kFaceDown{0xFF1E2043, 0xFF33376A};
inline constexpr Shade kKnob{0xFFFFFFFF, 0xFFB9C0E0};
inline constexpr QRgb kFaceEdge = 0xFF0C0D1E;
inline constexpr QRgb kFaceLip = 0x80FFFFFF;
inline constexpr QRgb kIcon = 0xFFE9EDFF;
inline constexpr QRgb kIconDim = 0xFF9BA2D2;

} // namespace tovik::skinart
