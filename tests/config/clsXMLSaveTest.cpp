// SPDX-License-Identifier: GPL-3.0-or-later
// Saving a document.
#include "config/clsXML.h"

#include "config/RaisedNumber.h"
#include "support/host/FullDisk.h"
#include "support/host/TemporaryFolder.h"
#include "support/host/Unprivileged.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace tovik::config {
namespace {

namespace fs = std::filesystem;
using test::raisedNumber;
using test::raisedText;
using namespace std::string_literals;

class clsXMLSaveTest : public testing::Test {
protected:
    bool openFile(const std::string& bytes) {
        return xml_.OpenXML(folder_.write("a.xml", bytes), XmlSource::FilePath);
    }

    std::size_t entries() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()));
    }

    test::TemporaryFolder folder_;
    clsXML xml_;
};

TEST_F(clsXMLSaveTest, whatWasNotTouchedStaysAsItWas) {
    const std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n"
                             "<!-- mine: -->\n\n"
                             "<Settings  >\n\t<MI>0</MI><!-- keep --><Own y=\"2\" x='1'>  </Own>\n"
                             "<?tool do?><C><![CDATA[ <&> ]]></C>\r\n  café\n</Settings>\n\n"
                             "<!-- end -->\n";
    ASSERT_TRUE(openFile(text));
    xml_.WriteNode("/Settings/MI", "1");
    xml_.Save(folder_ / "a.xml");
    std::string expected = text;
    expected.replace(expected.find("<MI>0"), 5, "<MI>1");
    expected.replace(expected.find("<Settings  >"), 12, "<Settings>");
    expected.replace(expected.find("x='1'"), 5, "x=\"1\"");
    EXPECT_EQ(folder_.read("a.xml"), expected);
    ASSERT_TRUE(xml_.OpenXML(folder_ / "a.xml", XmlSource::FilePath));
    xml_.Save(folder_ / "a.xml");
    EXPECT_EQ(folder_.read("a.xml"), expected);
}

TEST_F(clsXMLSaveTest, otherEncodingsBecomeUtf8AndSaySo) {
    ASSERT_TRUE(openFile("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>caf\xE9</a>"));
    EXPECT_EQ(xml_.ReadNode("/a"), "café");
    xml_.Save(folder_ / "a.xml");
    ASSERT_TRUE(xml_.OpenXML(folder_ / "a.xml", XmlSource::FilePath));
    EXPECT_EQ(xml_.ReadNode("/a"), "café");
    EXPECT_EQ(xml_.XMLDocumentInfo(1), "UTF-8");

    ASSERT_TRUE(openFile("\xFF\xFE<\0a\0>\0\xE9\0<\0/\0a\0>\0"s));
    EXPECT_EQ(xml_.ReadNode("/a"), "é");
    xml_.Save(folder_ / "a.xml");
    EXPECT_EQ(folder_.read("a.xml"), "<a>é</a>");
}

TEST_F(clsXMLSaveTest, aDamagedFileIsNeverOverwritten) {
    for (const auto& damage : {""s, "<Settings><MI>0</MI>"s, "<a/>\0\0"s, "words"s, "<a>&</a>"s}) {
        ASSERT_FALSE(openFile(damage));
        xml_.WriteNode("/Settings/MI", "1");
        xml_.Save(folder_ / "a.xml");
        EXPECT_EQ(folder_.read("a.xml"), damage);
    }
    folder_.write("good.xml", "<a/>");
    xml_.Save(folder_ / "good.xml");
    EXPECT_EQ(folder_.read("good.xml"), "<a/>");
}

TEST_F(clsXMLSaveTest, aMissingFileIsNotMadeFromNothing) {
    ASSERT_FALSE(xml_.OpenXML(folder_ / "none.xml", XmlSource::FilePath));
    xml_.Save(folder_ / "none.xml");
    EXPECT_EQ(entries(), 0U);
}

TEST_F(clsXMLSaveTest, aDocumentFromTextCanBeSavedAnywhere) {
    ASSERT_TRUE(xml_.OpenXML("<EQ/>", XmlSource::Text));
    xml_.Save(folder_ / "new.teq");
    EXPECT_EQ(folder_.read("new.teq"), "<EQ/>");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(clsXMLSaveTest, aMissingFolderIsPathNotFound) {
    ASSERT_TRUE(xml_.OpenXML("<a/>", XmlSource::Text));
    EXPECT_EQ(raisedNumber([&] { xml_.Save(folder_ / "none/a.xml"); }), 76);
    EXPECT_EQ(raisedText([&] { xml_.Save(folder_ / "none/a.xml"); }),
              "Path not found: " + (folder_ / "none/a.xml"));
}

TEST_F(clsXMLSaveTest, aFolderInThePlaceOfTheFileIsAnAccessError) {
    ASSERT_TRUE(xml_.OpenXML("<a/>", XmlSource::Text));
    EXPECT_EQ(raisedNumber([&] { xml_.Save(folder_.path()); }), 75);
}

TEST_F(clsXMLSaveTest, aReadOnlyFileOrFolderIsPermissionDenied) {
    const std::string path = folder_.write("a.xml", "<a>old</a>");
    ASSERT_TRUE(xml_.OpenXML("<a>new</a>", XmlSource::Text));
    fs::permissions(folder_.path(), fs::perms(0777));
    fs::permissions(path, fs::perms(0444));
    {
        const test::Unprivileged rights;
        EXPECT_EQ(raisedNumber([&] { xml_.Save(path); }), 70);
    }
    fs::permissions(path, fs::perms(0666));
    fs::permissions(folder_.path(), fs::perms(0555));
    {
        const test::Unprivileged rights;
        EXPECT_EQ(raisedNumber([&] { xml_.Save(path); }), 70);
    }
    EXPECT_EQ(folder_.read("a.xml"), "<a>old</a>");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(clsXMLSaveTest, aFullDiskLeavesTheOldFile) {
    const std::string path = folder_.write("a.xml", "<a>old</a>");
    ASSERT_TRUE(xml_.OpenXML("<a>" + std::string(5000, 'x') + "</a>", XmlSource::Text));
    int number = 0;
    {
        const test::FullDisk full(1000);
        number = raisedNumber([&] { xml_.Save(path); });
    }
    EXPECT_EQ(number, 61);
    EXPECT_EQ(folder_.read("a.xml"), "<a>old</a>");
    EXPECT_EQ(entries(), 1U);
    xml_.Save(path);
    EXPECT_EQ(fs::file_size(path), 5007U);
}

} // namespace
} // namespace tovik::config
