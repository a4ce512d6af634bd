// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/frmAbout.h"

#include "base/ErrorPlace.h"

namespace tovik::window {

namespace {

constexpr const char* kUpdater = "update.exe";
constexpr const char* kReportAll = "&report_all";

} // namespace

void frmAbout::Form_Load() {
    version_.clear();
    config::guard(p_.errors, config::procedureOf("About", "Load"), [this] {
        const std::string number = p_.version.getTovikversion();
        const std::string build = std::to_string(p_.version.getTovikbuildNm());
        version_ = number + "." + build + " (" + p_.version.buildDate() + ")";
    });
}

bool frmAbout::canUpdate() const {
    return p_.programs.find(kUpdater).has_value();
}

void frmAbout::Command1_Click() {
    config::guard(p_.errors, config::procedureOf("About", "command1"), [this] {
        if (!p_.programs.start(kUpdater, {p_.version.updateArgument() + kReportAll})) {
            throw base::withPlace(base::RuntimeError(base::ErrorNumber::FileNotFound), kUpdater);
        }
    });
}

} // namespace tovik::window
