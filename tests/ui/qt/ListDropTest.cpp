// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are dropped on a list, the words of an empty one, and the picture behind the rows.
#include "ListRig.h"
#include "support/ui/Contrast.h"
#include "ui/qt/ListAccess.h"

#include <QDropEvent>
#include <QMimeData>

namespace tovik::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;

class ListDropTest : public test::ListRig {
protected:
    std::vector<std::string> paths_;
    std::optional<std::size_t> row_;
    int drops_ = 0;
    QMimeData files_;
    QMimeData words_;

    void SetUp() override {
        test::ListRig::SetUp();
        files_.setData(QStringLiteral("text/uri-list"), "file:///a.mp3\r\nfile:///b.mp3\r\n");
        words_.setText(QStringLiteral("a.mp3"));
        list_.takeFiles([this](std::span<const std::string> paths, std::optional<std::size_t> row) {
            paths_.assign(paths.begin(), paths.end());
            row_ = row;
            ++drops_;
        });
    }

    template <typename Event>
    bool send(Event&& event) {
        event.ignore();
        QApplication::sendEvent(list_.viewport(), &event);
        return event.isAccepted();
    }

    bool enter(const QMimeData& data) {
        return send(QDragEnterEvent(middleOf(2), Qt::CopyAction | Qt::MoveAction, &data,
                                    Qt::LeftButton, {}));
    }

    bool moves(const QMimeData& data) {
        return send(QDragMoveEvent(middleOf(3), Qt::CopyAction | Qt::MoveAction, &data,
                                   Qt::LeftButton, {}));
    }

    bool drop(const QMimeData& data, QPoint place) {
        return send(QDropEvent(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {}));
    }
};

TEST_F(ListDropTest, droppedFilesAreHandedOverWithTheirRowOnceTheDropIsOver) {
    scrollTo(10);
    EXPECT_TRUE(enter(files_));
    EXPECT_TRUE(moves(files_));
    EXPECT_TRUE(drop(files_, middleOf(3)));
    EXPECT_EQ(drops_, 0) << "who drags is not kept waiting";
    test::WindowRig::settle();
    EXPECT_EQ(drops_, 1);
    EXPECT_THAT(paths_, ElementsAre("/a.mp3", "/b.mp3"));
    EXPECT_THAT(row_, Optional(13U));
}

TEST_F(ListDropTest, belowTheRowsAndInAnEmptyListTooAndOnNoRowThen) {
    rows_.count = 2;
    list_.refresh();
    enter(files_);
    drop(files_, middleOf(5));
    test::WindowRig::settle();
    EXPECT_EQ(drops_, 1);
    EXPECT_EQ(row_, std::nullopt);
    rows_.count = 0;
    list_.refresh();
    enter(files_);
    drop(files_, middleOf(0));
    test::WindowRig::settle();
    EXPECT_EQ(drops_, 2);
    EXPECT_EQ(row_, std::nullopt);
}

TEST_F(ListDropTest, whatIsNoFileIsRefused) {
    EXPECT_FALSE(enter(words_));
    EXPECT_FALSE(moves(words_));
}

TEST_F(ListDropTest, aListThatTakesNoFilesRefusesThem) {
    ListWidget other(rows_, rows_, dispatcher_);
    EXPECT_FALSE(other.viewport()->acceptDrops());
    EXPECT_TRUE(list_.viewport()->acceptDrops());
    list_.takeFiles({});
    EXPECT_FALSE(list_.viewport()->acceptDrops());
}

TEST_F(ListDropTest, aFrameShowsWhereTheFilesWouldGo) {
    const QColor ink = list_.palette().color(QPalette::Text);
    const auto corner = [this] { return list_.grab().toImage().pixelColor(0, 0); };
    enter(files_);
    EXPECT_EQ(corner(), ink);
    QDragLeaveEvent leave;
    QApplication::sendEvent(list_.viewport(), &leave);
    EXPECT_NE(corner(), ink);
    enter(files_);
    drop(files_, middleOf(0));
    EXPECT_NE(corner(), ink);
}

/// Whether anything but the ground is seen in the view.
bool hasInk(const QImage& image, QRgb ground) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if ((image.pixel(x, y) & 0xFFFFFFU) != (ground & 0xFFFFFFU)) {
                return true;
            }
        }
    }
    return false;
}

TEST_F(ListDropTest, anEmptyListSaysWhatToDoWithIt) {
    const QRgb ground = list_.palette().color(QPalette::Base).rgb();
    list_.setHint(QStringLiteral("Drop files here"));
    EXPECT_TRUE(painted().isEmpty() || rows_.count > 0);
    rows_.count = 0;
    list_.rowsRemoved(0);
    const QRegion all = painted();
    EXPECT_EQ(all, fromRowOfView(0));
    EXPECT_TRUE(hasInk(list_.grab().toImage(), ground));
    EXPECT_EQ(ListAccess(list_).text(QAccessible::Description), QStringLiteral("Drop files here"));
    list_.setHint({});
    EXPECT_FALSE(hasInk(list_.grab().toImage(), ground));
    rows_.count = 1;
    list_.setHint(QStringLiteral("Drop files here"));
    EXPECT_EQ(ListAccess(list_).text(QAccessible::Description), QString());
}

TEST_F(ListDropTest, theFirstRowTakesThePlaceOfTheHint) {
    rows_.count = 0;
    list_.rowsRemoved(0);
    static_cast<void>(painted());
    rows_.count = 1;
    list_.rowsInserted(0);
    QTest::qWait(80);
    EXPECT_EQ(painted(), fromRowOfView(0));
}

TEST_F(ListDropTest, thePictureLiesWhereItsModeSays) {
    using Mode = ListBackground;
    const QSize picture(20, 10);
    const QSize view(100, 60);
    const auto place = [&](const Mode& mode) { return backgroundPlace(mode, picture, view, 30); };
    constexpr bool on = true;
    EXPECT_EQ(place({false, on, on}), QRect(0, 0, 100, 60));
    EXPECT_EQ(place({false, on, false}), QRect(0, -30, 100, 60));
    EXPECT_EQ(place({on, false, on}), QRect(40, 25, 20, 10));
    EXPECT_EQ(place({on, false, false}), QRect(40, -5, 20, 10));
    EXPECT_EQ(place({false, false, on}), QRect(0, 0, 20, 10));
    EXPECT_EQ(place({false, false, false}), QRect(0, -30, 20, 10));
    EXPECT_EQ(place({on, on, on}), QRect(0, 0, 100, 60)) << "stretching wins";
}

TEST_F(ListDropTest, thePictureIsSeenBehindTheRowsAndScrollsOrStays) {
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(Qt::red);
    const int pitch = list_.rowHeight();
    const auto at = [&](int y) { return list_.grab().toImage().pixelColor(180, y); };
    list_.BackGroundPicture(picture.scaled(200, pitch), {.LockBackgroundPicture = true});
    EXPECT_EQ(at(3), QColor(Qt::red));
    EXPECT_NE(at(pitch + 3), QColor(Qt::red));
    scrollTo(4);
    EXPECT_EQ(at(3), QColor(Qt::red));
    list_.BackGroundPicture(picture.scaled(200, 6 * pitch), {});
    EXPECT_EQ(at(2 * pitch - 2), QColor(Qt::red));
    EXPECT_NE(at(2 * pitch + 2), QColor(Qt::red)) << "it went up with the rows";
    rows_.count = 0;
    list_.rowsRemoved(0);
    EXPECT_NE(at(3), QColor(Qt::red)) << "an empty list has none";
}

} // namespace
} // namespace tovik::ui
