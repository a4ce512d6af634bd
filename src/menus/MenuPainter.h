// SPDX-License-Identifier: GPL-3.0-or-later
// How large the items of a menu are, and how they are drawn. Interface thread.
#pragma once

#include "menus/cMenus.h"
#include "menus/MenuMessages.h"

namespace tovik::menus {

/// How wide the column of the images is, at a scale of 1.
inline constexpr int kImageColumn = 20;

/// Answers how much room an item needs beside the others of its menu.
void measureItem(const cMenus& menus, int index, MeasureItem& item);

/// The empty face of a menu, with the column of the images.
void drawFace(const cMenus& menus, const DrawItem& item);

/// An item on the face of its menu.
void drawItem(const cMenus& menus, int index, const DrawItem& item);

} // namespace tovik::menus
