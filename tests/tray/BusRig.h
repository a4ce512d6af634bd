// SPDX-License-Identifier: GPL-3.0-or-later
// A bus of a test's own, and those who answer on it.
#pragma once

#include "host/Dispatcher.h"
#include "tray/SessionBus.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <QCoreApplication>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <string>
#include <utility>
#include <vector>

namespace tovik::tray {

inline constexpr int kAnswerMs = 10'000;

/// Puts an environment variable back as it was.
class Variable {
public:
    Variable(const char* name, const QByteArray& value) : name_(name), before_(qgetenv(name)) {
        value.isEmpty() ? qunsetenv(name) : qputenv(name, value);
    }

    ~Variable() { before_.isEmpty() ? qunsetenv(name_) : qputenv(name_, before_); }

    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    QByteArray before_;
};

/// Where the bus of all tests listens, as long as one of them has it: the library reads the address
/// only once in a process.
inline QByteArray busAddress() {
    static const QTemporaryDir folder;
    return "unix:path=" + folder.filePath(QStringLiteral("bus")).toUtf8();
}

/// Answers every call of an object with what a test says.
class Answering final : public QDBusVirtualObject {
public:
    /// An answer without a service is none, and nothing is sent.
    using Answer = std::function<QDBusMessage(const QDBusMessage& call)>;

    explicit Answering(Answer answer) : answer_(std::move(answer)) {}

    [[nodiscard]] QString introspect(const QString& /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection& bus) override {
        if (const QDBusMessage answer = answer_(call);
            answer.type() != QDBusMessage::InvalidMessage) {
            bus.send(answer);
        }
        return true;
    }

private:
    Answer answer_;
};

class BusRig : public testing::Test {
protected:
    BusRig() {
        // A connection that failed would be given out again.
        QDBusConnection::disconnectFromBus(QStringLiteral("tovik"));
        daemon_.start(QStringLiteral("dbus-daemon"),
                      {QStringLiteral("--session"), QStringLiteral("--nofork"),
                       QStringLiteral("--print-address=1"),
                       QStringLiteral("--address=") + QString::fromUtf8(busAddress())});
        EXPECT_TRUE(daemon_.waitForReadyRead(kAnswerMs)) << "dbus-daemon is needed";
        other_ = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(
            QString::fromUtf8(busAddress()), QStringLiteral("others")));
    }

    ~BusRig() override {
        other_.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("others"));
        QDBusConnection::disconnectFromBus(QStringLiteral("tovik"));
        daemon_.kill();
        daemon_.waitForFinished();
    }

    BusRig(const BusRig&) = delete;
    BusRig& operator=(const BusRig&) = delete;

    /// Somebody else on the bus takes a name, and answers there.
    void become(const QString& name, const QString& path, Answering& object) {
        EXPECT_TRUE(other_->registerVirtualObject(path, &object));
        EXPECT_TRUE(other_->registerService(name));
    }

    [[nodiscard]] QDBusConnection& others() { return *other_; }

    host::Dispatcher dispatcher_;

private:
    QProcess daemon_;
    Variable variable_{"DBUS_SESSION_BUS_ADDRESS", busAddress()};
    std::unique_ptr<QDBusConnection> other_;
};

} // namespace tovik::tray
