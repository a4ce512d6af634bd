// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/cMenus.h"
#include "menus/MenuMessages.h"
#include "menus/MenuPainter.h"

namespace tovik::menus {

bool cMenus::measure(const ui::WindowMessage& message) const {
    auto* const record = messageRecord<MeasureItem>(message);
    const int index = record != nullptr ? IndexForID(record->id) : 0;
    if (index == 0 || !ItemOwnerDraw(index)) {
        return false;
    }
    measureItem(*this, index, *record);
    return true;
}

bool cMenus::draw(const ui::WindowMessage& message) const {
    auto* const record = messageRecord<DrawItem>(message);
    if (record == nullptr || record->surface == nullptr) {
        return false;
    }
    if (record->id == 0) {
        drawFace(*this, *record);
        return true;
    }
    const int index = IndexForID(record->id);
    if (index == 0 || !ItemOwnerDraw(index)) {
        return false;
    }
    drawItem(*this, index, *record);
    return true;
}

void cMenus::ISuperClass_Before(bool& handled, ui::MessageResult& result,
                                ui::MessageWindow& /*window*/, const ui::WindowMessage& message) {
    switch (message.number) {
    case ui::messages::kMeasureItem:
        handled = measure(message);
        break;
    case ui::messages::kDrawItem:
        handled = draw(message);
        break;
    case ui::messages::kMenuSelect:
        currentId_ = static_cast<int>(message.wParam);
        break;
    case ui::messages::kCommand:
        if (const int index = IndexForID(static_cast<int>(message.wParam)); index != 0) {
            handled = true;
            currentId_ = at(index).id;
            if (click_) {
                click_(index);
            }
        }
        break;
    case ui::messages::kKeyDown:
        // A key that is passed on has its effect here all the same.
        if (KeyAccelPressed(static_cast<int>(message.wParam), static_cast<int>(message.lParam))) {
            handled = ConsumeKeys;
        }
        break;
    default:
        break;
    }
    result = handled ? 1 : 0;
}

void cMenus::ISuperClass_After(ui::MessageResult& /*result*/, ui::MessageWindow& /*window*/,
                               const ui::WindowMessage& /*message*/) {}

} // namespace tovik::menus
