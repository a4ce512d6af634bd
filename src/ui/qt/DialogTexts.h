// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of a language on the controls of a dialog. Interface thread.
#pragma once

#include "config/TextTargets.h"

#include <map>
#include <QString>
#include <QWidget>
#include <string>
#include <string_view>
#include <utility>

namespace tovik::ui {

/// Finds the controls by their object names: "Command1_0" for an element with that index, or
/// "Command1" where index 0 is the only one. Takes group boxes, labels, buttons, tick boxes, boxes
/// for typing, tab bars and widgets, combo boxes and lists; the dialog itself has no name.
class DialogTexts final : public config::TextTargets {
public:
    /// The dialog is kept by reference. Its controls are looked for at each text, so they may come
    /// later than this object.
    explicit DialogTexts(QWidget& dialog) : dialog_(dialog) {}

    void setText(std::string_view element, int index, config::TextKind kind,
                 std::string_view text) override;

    /// A text of kind `Kept`; empty where no language has set it.
    [[nodiscard]] std::string keptText(std::string_view element, int index = 0) const;

private:
    [[nodiscard]] QWidget* find(std::string_view element, int index) const;

    QWidget& dialog_;
    std::map<std::pair<std::string, int>, std::string> kept_;
};

} // namespace tovik::ui
