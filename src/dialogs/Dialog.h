// SPDX-License-Identifier: GPL-3.0-or-later
// A window beside the main window, on the screen. Interface thread.
#pragma once

#include <QDialog>

namespace tovik::dialogs {

class Dialog : public QDialog {
public:
    using QDialog::QDialog;

    /// Reads anew what the dialog shows, its words included; done each time that it is asked for,
    /// before it comes to the front. Raises nothing: what goes wrong is reported.
    virtual void load() = 0;
};

} // namespace tovik::dialogs
