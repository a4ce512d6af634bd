// SPDX-License-Identifier: GPL-3.0-or-later
// The tray with a host on the bus that takes the icon, or does not.
#include "BusRig.h"
#include "tray/DesktopTray.h"

#include <optional>

namespace tovik::tray {
namespace {

class TrayOnBus : public BusRig {
protected:
    TrayOnBus() {
        tray_.setEvents({.callback = {}, .wheel = {}, .middleClick = {}, .takenChanged = [this] {
                             ++changes_;
                         }});
    }

    void host() {
        become(QStringLiteral("org.kde.StatusNotifierWatcher"),
               QStringLiteral("/StatusNotifierWatcher"), object_);
    }

    [[nodiscard]] static QString itemName() {
        return QStringLiteral("org.kde.StatusNotifierItem-%1-1")
            .arg(QCoreApplication::applicationPid());
    }

    /// The tray knows who has its icon.
    [[nodiscard]] bool settles() {
        return QTest::qWaitFor([this] { return !tray_.asking(); }, kAnswerMs);
    }

    [[nodiscard]] bool becomesTaken() {
        return QTest::qWaitFor([this] { return tray_.taken(); }, kAnswerMs);
    }

    /// The one that was announced last is left without an answer.
    [[nodiscard]] bool announced(std::size_t count) {
        return QTest::qWaitFor([&] { return items_.size() >= count; }, kAnswerMs);
    }

    void answer(bool takes) {
        others().send(takes ? waiting_->createReply()
                            : waiting_->createErrorReply(QDBusError::Failed, QStringLiteral("no")));
        waiting_.reset();
    }

    std::vector<std::string> items_; ///< that were announced
    bool slow_ = false;
    int changes_ = 0;
    SessionBus bus_;
    DesktopTray tray_{bus_, dispatcher_};

private:
    Answering object_{[this](const QDBusMessage& call) {
        if (call.member() != QStringLiteral("RegisterStatusNotifierItem")) {
            return call.createReply(QVariant::fromValue(QDBusVariant(true)));
        }
        items_.push_back(call.arguments().value(0).toString().toStdString());
        if (slow_) {
            waiting_ = call;
            return QDBusMessage();
        }
        return call.createReply();
    }};
    std::optional<QDBusMessage> waiting_;
};

TEST_F(TrayOnBus, anIconIsTakenWhenTheHostSaysSo) {
    host();
    slow_ = true;
    EXPECT_FALSE(tray_.asking());
    EXPECT_TRUE(tray_.notify(window::NotifyCommand::add, {}));
    EXPECT_TRUE(tray_.asking());
    ASSERT_TRUE(announced(1));
    EXPECT_EQ(items_.front(), itemName().toStdString());
    EXPECT_FALSE(tray_.taken());
    EXPECT_TRUE(tray_.asking());
    EXPECT_EQ(changes_, 0);
    answer(true);
    ASSERT_TRUE(becomesTaken());
    EXPECT_FALSE(tray_.asking());
    EXPECT_EQ(changes_, 1);
}

TEST_F(TrayOnBus, aHostThatRefusesHasNoIcon) {
    host();
    slow_ = true;
    tray_.notify(window::NotifyCommand::add, {});
    ASSERT_TRUE(announced(1));
    answer(false);
    ASSERT_TRUE(settles());
    EXPECT_FALSE(tray_.taken());
    EXPECT_EQ(changes_, 0);
}

TEST_F(TrayOnBus, aNameThatIsSomebodyElsesIsNotAnnounced) {
    host();
    ASSERT_TRUE(others().registerService(itemName()));
    tray_.notify(window::NotifyCommand::add, {});
    ASSERT_TRUE(settles());
    EXPECT_FALSE(tray_.taken());
    EXPECT_TRUE(items_.empty());
    EXPECT_EQ(changes_, 0);
}

TEST_F(TrayOnBus, anIconThatIsPutThereAnewIsNoChangeUnlessItIsRefused) {
    host();
    tray_.notify(window::NotifyCommand::add, {});
    ASSERT_TRUE(becomesTaken());
    EXPECT_EQ(changes_, 1);
    tray_.notify(window::NotifyCommand::remove, {});
    EXPECT_FALSE(tray_.taken());
    EXPECT_FALSE(tray_.asking());
    tray_.notify(window::NotifyCommand::add, {});
    EXPECT_TRUE(tray_.asking());
    ASSERT_TRUE(becomesTaken());
    EXPECT_EQ(items_.size(), 2U);
    EXPECT_EQ(changes_, 1);
    slow_ = true;
    tray_.notify(window::NotifyCommand::remove, {});
    tray_.notify(window::NotifyCommand::add, {});
    ASSERT_TRUE(announced(3));
    EXPECT_EQ(changes_, 1);
    answer(false);
    ASSERT_TRUE(settles());
    EXPECT_FALSE(tray_.taken());
    EXPECT_EQ(changes_, 2);
}

TEST_F(TrayOnBus, theNameGoesWithTheIcon) {
    host();
    tray_.notify(window::NotifyCommand::add, {});
    ASSERT_TRUE(becomesTaken());
    EXPECT_TRUE(others().interface()->isServiceRegistered(itemName()));
    tray_.notify(window::NotifyCommand::remove, {});
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return !others().interface()->isServiceRegistered(itemName()); }, kAnswerMs));
}

} // namespace
} // namespace tovik::tray
