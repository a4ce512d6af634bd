// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/Dispatcher.h"

#include "base/ErrorStream.h"

#include <new>
#include <string>
#include <utility>

namespace tovik::host {

using base::ErrorNumber;
using base::RuntimeError;

Dispatcher::Dispatcher()
    : report_([](const RuntimeError& error) {
          base::tell(std::string(error.what()) + " (" + std::to_string(error.number()) + ")");
      }) {}

void Dispatcher::reportTo(Report report) {
    report_ = std::move(report);
}

void Dispatcher::run(const std::function<void()>& handler) const noexcept {
    try {
        handler();
    } catch (const RuntimeError& error) {
        report(error);
    } catch (const std::bad_alloc&) {
        report(RuntimeError(ErrorNumber::OutOfMemory));
    } catch (const std::exception& error) {
        report(RuntimeError(ErrorNumber::InternalError, error.what()));
    } catch (...) {
        report(RuntimeError(ErrorNumber::InternalError));
    }
}

void Dispatcher::report(const RuntimeError& error) const noexcept {
    try {
        report_(error);
    } catch (...) { // NOLINT(bugprone-empty-catch): there is nobody left to tell
    }
}

} // namespace tovik::host
