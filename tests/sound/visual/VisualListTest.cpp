// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/VisualList.h"

#include "sound/visual/VisualRig.h"
#include "support/host/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>

namespace tovik::test {
namespace {

namespace fs = std::filesystem;

using sound::VisualFile;
using sound::VisualNews;

class AVisualList : public testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(folder_ / "own");
        fs::create_directories(folder_ / "shipped");
    }

    void put(const std::string& name, const std::string& fault) {
        fs::copy_file(faultyVis(fault), folder_ / name, fs::copy_options::overwrite_existing);
    }

    /// "file: name" of each, in order.
    std::vector<std::string> list() {
        sound::VisualList list(
            TOVIK_VIS_HOST, {.knownNames = folder_ / "names",
                             .folders = {folder_ / "own", folder_ / "none", folder_ / "shipped"}});
        EXPECT_EQ(awaitNews(list), VisualNews::ended);
        std::vector<std::string> rows;
        for (const VisualFile& file : list.files()) {
            rows.push_back(fs::path(file.path).filename().string() + ": " + file.name);
        }
        return rows;
    }

    void awaitNames() {
        for (int i = 0; i < 2000 && !fs::exists(folder_ / "names"); ++i) {
            ::usleep(1000);
        }
        ASSERT_TRUE(fs::exists(folder_ / "names"));
    }

    using Rows = std::vector<std::string>;
    TemporaryFolder folder_;
};

TEST_F(AVisualList, goesByFolderThenEndingThenName) {
    put("own/b.svp", "none");
    put("own/a.uvs", "none");
    put("own/C.SVP", "none");
    put("own/d.so", "none");
    put("shipped/a.svp", "none");
    EXPECT_EQ(list(), (Rows{"C.SVP: Faulty none", "b.svp: Faulty none", "a.uvs: Faulty none",
                            "a.svp: Faulty none"}));
}

TEST_F(AVisualList, ofNothingIsEmpty) {
    EXPECT_EQ(list(), Rows{});
    fs::remove_all(folder_ / "own");
    EXPECT_EQ(list(), Rows{});
}

TEST_F(AVisualList, givesNoNameToWhatCannotBeLoadedAndGoesOn) {
    put("own/a.svp", "crash_at_load");
    put("own/b.svp", "old_version");
    put("own/c.svp", "no_name");
    folder_.write("own/d.svp", "no plug-in at all");
    fs::create_directories(folder_ / "own/e.svp"); // a folder is none
    put("own/f.svp", "none");
    EXPECT_EQ(list(), (Rows{"a.svp: ", "b.svp: ", "c.svp: ", "d.svp: ", "f.svp: Faulty none"}));
}

TEST_F(AVisualList, waitsTwoSecondsForOneThatHangs) {
    put("own/a.svp", "endless_load");
    put("own/b.svp", "none");
    const auto before = std::chrono::steady_clock::now();
    EXPECT_EQ(list(), (Rows{"a.svp: ", "b.svp: Faulty none"}));
    EXPECT_GE(std::chrono::steady_clock::now() - before, std::chrono::seconds(2));
    // It may have been the machine that was busy: it is not known, and asked the next time.
    awaitNames();
    const std::string kept = folder_.read("names");
    EXPECT_THAT(kept, testing::HasSubstr("b.svp"));
    EXPECT_THAT(kept, testing::Not(testing::HasSubstr("a.svp")));
}

TEST_F(AVisualList, remembersWhatHasNoName) {
    put("own/a.svp", "crash_at_load");
    put("own/b.svp", "no_name");
    folder_.write("own/c.svp", "no plug-in at all");
    static_cast<void>(list());
    awaitNames();
    for (const char* const name : {"a.svp", "b.svp", "c.svp"}) {
        EXPECT_THAT(folder_.read("names"), testing::HasSubstr(name));
    }
}

TEST_F(AVisualList, showsNothingOfANameThatIsNone) {
    put("own/a.svp", "odd_name");
    put("own/b.svp", "names_itself");
    EXPECT_EQ(list(), (Rows{"a.svp: Odd name", "b.svp: It[1mself"}));
    awaitNames();
    EXPECT_THAT(folder_.read("names"), testing::HasSubstr("It[1mself"));
}

TEST_F(AVisualList, asksAgainWhatHasChanged) {
    put("own/a.svp", "none");
    EXPECT_EQ(list(), Rows{"a.svp: Faulty none"});
    awaitNames();
    // Believed as long as size and time are the same.
    std::string kept = folder_.read("names");
    kept.replace(kept.find("Faulty none"), 11, "From before");
    folder_.write("names", kept);
    EXPECT_EQ(list(), Rows{"a.svp: From before"});
    fs::last_write_time(folder_ / "own/a.svp", fs::file_time_type::clock::now());
    EXPECT_EQ(list(), Rows{"a.svp: Faulty none"});
}

} // namespace
} // namespace tovik::test
