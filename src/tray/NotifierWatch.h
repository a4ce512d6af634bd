// SPDX-License-Identifier: GPL-3.0-or-later
// Whether somebody on the desktop's bus shows icons, as long as the program lives: hosts come and
// go. Interface thread.
#pragma once

#include <functional>
#include <memory>
#include <QDBusConnection>
#include <QObject>
#include <QString>

class QDBusServiceWatcher;

namespace tovik::tray {

class NotifierWatch final : public QObject {
    Q_OBJECT

public:
    /// `changed` is told at the first answer and whenever it becomes another.
    NotifierWatch(QDBusConnection bus, std::function<void()> changed);
    ~NotifierWatch() override;

    /// A host is registered.
    [[nodiscard]] bool hosted() const { return hosted_; }

    /// The bus has answered for the first time.
    [[nodiscard]] bool known() const { return known_; }

    /// Announces the item that bears that name on the bus; `done` is told whether it was taken.
    void announce(const QString& service, std::function<void(bool)> done);

private slots: // NOLINT(readability-redundant-access-specifiers)
    void look();

private:
    void answer(bool hosted);

    QDBusConnection bus_;
    std::function<void()> changed_;
    std::unique_ptr<QDBusServiceWatcher> watcher_;
    bool hosted_ = false;
    bool known_ = false;
};

} // namespace tovik::tray
