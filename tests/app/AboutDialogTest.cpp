// SPDX-License-Identifier: GPL-3.0-or-later
// What the program tells about itself, and the choice of a folder.
#include "dialogs/AboutDialog.h"

#include "app/DialogRig.h"

#include <QFileSystemModel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

namespace tovik::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using window::WindowId;

class AboutDialog : public DialogRig {
protected:
    AboutDialog() { begin(); }

    static std::string text(QDialog& dialog, const char* label) {
        return control<QLabel>(dialog, label).text().toStdString();
    }
};

TEST_F(AboutDialog, tellsNameVersionDateLicenceAndLibraries) {
    set("TKD", "1.2.2003");
    with(WindowId::about, [](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "About Tovik");
        EXPECT_EQ(text(dialog, "ProgramName"), "Tovik");
        EXPECT_EQ(text(dialog, "VersionText"), "0.1.1 (1.2.2003)");
        EXPECT_THAT(text(dialog, "Licence"), HasSubstr("General Public License"));
        const std::string libraries =
            control<QPlainTextEdit>(dialog, "Libraries").toPlainText().toStdString();
        for (const char* library :
             {"Qt 6.", "libavcodec ", "libmpg123 1.", "FLAC 1.", "Expat 2."}) {
            EXPECT_THAT(libraries, HasSubstr(library));
        }
        EXPECT_EQ(dialog.focusWidget()->objectName(), "Command1_0");
    });
}

TEST_F(AboutDialog, asksForUpdatesAndForAWordInAnyCase) {
    host_.programs.present.insert("update.exe");
    with(WindowId::about, [](QDialog& dialog) {
        auto& update = control<QPushButton>(dialog, "Command1_1");
        EXPECT_TRUE(update.isEnabled());
        update.click();
        EXPECT_TRUE(dialog.isVisible());
        control<QPushButton>(dialog, "Command1_0").click();
        EXPECT_FALSE(dialog.isVisible());
    });
    ASSERT_THAT(host_.programs.starts, SizeIs(1));
    EXPECT_EQ(host_.programs.starts[0].name, "update.exe");
    EXPECT_THAT(host_.programs.starts[0].arguments, ElementsAre("chk4update=0.1.1&report_all"));
}

TEST_F(AboutDialog, withoutTheUpdateProgramTheButtonSaysSo) {
    with(WindowId::about, [](QDialog& dialog) {
        auto& update = control<QPushButton>(dialog, "Command1_1");
        EXPECT_FALSE(update.isEnabled());
        EXPECT_EQ(update.toolTip(), "The program that looks for updates is not installed");
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    player().choices().about.Command1_Click(); // gone since
    EXPECT_THAT(logged(), SizeIs(1));
    EXPECT_THAT(logged()[0], HasSubstr("About"));
}

TEST_F(AboutDialog, opensByItsCommand) {
    int seen = 0;
    next([&](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "frmAbout");
        ++seen;
    });
    player().commands().run(commands::CommandId::about);
    EXPECT_EQ(seen, 1);
}

class RipDirDialog : public AboutDialog {
protected:
    void ask(const std::string& folder, const std::function<void(QDialog&)>& act) {
        logic().begin(folder);
        with(WindowId::ripFolder, act);
    }

    preferences::frmRipDir& logic() { return player().choices().preferences.ripDir; }
};

TEST_F(RipDirDialog, beginsWithTheFolderAndTakesAnother) {
    ask("/nowhere/at all", [](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Change output path");
        auto& path = control<QLineEdit>(dialog, "Text1");
        EXPECT_EQ(path.text(), "/nowhere/at all");
        EXPECT_EQ(dialog.focusWidget(), &path);
        EXPECT_EQ(path.selectedText(), path.text());
        QTest::keyClicks(&path, "music");
        EXPECT_FALSE(control<QPushButton>(dialog, "Command1_0").isEnabled());
        path.setText("/music/new");
        QTest::keyClick(&path, Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_EQ(logic().chosen(), "/music/new");
}

TEST_F(RipDirDialog, escapeAndCancelTakeNothing) {
    ask("/a", [](QDialog& dialog) {
        control<QLineEdit>(dialog, "Text1").setText("/b");
        control<QPushButton>(dialog, "Command1_1").click();
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_FALSE(logic().chosen());
    ask("/a", [](QDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
        EXPECT_FALSE(dialog.isVisible());
    });
    EXPECT_FALSE(logic().chosen());
}

TEST_F(RipDirDialog, bearsItsOwnCaptionUntilALanguageNamesIt) {
    std::filesystem::remove(host_.folder / "Languages");
    host_.folder.write("Languages/English.lng", "[frmOutPutPath]\nitem1=Yes\n");
    const preferences::frmRipDir folder;
    EXPECT_EQ(preferences::frmRipDir::kCaption, "Çıktı yolunu değiştir");
    ask("/a", [](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), ""); // the file has no word for it
        EXPECT_EQ(control<QPushButton>(dialog, "Command1_0").text(), "Yes");
    });
}

TEST_F(RipDirDialog, whatIsTypedStaysWhenTheTreeGetsTheKeyboard) {
    std::filesystem::create_directories(host_.folder / "rips");
    ask(host_.folder / "rips/not yet/there", [&](QDialog& dialog) {
        auto& tree = control<QTreeView>(dialog, "Dir1");
        auto& path = control<QLineEdit>(dialog, "Text1");
        const auto* const model = qobject_cast<QFileSystemModel*>(tree.model());
        EXPECT_EQ(model->filePath(tree.currentIndex()).toStdString(), host_.folder / "rips");
        path.setText("/somewhere/new");
        dialog.activateWindow();
        QTest::keyClick(&path, Qt::Key_Tab);
        tree.setFocus(Qt::TabFocusReason);
        EXPECT_EQ(path.text(), "/somewhere/new");
        QTest::keyClick(&tree, Qt::Key_Up);
        EXPECT_NE(path.text(), "/somewhere/new") << "a row that was chosen";
    });
}

TEST_F(RipDirDialog, theTreeScrollsToTheFolderOnceItIsRead) {
    std::filesystem::create_directories(host_.folder / "rips/one");
    ask(host_.folder / "rips/one", [](QDialog& dialog) {
        auto& tree = control<QTreeView>(dialog, "Dir1");
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return tree.viewport()->rect().intersects(tree.visualRect(tree.currentIndex())) &&
                   tree.visualRect(tree.currentIndex()).height() > 0;
        }));
    });
}

TEST_F(RipDirDialog, aChosenRowOfTheTreeIsThePath) {
    std::filesystem::create_directories(host_.folder / "rips/one");
    ask(host_.folder / "rips", [&](QDialog& dialog) {
        auto& tree = control<QTreeView>(dialog, "Dir1");
        const auto* const model = qobject_cast<QFileSystemModel*>(tree.model());
        ASSERT_NE(model, nullptr);
        tree.setCurrentIndex(model->index(QString::fromStdString(host_.folder / "rips/one")));
        EXPECT_EQ(control<QLineEdit>(dialog, "Text1").text().toStdString(),
                  host_.folder / "rips/one");
    });
}

} // namespace
} // namespace tovik::test
