// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/DiscFile.h"

#include "base/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tovik::cd {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

DiscForm readInto(DiscForm form, std::string_view bytes) {
    readDiscFile(bytes, form);
    return form;
}

DiscForm filledForm() {
    DiscForm form;
    form.Text1 = {"Album", "1999"};
    form.Text2 = {"Artist", "edited", "Rock"};
    form.List1 = {"One", "", "Čas"};
    return form;
}

TEST(DiscFile, isWrittenInThisOrder) {
    EXPECT_EQ(discFileText("05025602", filledForm()), "DISCID=05025602\r\n"
                                                      "DTITLE=Album\r\n"
                                                      "DARTIST=Artist\r\n"
                                                      "DYEAR=1999\r\n"
                                                      "DGENRE=Rock\r\n"
                                                      "TTITLE0=One\r\n"
                                                      "TTITLE1=\r\n"
                                                      "TTITLE2=Čas\r\n");
}

TEST(DiscFile, noTextBreaksALine) {
    DiscForm form;
    form.Text1[0] = std::string("a\r\nDYEAR=1\0z", 12);
    EXPECT_EQ(discFileText("1", form).substr(0, 32), "DISCID=1\r\nDTITLE=a  DYEAR=1 z\r\nD");
}

TEST(DiscFile, whatWasWrittenIsRead) {
    DiscForm before;
    before.List1 = {"older"};
    const DiscForm form = readInto(before, discFileText("05025602", filledForm()));
    EXPECT_EQ(form.Text1, filledForm().Text1);
    EXPECT_EQ(form.Text2[0], "Artist");
    EXPECT_EQ(form.Text2[1], "") << "the text of the selected track is not in the file";
    EXPECT_EQ(form.Text2[2], "Rock");
    EXPECT_EQ(form.List1, filledForm().List1);
}

TEST(DiscFile, keysCountInAnyCase) {
    const DiscForm form = readInto({}, "dTitle=A\nDArtist=b\nTtItLe7=c\n");
    EXPECT_EQ(form.Text1[0], "A");
    EXPECT_EQ(form.Text2[0], "b");
    EXPECT_THAT(form.List1, ElementsAre("c"));
}

TEST(DiscFile, aLineIsToldByAllThatStandsInIt) {
    const DiscForm form = readInto({}, "TTITLE0=Dyear\nTTITLE1=My dartist\nTTITLE2=dgenre\n"
                                       "DYEAR=dtitle\nDISCID=1\n\nnonsense\n");
    EXPECT_EQ(form.Text1[1], "Dyear");
    EXPECT_EQ(form.Text2[0], "My dartist");
    EXPECT_EQ(form.Text2[2], "dgenre");
    EXPECT_EQ(form.Text1[0], "dtitle");
    EXPECT_THAT(form.List1, IsEmpty());
}

// Of two signs in a line the one that is looked for first wins.
TEST(DiscFile, theSignsHaveAnOrder) {
    EXPECT_EQ(readInto({}, "dgenre dartist=x").Text2[0], "x");
    EXPECT_EQ(readInto({}, "dartist dyear=x").Text1[1], "x");
    EXPECT_EQ(readInto({}, "dyear dtitle=x").Text1[0], "x");
    EXPECT_EQ(readInto({}, "ttitle dgenre=x").Text2[2], "x");
}

TEST(DiscFile, aSecondEqualsSignEndsTheText) {
    EXPECT_THAT(readInto({}, "TTITLE0=E=mc2\n").List1, ElementsAre("E"));
}

TEST(DiscFile, anEmptyTextIsOne) {
    EXPECT_EQ(readInto(filledForm(), "DTITLE=\n").Text1[0], "");
    EXPECT_EQ(readInto(filledForm(), "DYEAR=\n").Text1[0], "Album");
}

TEST(DiscFile, aLineWithoutAnEqualsSignEndsTheReading) {
    DiscForm form;
    try {
        readDiscFile("DTITLE=a\nTTITLE0=b\nTTITLE1\nTTITLE2=c\nDYEAR=1\n", form);
        ADD_FAILURE() << "nothing was raised";
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.number(), 9);
    }
    EXPECT_EQ(form.Text1[0], "a");
    EXPECT_EQ(form.Text1[1], "");
    EXPECT_THAT(form.List1, ElementsAre("b"));
}

TEST(DiscFile, otherBytesAreThoseOfTheOldCodePage) {
    EXPECT_THAT(readInto({}, "TTITLE0=Caf\xE9\nTTITLE1=Čas\n").List1, ElementsAre("Café", "Čas"));
}

TEST(DiscFile, aNameThatIsNotThereIsEmpty) {
    EXPECT_EQ(trackName(filledForm(), 2), "Čas");
    EXPECT_EQ(trackName(filledForm(), 3), "");
}

TEST(DiscFile, linesMayBeToldByTheKeyInFront) {
    DiscForm form;
    form.List1 = {"older"};
    readDiscFile("DISCID=1\r\nDTITLE=a = b\nno line\ndartist = Ann\nDYEAR=1999\nDGENRE=\n"
                 "TTITLE0=Dyear\nTTITLE1=my dtitle=x\nOTHER=dgenre\nTTITLE2\n",
                 form, DiscKeys::inFront);
    EXPECT_THAT(form.Text1, ElementsAre("a = b", "1999"));
    EXPECT_THAT(form.Text2, ElementsAre(" Ann", "", ""));
    EXPECT_THAT(form.List1, ElementsAre("Dyear", "my dtitle=x"));
}

TEST(DiscFile, whatWasWrittenIsReadByItsKeys) {
    DiscForm before = filledForm();
    before.Text1[0] = "dyear = ttitle";
    before.List1 = {"DTITLE=", "=", ""};
    DiscForm form;
    readDiscFile(discFileText("1", before), form, DiscKeys::inFront);
    EXPECT_EQ(form.Text1, before.Text1);
    EXPECT_EQ(form.List1, before.List1);
}

} // namespace
} // namespace tovik::cd
