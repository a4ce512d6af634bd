// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cMemDC.h"
#include "ui/Mnemonic.h"

#include <algorithm>

namespace tovik::ui {

int cMemDC::TextWidth(std::string_view text) const {
    return Engine != nullptr ? Engine->measure(Font, text).width : 0;
}

int cMemDC::TextHeight(std::string_view text) const {
    return Engine != nullptr ? Engine->measure(Font, text).height : 0;
}

int cMemDC::DrawText(std::string_view text, const PixelBox& box, unsigned flags) {
    if (Engine == nullptr) {
        return 0;
    }
    const int height = FontHeight();
    if ((flags & kTextSingleLine) != 0) {
        int top = box.top;
        if ((flags & kTextMiddle) != 0) {
            top += (box.height() - height) / 2;
        } else if ((flags & kTextBottom) != 0) {
            top = box.bottom - height;
        }
        drawLineOfText(text, box, top, flags);
        return height;
    }
    int top = box.top;
    while (true) {
        const std::size_t end = text.find('\n');
        drawLineOfText(text.substr(0, end), box, top, flags);
        top += height;
        if (end == std::string_view::npos) {
            return top - box.top;
        }
        text.remove_prefix(end + 1);
    }
}

void cMemDC::drawLineOfText(std::string_view text, const PixelBox& box, int top, unsigned flags) {
    const Mnemonic line =
        (flags & kTextNoPrefix) != 0 ? Mnemonic{.text = std::string(text)} : mnemonicOf(text);
    const PictureSize size = Engine->measure(Font, line.text);
    int left = box.left;
    if ((flags & kTextCentre) != 0) {
        left += (box.width() - size.width) / 2;
    } else if ((flags & kTextRight) != 0) {
        left = box.right - size.width;
    }
    const PixelBox everywhere{0, 0, image_.width, image_.height};
    const PixelBox clip = clippedBox((flags & kTextNoClip) != 0 ? everywhere : box);
    if (clip.width() <= 0 || clip.height() <= 0) {
        return;
    }
    if (BackStyle && BackColor) {
        FillRect(left, top, left + size.width, top + size.height, *BackColor);
    }
    Engine->draw(image_, clip, left, top, Font,
                 {.text = line.text,
                  .colour = ForeColor,
                  .underlined = line.letter,
                  .rightToLeft = (flags & kTextRightToLeft) != 0});
}

} // namespace tovik::ui
