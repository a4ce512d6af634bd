// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/MessageWindow.h"

namespace tovik::ui {

MessageResult MessageWindow::send(const WindowMessage& message) {
    // A copy: a procedure may change the chain.
    const Chain links = *chain_;
    return passOn(links, links.size(), message);
}

MessageResult MessageWindow::passOn(const Chain& links, std::size_t count,
                                    const WindowMessage& message) {
    if (count == 0) {
        return own_ ? own_(message) : 0;
    }
    return links[count - 1]->handle(*this, message, [&](const WindowMessage& further) {
        return passOn(links, count - 1, further);
    });
}

} // namespace tovik::ui
