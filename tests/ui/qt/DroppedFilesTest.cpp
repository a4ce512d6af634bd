// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/DroppedFiles.h"

#include <gmock/gmock.h>

#include <QSysInfo>
#include <QUrl>

namespace tovik::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> pathsOf(const QByteArray& list) {
    QMimeData data;
    data.setData(QStringLiteral("text/uri-list"), list);
    EXPECT_EQ(offersFiles(data), !droppedPaths(data).empty());
    return droppedPaths(data);
}

TEST(DroppedFiles, addressesBecomePathsInTheirOrder) {
    EXPECT_THAT(pathsOf("file:///b.mp3\r\nfile:///music/a%20b%23c%25.ogg\r\n"),
                ElementsAre("/b.mp3", "/music/a b#c%.ogg"));
}

TEST(DroppedFiles, bytesThatAreNoTextStayAsTheyAre) {
    EXPECT_THAT(pathsOf("file:///caf%C3%A9.mp3\r\nfile:///caf%E9.mp3\r\n"),
                ElementsAre("/caf\xC3\xA9.mp3", "/caf\xE9.mp3"));
}

TEST(DroppedFiles, onlyFilesOfThisMachineAndAddressesOfTheWebCount) {
    const QByteArray own = QSysInfo::machineHostName().toLower().toLatin1();
    EXPECT_THAT(pathsOf("http://host/a.mp3?x=%20\r\nftp://host/a.mp3\r\nfile://elsewhere/"
                        "a.mp3\r\nfile://localhost/b.mp3\r\n"
                        "file://" +
                        own + "/c.mp3\r\nnonsense\r\n"),
                ElementsAre("http://host/a.mp3?x=%20", "/b.mp3", "/c.mp3"));
}

TEST(DroppedFiles, otherDataOffersNone) {
    QMimeData text;
    text.setText(QStringLiteral("/a.mp3"));
    EXPECT_FALSE(offersFiles(text));
    EXPECT_THAT(droppedPaths(text), IsEmpty());
    EXPECT_THAT(pathsOf(""), IsEmpty());
}

TEST(DroppedFiles, aDropOfThousandsKeepsThemAll) {
    QByteArray list;
    for (int file = 0; file < 20000; ++file) {
        list += "file:///tree/" + QByteArray::number(file) + ".mp3\r\n";
    }
    const std::vector<std::string> paths = pathsOf(list);
    ASSERT_EQ(paths.size(), 20000U);
    EXPECT_EQ(paths.back(), "/tree/19999.mp3");
}

} // namespace
} // namespace tovik::ui
