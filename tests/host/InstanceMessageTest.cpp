// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/InstanceMessage.h"

#include <gtest/gtest.h>

namespace tovik::host {
namespace {

using Kind = InstanceMessageKind;
using State = InstanceRecord::State;
using namespace std::string_literals;

TEST(InstanceMessage, aRecordIsTwoNumbersAndABufferOf255Bytes) {
    const std::string record = recordOf(handOver("/music/a.mp3"));
    ASSERT_EQ(record.size(), 8U + 255U);
    EXPECT_EQ(record.substr(0, 8), "\x03\0\0\0\x0D\0\0\0"s);
    EXPECT_EQ(record.substr(8, 12), "/music/a.mp3");
    EXPECT_EQ(record.substr(20), std::string(243, '\0'));
}

TEST(InstanceMessage, whatDoesNotFitTheBufferTakesTheOtherForm) {
    EXPECT_EQ(handOver(std::string(254, 'a')).kind, Kind::file);
    EXPECT_EQ(handOver(std::string(255, 'a')).kind, Kind::longFile);
    const std::string record = recordOf(handOver(std::string(5000, 'a')));
    EXPECT_EQ(record.size(), 8U + 5000U);
    EXPECT_EQ(record.substr(4, 4), "\x88\x13\0\0"s);
}

class Travelling : public testing::TestWithParam<InstanceMessage> {};

TEST_P(Travelling, arrivesAsItWasHoweverItIsCut) {
    const std::string record = recordOf(GetParam());
    for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, record.size()}) {
        InstanceRecord reader;
        for (std::size_t at = 0; at < record.size(); at += piece) {
            EXPECT_EQ(reader.take(record.substr(at, piece)),
                      at + piece < record.size() ? State::unfinished : State::whole);
        }
        EXPECT_EQ(reader.message(), GetParam());
        EXPECT_EQ(reader.take("more"), State::whole);
        EXPECT_EQ(reader.message(), GetParam());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Messages, Travelling,
    testing::Values(handOver("/music/a.mp3"), handOver(""), handOver(std::string(254, 'x')),
                    handOver(std::string(255, 'x')), handOver(std::string(kLongestText, 'x')),
                    InstanceMessage{Kind::commandLine, "/ADD \"/a\" \"/b\""},
                    InstanceMessage{Kind::commandLine, std::string(kLongestText + 1, 'x')},
                    InstanceMessage{Kind::toTheFront, ""},
                    InstanceMessage{Kind::toTheFront, "token"}));

TEST(InstanceMessage, theTextEndsAtItsLengthAndAtAZero) {
    std::string record = recordOf(handOver("/music/a.mp3"));
    record[4] = 4;
    InstanceRecord shorter;
    EXPECT_EQ(shorter.take(record), State::whole);
    EXPECT_EQ(shorter.message().text, "/mus");
    record[4] = 100;
    InstanceRecord zero;
    EXPECT_EQ(zero.take(record), State::whole);
    EXPECT_EQ(zero.message().text, "/music/a.mp3");
}

TEST(InstanceMessage, aLengthThatCannotBeIsBroken) {
    InstanceRecord buffer;
    EXPECT_EQ(buffer.take("\x03\0\0\0\0\x01\0\0"s), State::broken);
    InstanceRecord text;
    EXPECT_EQ(text.take("LONG\xFF\xFF\xFF\xFF"s), State::broken);
    EXPECT_EQ(text.take(recordOf(handOver("/a"))), State::broken);
}

TEST(InstanceMessage, anotherKindIsBroken) {
    InstanceRecord reader;
    EXPECT_EQ(reader.take("\x04\0\0\0\x01\0\0"s), State::unfinished);
    EXPECT_EQ(reader.take("\0"s), State::broken);
}

} // namespace
} // namespace tovik::host
