// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Errors.h"

#include "config/RaisedNumber.h"
#include "config/SettingsFixture.h"

#include <filesystem>
#include <new>

namespace tovik::config {
namespace {

namespace fs = std::filesystem;
using base::ErrorNumber;
using base::RuntimeError;
using test::raisedNumber;

class ErrorsTest : public test::SettingsFixture {
protected:
    void SetUp() override { writeSettings("<TKXV>0,1</TKXV><TKV2>1</TKV2>"); }

    /// The log from the description of its one line on.
    [[nodiscard]] std::string logged() const {
        const std::string line = host_.folder.read("db/err.log");
        return line.substr(line.find(',') + 1);
    }

    [[nodiscard]] bool isLogged() const { return fs::exists(host_.folder / "db/err.log"); }

    ErrHandler log_{host_.paths, host_.clock, host_.operatingSystem};
    Errors errors_{log_, host_.dialogs};
};

TEST_F(ErrorsTest, aBodyThatSucceedsLeavesNoTrace) {
    int runs = 0;
    EXPECT_TRUE(guard(errors_, player("Next_track"), [&] { ++runs; }));
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(isLogged());
    EXPECT_TRUE(host_.dialogs.boxes.empty());
}

TEST_F(ErrorsTest, anErrorEndsTheBodyIsLoggedAndShown) {
    bool wentOn = false;
    EXPECT_FALSE(guard(errors_, player("Next_track"), [&] {
        throw RuntimeError(ErrorNumber::Overflow);
        wentOn = true;
    }));
    EXPECT_FALSE(wentOn);
    EXPECT_EQ(logged(), "Overflow,6,Player,Next_track,0.1,1,6.1\r\n");
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    const host::MessageBox& box = host_.dialogs.boxes.front();
    EXPECT_EQ(box.text, "Overflow");
    EXPECT_EQ(box.title, " in sub Next_Track");
    EXPECT_EQ(box.icon, host::MessageIcon::None);
    EXPECT_EQ(box.buttons, host::MessageButtons::Ok);
}

TEST_F(ErrorsTest, everyProcedureIsReportedInItsOwnWords) {
    for (const Procedure& row : kProcedures) {
        SCOPED_TRACE(std::string(row.module) + "." + std::string(row.procedure));
        host_.dialogs.boxes.clear();
        fs::remove(host_.folder / "db/err.log");
        EXPECT_FALSE(guard(errors_, row, [] { throw RuntimeError(ErrorNumber::FileNotFound); }));
        EXPECT_EQ(logged(), "File not found,53," + std::string(row.module) + "," +
                                std::string(row.procedure) + ",0.1,1,6.1\r\n");
        ASSERT_EQ(host_.dialogs.boxes.size(), row.tail.empty() ? 0U : 1U);
        if (!row.tail.empty()) {
            EXPECT_EQ(host_.dialogs.boxes.front().title, row.tail);
        }
    }
}

/// Looks at the log when a box opens.
class LookingDialogs final : public host::Dialogs {
public:
    explicit LookingDialogs(std::string log) : log_(std::move(log)) {}

    host::MessageAnswer showMessage(const host::MessageBox&) override {
        seen = fs::exists(log_);
        return host::MessageAnswer::Ok;
    }

    std::vector<std::string> openFiles(const host::FileDialog&) override { return {}; }

    std::optional<std::string> saveFile(const host::FileDialog&) override { return {}; }

    std::optional<std::string> chooseFolder(const host::FolderDialog&) override { return {}; }

