// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/QuickList.h"

namespace tovik::player {

namespace {

using ui::MainElement;

struct QuickListLayout {
    double listTop;
    double listWidth;
    double listHeight;
    double headingTop; ///< of lblPos(4)
    double buttonTop;
    bool fieldsVisible;
    MainElement face; ///< store of the button's picture
};

constexpr QuickListLayout kOpen{60, 163, 202, 46, 46, false, MainElement::qpl_col};
constexpr QuickListLayout kClosed{169, 161, 80, 154, 156, true, MainElement::qpl_exp};

} // namespace

void ApplyQuickList(ui::MainElements& elements, bool open) {
    const QuickListLayout& layout = open ? kOpen : kClosed;
    ui::Element& list = elements.touch(MainElement::List1);
    list.top = layout.listTop;
    list.width = layout.listWidth;
    list.height = layout.listHeight;
    elements.touch(MainElement::lblPos, 3).visible = layout.fieldsVisible;
    elements.touch(MainElement::lblPos, 4).top = layout.headingTop;
    elements.touch(MainElement::infoWin).visible = layout.fieldsVisible;
    elements.touch(MainElement::fxWin).visible = layout.fieldsVisible;
    const ui::Picture face = elements.get(layout.face).picture;
    ui::Element& button = elements.touch(MainElement::qpl_but);
    button.picture = face;
    button.checked = open;
    button.top = layout.buttonTop;
}

} // namespace tovik::player
