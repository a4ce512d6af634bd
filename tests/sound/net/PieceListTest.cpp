// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/PieceList.h"

#include "sound/net/StationLists.h"

#include <gtest/gtest.h>

namespace tovik::sound {
namespace {

using Addresses = std::vector<std::string>;
constexpr const char* kPieces = "#EXTM3U\n#EXT-X-TARGETDURATION:6\n#EXT-X-MEDIA-SEQUENCE:41\n"
                                "#EXTINF:6.0,\na.ts\n#EXTINF:5.5,A title\r\nhttp://b/b.ts\n";

TEST(PiecesOfAList, AreNumberedFromItsFirst) {
    const PieceList list = piecesOfList(kPieces);
    EXPECT_EQ(list.pieces,
              (std::vector<Piece>{{.sound = {.reference = "a.ts"}, .number = 41},
                                  {.sound = {.reference = "http://b/b.ts"}, .number = 42}}));
    EXPECT_EQ(list.target, std::chrono::seconds(6));
    EXPECT_FALSE(list.whole);
    EXPECT_FALSE(list.locked);
}

TEST(PiecesOfAList, AreThoseThatAreAnnounced) {
    EXPECT_TRUE(piecesOfList("#EXTM3U\n#EXT-X-VERSION:3\na.ts\nb.ts\n").pieces.empty());
    EXPECT_EQ(piecesOfList("#EXTINF:1,\n# remark\n\n #EXT-X-UNKNOWN:1\n a.ts \nb.ts").pieces,
              (std::vector<Piece>{{.sound = {.reference = "a.ts"}}}));
    EXPECT_TRUE(piecesOfList("").pieces.empty());
}

TEST(PiecesOfAList, AreAllWhenItSaysSo) {
    EXPECT_TRUE(piecesOfList(std::string(kPieces) + "#EXT-X-ENDLIST\n").whole);
    EXPECT_TRUE(piecesOfList("#EXT-X-PLAYLIST-TYPE:VOD\n").whole);
    EXPECT_FALSE(piecesOfList("#EXT-X-PLAYLIST-TYPE:EVENT\n").whole);
}

TEST(PiecesOfAList, AreLockedByAKey) {
    EXPECT_TRUE(piecesOfList("#EXT-X-KEY:METHOD=AES-128,URI=\"k\"\n").locked);
    EXPECT_TRUE(piecesOfList("#EXT-X-KEY:\n").locked);
    EXPECT_FALSE(piecesOfList("#EXT-X-KEY:METHOD=NONE\n").locked);
    EXPECT_TRUE(piecesOfList("#EXT-X-KEY:METHOD=SAMPLE-AES\n#EXT-X-KEY:METHOD=NONE\n").locked);
}

TEST(PiecesOfAList, MayBePartsOfFilesAndNeedHeads) {
    const PieceList list = piecesOfList("#EXT-X-MAP:URI=\"h,1.mp4\",BYTERANGE=\"700@3\"\n"
                                        "#EXTINF:1,\n#EXT-X-BYTERANGE:10@100\na.mp4\n"
                                        "#EXTINF:1,\n#EXT-X-BYTERANGE:20\na.mp4\n"
                                        "#EXTINF:1,\n#EXT-X-BYTERANGE:30\nb.mp4\n"
                                        "#EXT-X-MAP:URI=h2\n#EXT-X-GAP\n#EXTINF:1,\nc.mp4\n");
    ASSERT_EQ(list.pieces.size(), 4U);
    EXPECT_EQ(list.heads, (std::vector<Stretch>{{"h,1.mp4", 3, 700}, {"h2", 0, {}}}));
    EXPECT_EQ(list.pieces[0].sound, (Stretch{"a.mp4", 100, 10}));
    EXPECT_EQ(list.pieces[1].sound, (Stretch{"a.mp4", 110, 20})) << "behind the one before";
    EXPECT_EQ(list.pieces[2].sound, (Stretch{"b.mp4", 0, 30}));
    EXPECT_EQ(list.pieces[2].head, 0U);
    EXPECT_EQ(list.pieces[3],
              (Piece{.sound = {.reference = "c.mp4"}, .number = 3, .head = 1, .missing = true}));
}

TEST(PiecesOfAList, HaveFiguresThatFit) {
    const PieceList list = piecesOfList(
        "#EXT-X-TARGETDURATION:18446744073709551615\n#EXT-X-MEDIA-SEQUENCE:18446744073709551615\n"
        "#EXTINF:1,\n#EXT-X-BYTERANGE:18446744073709551615@18446744073709551615\na\n"
        "#EXTINF:1,\n#EXT-X-BYTERANGE:9\na\n#EXTINF:1,\n#EXT-X-BYTERANGE:-4@x\nb\n");
    ASSERT_EQ(list.pieces.size(), 3U);
    EXPECT_EQ(list.target, std::chrono::hours(1));
    EXPECT_EQ(list.pieces[0].number, 1ULL << 62U);
    EXPECT_EQ(list.pieces[0].sound.bytes, 0U);
    EXPECT_EQ(list.pieces[1].sound.bytes, 0U);
    EXPECT_EQ(list.pieces[2].sound, (Stretch{"b", 0, 0}));
}

TEST(PiecesOfAList, ThatIsTooLongAreThoseOfItsBeginning) {
    std::string text = "#EXTM3U\n";
    while (text.size() < 2 * kMostListBytes) {
        text += "#EXTINF:6,\n/a/piece/with/a/name.ts\n";
    }
    const PieceList list = piecesOfList(text);
    EXPECT_TRUE(list.whole);
    EXPECT_EQ(list.pieces.size(), (kMostListBytes - 8) / 35);
    EXPECT_EQ(list.pieces.back().sound.reference, "/a/piece/with/a/name.ts") << "none is cut";
    EXPECT_TRUE(piecesOfList(std::string(kMostListBytes, 'x')).pieces.empty());
}

TEST(FirstToPlay, IsTheThirdFromTheEndWhileThereAreMoreToCome) {
    std::string text = "#EXT-X-MEDIA-SEQUENCE:7\n";
    EXPECT_EQ(firstToPlay(piecesOfList(text)), 0U);
    for (const std::uint64_t first : {7U, 7U, 7U, 8U, 9U}) {
        text += "#EXTINF:1,\na\n";
        EXPECT_EQ(firstToPlay(piecesOfList(text)), first);
        EXPECT_EQ(firstToPlay(piecesOfList(text + "#EXT-X-ENDLIST")), 7U);
    }
}

TEST(FormsOfAList, ComeInTheOrderInWhichTheyAreTried) {
    const std::string text =
        "#EXTM3U\n#EXT-X-STREAM-INF:BANDWIDTH=900000,CODECS=\"avc1.4d,mp4a.40.2\",AUDIO="
        "\"a\"\nhigh\n"
        "#EXT-X-STREAM-INF:CODECS=\"mp4a.40.2\",BANDWIDTH=64000\n\n#remark\n64\n"
        "#EXT-X-STREAM-INF:BANDWIDTH=96000\nuntold\n"
        "#EXT-X-STREAM-INF:BANDWIDTH=1500000,CODECS=\"fLaC\"\nlossless\n"
        "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"a\",NAME=\"x,y\",URI=\"second\"\n"
        "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"a\",DEFAULT=YES,URI=\"default\"\n"
        "#EXT-X-MEDIA:TYPE=AUDIO,GROUP-ID=\"a\",DEFAULT=YES\n"
        "#EXT-X-MEDIA:TYPE=SUBTITLES,URI=\"words\"\n"
        "#EXT-X-STREAM-INF:BANDWIDTH=256000,CODECS=\"mp4a.40.5\"\n256\n"
        "#EXT-X-STREAM-INF:BANDWIDTH=1\nfile:///etc/passwd\nno form\n";
    EXPECT_TRUE(isListOfForms(text));
    EXPECT_FALSE(isListOfForms(kPieces));
    EXPECT_EQ(formsOfList(text, "http://h/"),
              (Addresses{"http://h/256", "http://h/64", "http://h/lossless", "http://h/default",
                         "http://h/second", "http://h/untold", "http://h/high"}));
}

TEST(FormsOfAList, AreLimited) {
    std::string text;
    while (text.size() < kMostListBytes) {
        text += "#EXT-X-STREAM-INF:\na\n";
    }
    EXPECT_EQ(formsOfList(text, "http://h/").size(), kMostAddresses);
}

TEST(TypeOfAName, IsToldByItsEnd) {
    EXPECT_EQ(typeOfName("http://a/b.ts?x=.aac"), "video/mp2t");
    EXPECT_EQ(typeOfName("b.aac"), "audio/aac");
    EXPECT_EQ(typeOfName("b.mp3#.ts"), "audio/mpeg");
    EXPECT_EQ(typeOfName("b"), "");
}

} // namespace
} // namespace tovik::sound