    bool seen = false;

private:
    std::string log_;
};

TEST_F(ErrorsTest, theLineIsWrittenBeforeTheBoxOpens) {
    LookingDialogs dialogs(host_.folder / "db/err.log");
    guard(Errors(log_, dialogs), player("timer1"),
          [] { throw RuntimeError(ErrorNumber::Overflow); });
    EXPECT_TRUE(dialogs.seen);
}

TEST_F(ErrorsTest, otherExceptionsBecomeNumbers) {
    guard(errors_, player("Load"), [] { throw std::bad_alloc(); });
    guard(errors_, player("Load"), [] { throw std::runtime_error("odd"); });
    guard(errors_, player("Load"), [] { throw 1; });
    const std::string log = host_.folder.read("db/err.log");
    EXPECT_NE(log.find(",Out of memory,7,Player,Load,"), std::string::npos);
    EXPECT_NE(log.find(",odd,51,Player,Load,"), std::string::npos);
    EXPECT_NE(log.find(",Internal error,51,Player,Load,"), std::string::npos);
}

TEST_F(ErrorsTest, aLogThatCannotBeWrittenHidesNothing) {
    fs::remove_all(host_.folder / "db");
    EXPECT_FALSE(
        guard(errors_, player("Next_track"), [] { throw RuntimeError(ErrorNumber::Overflow); }));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes.front().text, "Overflow");
    EXPECT_EQ(host_.dialogs.boxes.front().title, " in sub Next_Track");
}

TEST_F(ErrorsTest, theFirstErrorThatALogLostIsShownWhereverItWas) {
    guard(errors_, player("Keydown"), [] { throw RuntimeError(ErrorNumber::Overflow); });
    EXPECT_TRUE(host_.dialogs.boxes.empty());
    fs::remove_all(host_.folder / "db");
    guard(errors_, player("Keydown"), [] { throw RuntimeError(ErrorNumber::DiskFull); });
    guard(errors_, player("MouseMove"), [] { throw RuntimeError(ErrorNumber::TypeMismatch); });
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes.front().text, "Disk full");
    EXPECT_EQ(host_.dialogs.boxes.front().title, "Tovik");
}

TEST_F(ErrorsTest, whatMustBeToldIsToldOnce) {
    const RuntimeError error(ErrorNumber::TypeMismatch);
    errors_.reportAndTell(error, player("Load"));
    errors_.reportAndTell(error, player("Load"));
    EXPECT_EQ(logged().substr(0, 30), "Type mismatch,13,Player,Load,0");
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes.front().title, "Tovik");
    errors_.reportAndTell(RuntimeError(ErrorNumber::Overflow), player("Load"));
    EXPECT_EQ(host_.dialogs.boxes.size(), 2U);
}

TEST_F(ErrorsTest, anInnerProcedureKeepsItsErrorFromTheOuterOne) {
    bool wentOn = false;
    EXPECT_TRUE(guard(errors_, player("timer1"), [&] {
        EXPECT_FALSE(guard(errors_, player("Next_track"),
                           [] { throw RuntimeError(ErrorNumber::TypeMismatch); }));
        wentOn = true;
    }));
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(host_.dialogs.boxes.size(), 1U);
}

TEST_F(ErrorsTest, noBoxWhenNobodyWouldAnswerIt) {
    EXPECT_TRUE(errors_.showsBoxes());
    errors_.showNoMoreBoxes();
    EXPECT_FALSE(
        guard(errors_, player("kill process"), [] { throw RuntimeError(ErrorNumber::DiskFull); }));
    errors_.reportUnguarded(RuntimeError(ErrorNumber::DiskFull));
    EXPECT_TRUE(host_.dialogs.boxes.empty());
    EXPECT_EQ(logged().substr(0, 34), "Disk full,61,Player,kill process,0");
}

TEST_F(ErrorsTest, whatNoProcedureTookIsLoggedAndShown) {
    errors_.reportUnguarded(RuntimeError(ErrorNumber::Overflow));
    EXPECT_EQ(logged(), "Overflow,6,Player,dispatch,0.1,1,6.1\r\n");
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes.front().text, "Overflow");
    EXPECT_EQ(host_.dialogs.boxes.front().title, "Tovik");
}

TEST_F(ErrorsTest, whatNoProcedureTookIsShownAlsoWithoutALog) {
    fs::remove_all(host_.folder / "db");
    errors_.reportUnguarded(RuntimeError(ErrorNumber::Overflow));
    ASSERT_EQ(host_.dialogs.boxes.size(), 1U);
    EXPECT_EQ(host_.dialogs.boxes.front().text, "Overflow");
}

} // namespace
} // namespace tovik::config
