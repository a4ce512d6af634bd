// SPDX-License-Identifier: GPL-3.0-or-later
#include "tray/TitleNotice.h"

#include "BusRig.h"

#include <gmock/gmock.h>

namespace tovik::tray {
namespace {

using testing::ElementsAre;

/// A desktop that shows notifications, when a test lets it answer.
class TitleNoticeTest : public BusRig {
protected:
    struct Shown {
        std::string words;
        unsigned int replaced = 0;
        int milliseconds = 0;

        bool operator==(const Shown&) const = default;
    };

    void desktop() {
        become(QStringLiteral("org.freedesktop.Notifications"),
               QStringLiteral("/org/freedesktop/Notifications"), object_);
    }

    [[nodiscard]] bool comes(std::size_t count) {
        return QTest::qWaitFor([&] { return shown_.size() >= count; }, kAnswerMs);
    }

    std::vector<Shown> shown_;
    bool refuses_ = false;
    std::vector<QDBusMessage> unanswered_;
    bool silent_ = false;
    SessionBus bus_;
    TitleNotice notice_{bus_};

    [[nodiscard]] QDBusMessage answerTo(const QDBusMessage& call) const {
        return refuses_ ? call.createErrorReply(QDBusError::Failed, QStringLiteral("no"))
                        : call.createReply(static_cast<unsigned int>(40 + shown_.size()));
    }

private:
    Answering object_{[this](const QDBusMessage& call) {
        EXPECT_EQ(call.member(), QStringLiteral("Notify"));
        const QVariantList words = call.arguments();
        EXPECT_EQ(call.signature(), QStringLiteral("susssasa{sv}i"));
        shown_.push_back({words.value(3).toString().toStdString(), words.value(1).toUInt(),
                          words.value(7).toInt()});
        if (silent_) {
            unanswered_.push_back(call);
            return QDBusMessage();
        }
        return answerTo(call);
    }};
};

TEST_F(TitleNoticeTest, tellsTheWordsForTwoSeconds) {
    desktop();
    notice_.show(QStringLiteral("a song (03:20)"));
    ASSERT_TRUE(comes(1));
    EXPECT_EQ(shown_.front(), (Shown{"a song (03:20)", 0, 2000}));
}

TEST_F(TitleNoticeTest, oneTakesThePlaceOfTheOneBefore) {
    desktop();
    notice_.show(QStringLiteral("one"));
    ASSERT_TRUE(comes(1));
    notice_.show(QStringLiteral("two"));
    ASSERT_TRUE(comes(2));
    EXPECT_EQ(shown_.back(), (Shown{"two", 41, 2000}));
}

TEST_F(TitleNoticeTest, beforeTheBusIsJoinedOnlyTheLastIsKept) {
    desktop();
    for (const char* const words : {"one", "two", "three"}) {
        notice_.show(QString::fromLatin1(words));
    }
    ASSERT_TRUE(comes(1));
    notice_.show(QStringLiteral("four"));
    ASSERT_TRUE(comes(2));
    EXPECT_THAT(shown_, ElementsAre(Shown{"three", 0, 2000}, Shown{"four", 41, 2000}));
}

TEST_F(TitleNoticeTest, oneAtATimeIsAsked) {
    desktop();
    silent_ = true;
    notice_.show(QStringLiteral("one"));
    ASSERT_TRUE(comes(1));
    notice_.show(QStringLiteral("two"));
    notice_.show(QStringLiteral("three"));
    QTest::qWait(50);
    ASSERT_EQ(shown_.size(), 1U);
    silent_ = false;
    others().send(answerTo(unanswered_.front()));
    ASSERT_TRUE(comes(2));
    EXPECT_EQ(shown_.back(), (Shown{"three", 41, 2000}));
}

TEST_F(TitleNoticeTest, aDesktopThatRefusesIsAskedAgainTheNextTime) {
    desktop();
    refuses_ = true;
    notice_.show(QStringLiteral("one"));
    ASSERT_TRUE(comes(1));
    notice_.show(QStringLiteral("two"));
    ASSERT_TRUE(comes(2));
    EXPECT_EQ(shown_.back(), (Shown{"two", 0, 2000}));
}

} // namespace
} // namespace tovik::tray
