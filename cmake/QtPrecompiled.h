// SPDX-License-Identifier: GPL-3.0-or-later
// What nearly every file with Qt reads, compiled once a target. Not included by hand.
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <string>
#include <vector>
