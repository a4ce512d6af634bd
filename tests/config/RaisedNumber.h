// SPDX-License-Identifier: GPL-3.0-or-later
// What an operation raises.
#pragma once

#include "base/RuntimeError.h"

namespace tovik::test {

/// The number of the run-time error that the operation raises; 0 if it raises none.
template <typename Operation>
int raisedNumber(const Operation& operation) {
    try {
        operation();
        return 0;
    } catch (const base::RuntimeError& error) {
        return error.number();
    }
}

/// Its description; empty if it raises none.
template <typename Operation>
std::string raisedText(const Operation& operation) {
    try {
        operation();
        return {};
    } catch (const base::RuntimeError& error) {
        return error.description();
    }
}

} // namespace tovik::test
