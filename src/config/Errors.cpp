// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Errors.h"

#include <new>

namespace tovik::config {

using base::ErrorNumber;
using base::RuntimeError;

namespace {

/// What an error is logged under that left all procedures.
constexpr Procedure kUnguarded{"Player", "dispatch", " in dispatch"};

} // namespace

Errors::Errors(const ErrHandler& log, host::Dialogs& dialogs) : log_(log), dialogs_(dialogs) {}

void Errors::report(const RuntimeError& error, const Procedure& procedure) const {
    log_.SaveLog(error.description(), error.number(), procedure.module, procedure.procedure);
    show(error, procedure);
}

void Errors::reportUnguarded(const RuntimeError& error) const noexcept {
    try {
        try {
            report(error, kUnguarded);
        } catch (const RuntimeError&) {
            show(error, kUnguarded);
        }
    } catch (...) { // NOLINT(bugprone-empty-catch): there is nobody left to tell
    }
}

void Errors::show(const RuntimeError& error, const Procedure& procedure) const {
    if (boxes_ && procedure.showsBox()) {
        dialogs_.showMessage({.text = error.description(), .title = std::string(procedure.tail)});
    }
}

RuntimeError currentError() {
    try {
        throw;
    } catch (const RuntimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return RuntimeError(ErrorNumber::OutOfMemory);
    } catch (const std::exception& error) {
        return {ErrorNumber::InternalError, error.what()};
    } catch (...) {
        return RuntimeError(ErrorNumber::InternalError);
    }
}

} // namespace tovik::config
