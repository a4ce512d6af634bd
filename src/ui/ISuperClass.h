// SPDX-License-Identifier: GPL-3.0-or-later
// Who sees the messages of a window before and after the window itself. Interface thread.
#pragma once

#include "ui/MessageWindow.h"

namespace tovik::ui {

class ISuperClass {
public:
    virtual ~ISuperClass() = default;
    ISuperClass(const ISuperClass&) = delete;
    ISuperClass& operator=(const ISuperClass&) = delete;

    /// The window has answered; the result may be changed.
    virtual void After(MessageResult& result, MessageWindow& window,
                       const WindowMessage& message) = 0;

    /// The window has not seen the message yet. With `handled` set it never does, there is no
    /// `After`, and `result` is the answer. Both begin as 0.
    virtual void Before(bool& handled, MessageResult& result, MessageWindow& window,
                        const WindowMessage& message) = 0;

protected:
    ISuperClass() = default;
};

} // namespace tovik::ui
