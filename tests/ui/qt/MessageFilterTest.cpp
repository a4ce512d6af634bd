// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/MessageFilter.h"

#include "ui/cSuperClass.h"

#include <gmock/gmock.h>

#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>

namespace tovik::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Listener final : public QWidget {
public:
    std::vector<QEvent::Type> got;

protected:
    void keyPressEvent(QKeyEvent* event) override { note(*event); }

    void wheelEvent(QWheelEvent* event) override { note(*event); }

    void mousePressEvent(QMouseEvent* event) override { note(*event); }

private:
    void note(QEvent& event) {
        got.push_back(event.type());
        event.accept();
    }
};

class NotingOwner final : public ISuperClass {
public:
    void After(MessageResult& /*result*/, MessageWindow& /*window*/,
               const WindowMessage& message) override {
        after.push_back(message.number);
    }

    void Before(bool& handled, MessageResult& /*result*/, MessageWindow& /*window*/,
                const WindowMessage& message) override {
        before.push_back(message);
        handled = handles;
    }

    bool handles = false;
    std::vector<WindowMessage> before;
    std::vector<std::uint32_t> after;
};

struct Messages : testing::Test {
    void turnWheel(int angle) {
        QWheelEvent event(QPointF(5, 7), widget.mapToGlobal(QPointF(5, 7)), {}, QPoint(0, angle),
                          Qt::LeftButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&widget, &event);
    }

    host::Dispatcher dispatcher;
    Listener widget;
    MessageFilter& filter = *new MessageFilter(widget, dispatcher);
    NotingOwner owner;
    cSuperClass superClass;
};

TEST_F(Messages, theWheelPassesTheOwnerFirst) {
    superClass.AddMsg(messages::kMouseWheel);
    superClass.SubClass(filter.window(), owner, false);
    turnWheel(-120);
    ASSERT_EQ(owner.before.size(), 1U);
    const auto held = static_cast<std::uint32_t>(owner.before[0].wParam);
    EXPECT_EQ(static_cast<std::int16_t>(held >> 16), -120);
    EXPECT_EQ(held & 0xFFFFU, 9U) << "the left button and Ctrl";
    EXPECT_EQ(owner.before[0].lParam, 7 << 16 | 5);
    EXPECT_THAT(widget.got, ElementsAre(QEvent::Wheel));
    EXPECT_THAT(owner.after, ElementsAre(messages::kMouseWheel));
}

TEST_F(Messages, whatTheOwnerHandlesNeverReachesTheWidget) {
    superClass.AddMsg(messages::kKeyDown);
    superClass.SubClass(filter.window(), owner, false);
    owner.handles = true;
    QTest::keyClick(&widget, Qt::Key_F5, Qt::ShiftModifier);
    EXPECT_THAT(widget.got, IsEmpty());
    ASSERT_FALSE(owner.before.empty());
    EXPECT_EQ(owner.before.back().wParam, 0x74);
    EXPECT_EQ(owner.before.back().lParam, 1);
    turnWheel(120);
    EXPECT_THAT(widget.got, ElementsAre(QEvent::Wheel)) << "another message";
}

TEST_F(Messages, withoutAnOwnerEventsGoTheirWay) {
    turnWheel(120);
    QTest::mouseClick(&widget, Qt::LeftButton);
    EXPECT_THAT(widget.got, ElementsAre(QEvent::Wheel, QEvent::MouseButtonPress));
}

TEST_F(Messages, allMessagesModeSeesWhatHasANumber) {
    superClass.SubClass(filter.window(), owner, true);
    QTest::mousePress(&widget, Qt::RightButton, {}, QPoint(3, 4));
    QTest::mouseRelease(&widget, Qt::RightButton, {}, QPoint(3, 4));
    EXPECT_THAT(owner.after, testing::IsSupersetOf({messages::kRightDown, messages::kRightUp}));
    EXPECT_THAT(widget.got, ElementsAre(QEvent::MouseButtonPress));
}

TEST(MessageOf, eventsWithoutANumberHaveNone) {
    EXPECT_EQ(messageOf(QEvent(QEvent::Polish)).number, 0U);
    EXPECT_EQ(messageOf(QEvent(QEvent::Close)).number, messages::kClose);
    const QMouseEvent side(QEvent::MouseButtonPress, QPointF(-1, -2), QPointF(), Qt::BackButton, {},
                           {});
    EXPECT_EQ(messageOf(side).number, 0U);
    const QMouseEvent twice(QEvent::MouseButtonDblClick, QPointF(-1, -2), QPointF(), Qt::LeftButton,
                            Qt::LeftButton, {});
    EXPECT_EQ(messageOf(twice).number, messages::kLeftDouble);
    const auto place = static_cast<std::uint32_t>(messageOf(twice).lParam);
    EXPECT_EQ(static_cast<std::int16_t>(place & 0xFFFFU), -1);
    EXPECT_EQ(static_cast<std::int16_t>(place >> 16), -2);
}

} // namespace
} // namespace tovik::ui
