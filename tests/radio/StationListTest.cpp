// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StationList.h"

#include "playlist/Lists.h"
#include "radio/StationFile.h"
#include "support/host/TestHost.h"
#include "support/host/Unprivileged.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::radio {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class StationListTest : public testing::Test {
protected:
    [[nodiscard]] bool load(std::string_view bytes) {
        return stations_.load(host_.folder.write("db/stations.dat", bytes));
    }

    test::TestHost host_;
    config::ErrHandler log_{host_.paths, host_.clock, host_.operatingSystem};
    config::Errors errors_{log_, host_.dialogs};
    playlist::stdSS list_;
    StationList stations_{list_, errors_};
    std::string path_ = host_.paths.of(host::DataItem::Stations);
};

TEST_F(StationListTest, theFileIsAsItHasAlwaysBeen) {
    host_.folder.write("db/stations.dat", "an older and much longer file, which is replaced");
    addStation(list_, "http://one.example/a?b=c", "One = first");
    addStation(list_, "", "");
    EXPECT_TRUE(stations_.WriteStationList(path_, 2));
    EXPECT_EQ(host_.folder.read("db/stations.dat"), "[stationlist]\r\n"
                                                    "Station1=http://one.example/a?b=c\r\n"
                                                    "Url1=One = first\r\n"
                                                    "Station2=\r\n"
                                                    "Url2=\r\n"
                                                    "\r\n"
                                                    "NumberOfEntries=2\r\n");
}

TEST_F(StationListTest, withoutStationsTheFileHoldsHeadAndCount) {
    host_.folder.write("db/x", "");
    EXPECT_TRUE(stations_.WriteStationList(path_, 0));
    EXPECT_EQ(host_.folder.read("db/stations.dat"), "[stationlist]\r\n\r\nNumberOfEntries=0\r\n");
}

TEST_F(StationListTest, theCountThatIsWrittenIsTheGivenOne) {
    addStation(list_, "a", "A");
    addStation(list_, "b", "B");
    host_.folder.write("db/x", "");
    EXPECT_TRUE(stations_.WriteStationList(path_, 1));
    EXPECT_EQ(host_.folder.read("db/stations.dat"),
              "[stationlist]\r\nStation1=a\r\nUrl1=A\r\n\r\nNumberOfEntries=1\r\n");
}

TEST_F(StationListTest, whatIsWrittenIsReadAgain) {
    addStation(list_, "http://one.example/a?b=c", "One = first");
    addStation(list_, "", "");
    addStation(list_, "http://\xFF", "\xC4\xD6 three");
    addStation(list_, "line\r\nend", "zero");
    host_.folder.write("db/x", "");
    stations_.WriteStationList(path_, 4);
    playlist::stdSS again;
    EXPECT_TRUE(StationList(again, errors_).load(path_));
    EXPECT_THAT(playlist::rowsOf(again),
                ElementsAre("http://one.example/a?b=c|http://one.example/a?b=c|One = first|IRT|0",
                            "|||IRT|0", "http://\xFF|http://\xFF|\xC4\xD6 three|IRT|0",
                            "line  end|line  end|zero|IRT|0"));
}

TEST_F(StationListTest, aMissingFileIsAnEmptyListAndNoWord) {
    EXPECT_TRUE(stations_.load(path_));
    EXPECT_EQ(list_.ListCount(), 0);
    EXPECT_FALSE(std::filesystem::exists(host_.folder / "db/err.log"));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
    EXPECT_EQ(StationList::ReadStationList("stationlist", "NumberOfEntries", path_), "");
}

TEST_F(StationListTest, aPairThatIsMissingIsAnEmptyRow) {
    EXPECT_TRUE(load("[stationlist]\r\nStation1=u\r\nUrl1=n\r\n\r\nNumberOfEntries=2\r\n"));
    EXPECT_THAT(playlist::rowsOf(list_), ElementsAre("u|u|n|IRT|0", "|||IRT|0"));
}

TEST_F(StationListTest, onlyAsManyAsTheCountSays) {
    EXPECT_TRUE(load("[stationlist]\r\nStation1=u\r\nUrl1=n\r\nStation2=v\r\nNumberOfEntries=1"));
    EXPECT_EQ(list_.ListCount(), 1);
    for (const char* const none :
         {"", "NumberOfEntries=0", "NumberOfEntries=-3", "NumberOfEntries="}) {
        EXPECT_TRUE(load("[stationlist]\nStation1=u\nUrl1=n\n" + std::string(none)));
        EXPECT_EQ(list_.ListCount(), 1) << none;
    }
}

TEST_F(StationListTest, aCountThatIsNoneIsLoggedAndNothingIsRead) {
    for (const char* const bad : {"two", "1x", "32768", "99999999999", "1.5"}) {
        EXPECT_FALSE(load("[stationlist]\nStation1=u\nUrl1=n\nNumberOfEntries=" + std::string(bad)))
            << bad;
    }
    EXPECT_EQ(list_.ListCount(), 0);
    EXPECT_THAT(host_.folder.read("db/err.log"), HasSubstr("AddStation,ReadStationList"));
    EXPECT_TRUE(load("[stationlist]\nNumberOfEntries=32767"));
    EXPECT_EQ(list_.ListCount(), 32767);
}

TEST_F(StationListTest, longValuesAreCutToTheWidthOfTheirBuffer) {
    const std::string address = "http://" + std::string(293, 'a');
    addStation(list_, address, "n");
    EXPECT_EQ(list_.text(1, playlist::RowText::ItemData).size(), 300U) << "whole in this run";
    host_.folder.write("db/x", "");
    stations_.WriteStationList(path_, 1);
    EXPECT_EQ(StationList::ReadStationList("stationlist", "Station1", path_),
              address.substr(0, 254));
    playlist::stdSS again;
    EXPECT_TRUE(StationList(again, errors_).load(path_));
    EXPECT_EQ(again.text(1, playlist::RowText::FileName), address.substr(0, 254));
}

TEST_F(StationListTest, longValuesMayBeReadWhole) {
    const std::string address = "http://" + std::string(3000, 'a');
    addStation(list_, address, std::string(300, 'n'));
    host_.folder.write("db/x", "");
    stations_.WriteStationList(path_, 1);
    playlist::stdSS again;
    EXPECT_TRUE(StationList(again, errors_).load(path_, true));
    EXPECT_EQ(again.text(1, playlist::RowText::FileName), address);
    EXPECT_EQ(again.text(1, playlist::RowText::Title), std::string(300, 'n'));
}

TEST_F(StationListTest, keysAreFoundInAnyCaseAndTheFirstCounts) {
    EXPECT_TRUE(load("[other]\nStation1=wrong\n[StationList]\nSTATION1=u\nstation1=v\n"
                     "url1=\"n\"\nnumberofentries= 1 \n[stationlist]\nStation1=late\n"));
    EXPECT_THAT(playlist::rowsOf(list_), ElementsAre("u|u|n|IRT|0"));
}

TEST_F(StationListTest, aFileThatCannotBeReadOrWrittenIsLogged) {
    std::filesystem::create_directories(path_); // a folder is in its place
    EXPECT_FALSE(stations_.load(path_));
    EXPECT_TRUE(stations_.WriteStationList(path_, 0));
    const std::string log = host_.folder.read("db/err.log");
    EXPECT_THAT(log, HasSubstr("AddStation,ReadStationList"));
    EXPECT_THAT(log, HasSubstr("AddStation,WriteStationList"));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

} // namespace
} // namespace tovik::radio
