// SPDX-License-Identifier: GPL-3.0-or-later
// The faces of a button that has only one picture. Any thread.
#pragma once

#include "ui/Element.h"

#include <QImage>

namespace tovik::ui {

/// A copy of the picture (premultiplied, 32 bits) that is lighter or darker: each colour is
/// multiplied, so that dark ground round a button hardly changes. Transparent pixels stay so.
[[nodiscard]] QImage shaded(const QImage& picture, Shade shade);

} // namespace tovik::ui
