// SPDX-License-Identifier: GPL-3.0-or-later
// What nearly every test reads, compiled once for all of them. Not included by hand.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>
