// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop's session asks of the player when it ends: to save, to be started again, to
// leave. Interface thread.
#pragma once

#include "host/Closing.h"
#include "host/Dispatcher.h"

#include <functional>
#include <QObject>
#include <string>
#include <vector>

namespace tovik::app {

/// The words that start this player again, with its data folder and device but without files: a
/// session that comes back plays nothing by itself.
[[nodiscard]] std::vector<std::string> restartCommand(const std::string& program,
                                                      const std::string& dataFolder,
                                                      const std::string& device,
                                                      const std::string& session);

class SessionEnd final : public QObject {
public:
    struct Needs {
        host::Closing& closing;
        const host::Dispatcher& dispatcher;
        std::function<void()> save; ///< and go on
        std::function<std::vector<std::string>(const std::string&)>
            again; ///< by the session's name
    };

    /// Needs the QApplication; what is named outlives the object.
    explicit SessionEnd(Needs needs);

    /// All is saved on return. The session may yet go on, so the player does, too.
    void save() const;

protected:
    /// The session tells the program to leave.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Needs p_;
};

} // namespace tovik::app
