// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Errors.h"

#include <new>
#include <utility>

namespace tovik::config {

using base::ErrorNumber;
using base::RuntimeError;

namespace {

/// What an error is logged under that left all procedures.
constexpr Procedure kUnguarded{"Player", "dispatch", host::kProgramTitle};

} // namespace

Errors::Errors(const ErrHandler& log, host::Dialogs& dialogs) : log_(log), dialogs_(dialogs) {}

void Errors::report(const RuntimeError& error, const Procedure& procedure) const {
    const bool lost = !log(error, procedure);
    if (procedure.showsBox() || (lost && !std::exchange(lostOne_, true))) {
        show(error, procedure);
    }
}

void Errors::reportAndTell(const RuntimeError& error, const Procedure& procedure) const {
    log(error, procedure);
    if (error.description() != lastShown_) {
        show(error, procedure);
    }
}

void Errors::reportUnguarded(const RuntimeError& error) const noexcept {
    try {
        report(error, kUnguarded);
    } catch (...) { // NOLINT(bugprone-empty-catch): there is nobody left to tell
    }
}

bool Errors::log(const RuntimeError& error, const Procedure& procedure) const {
    try {
        log_.SaveLog(error.description(), error.number(), procedure.module, procedure.procedure);
        return true;
    } catch (const RuntimeError&) {
        return false; // what cannot be logged is worth more than why
    }
}

void Errors::show(const RuntimeError& error, const Procedure& procedure) const {
    if (boxes_) {
        lastShown_ = error.description();
        dialogs_.showMessage(
            {.text = error.description(),
             .title = procedure.showsBox() ? std::string(procedure.tail) : host::kProgramTitle});
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
