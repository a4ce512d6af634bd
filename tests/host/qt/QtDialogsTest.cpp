// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/qt/QtDialogs.h"
#include "EventLoop.h"
#include "support/host/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include <array>
#include <functional>
#include <optional>
#include <utility>

namespace tovik::host {
namespace {

using testing::ElementsAre;

/// Does something with the dialog of this class once it is on the screen.
template <typename Window>
class WhenShown {
public:
    explicit WhenShown(std::function<void(Window&)> action) : action_(std::move(action)) {
        QObject::connect(&look_, &QTimer::timeout, &look_, [this] {
            if (auto* const window = qobject_cast<Window*>(QApplication::activeModalWidget())) {
                look_.stop();
                action_(*window);
            }
        });
        look_.start(0);
    }

private:
    std::function<void(Window&)> action_;
    QTimer look_;
};

class QtDialogsTest : public testing::Test {
protected:
    test::TemporaryFolder folder_;
    QtDialogs dialogs_;
};

TEST_F(QtDialogsTest, aBoxShowsTextTitleIconAndButtons) {
    const WhenShown<QMessageBox> user([](QMessageBox& window) {
        EXPECT_EQ(window.text(), "<b>Ä</b>");
        EXPECT_EQ(window.textFormat(), Qt::PlainText);
        EXPECT_EQ(window.windowTitle(), " in sub Next_Track");
        EXPECT_EQ(window.icon(), QMessageBox::Question);
        EXPECT_EQ(window.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        EXPECT_EQ(window.standardButton(window.defaultButton()), QMessageBox::No);
        window.button(QMessageBox::Yes)->click();
    });
    EXPECT_EQ(dialogs_.showMessage({.text = "<b>\xC4</b>",
                                    .title = " in sub Next_Track",
                                    .icon = MessageIcon::Question,
                                    .buttons = MessageButtons::YesNo,
                                    .defaultAnswer = MessageAnswer::No}),
              MessageAnswer::Yes);
}

TEST_F(QtDialogsTest, everyAnswerComesBack) {
    constexpr std::array answers{
        std::pair{QMessageBox::Yes, MessageAnswer::Yes},
        std::pair{QMessageBox::No, MessageAnswer::No},
        std::pair{QMessageBox::Cancel, MessageAnswer::Cancel},
    };
    for (const auto& [button, answer] : answers) {
        const WhenShown<QMessageBox> user(
            [pressed = button](QMessageBox& window) { window.button(pressed)->click(); });
        EXPECT_EQ(dialogs_.showMessage({.text = "?", .buttons = MessageButtons::YesNoCancel}),
                  answer);
    }
    const WhenShown<QMessageBox> user(
        [](QMessageBox& window) { window.button(QMessageBox::Ok)->click(); });
    EXPECT_EQ(dialogs_.showMessage({.text = "!", .buttons = MessageButtons::OkCancel}),
              MessageAnswer::Ok);
}

TEST_F(QtDialogsTest, boxesWithTheSameTextDoNotPileUp) {
    std::vector<std::string> logged;
    dialogs_.logUnshownTo([&](const MessageBox& box) { logged.push_back(box.title); });
    const WhenShown<QMessageBox> user([&](QMessageBox& window) {
        EXPECT_EQ(dialogs_.showMessage({.text = "Overflow", .title = "second"}), MessageAnswer::Ok);
        EXPECT_THAT(logged, ElementsAre("second"));
        const WhenShown<QMessageBox> inner([](QMessageBox& other) { other.accept(); });
        dialogs_.showMessage({.text = "another text", .title = "third"});
        window.accept();
    });
    dialogs_.showMessage({.text = "Overflow", .title = "first"});
    EXPECT_THAT(logged, ElementsAre("second"));
    // Once closed it may come again.
    const WhenShown<QMessageBox> later([](QMessageBox& window) { window.accept(); });
    dialogs_.showMessage({.text = "Overflow", .title = "fourth"});
    EXPECT_THAT(logged, ElementsAre("second"));
}

TEST_F(QtDialogsTest, openGivesTheFilesChosen) {
    const std::string one = folder_.write("a b.mp3", "");
    const std::string other = folder_.write("ü.mp3", "");
    folder_.write("text.txt", "");
    const WhenShown<QFileDialog> user([&](QFileDialog& window) {
        EXPECT_EQ(window.windowTitle(), "Add");
        EXPECT_EQ(window.fileMode(), QFileDialog::ExistingFiles);
        EXPECT_EQ(window.nameFilters(), QStringList("Audio (*.mp3) (*.mp? *.ogg)"));
        window.findChild<QLineEdit*>()->setText("\"a b.mp3\" \"ü.mp3\"");
        QMetaObject::invokeMethod(&window, "accept");
    });
    EXPECT_THAT(dialogs_.openFiles({.title = "Add",
                                    .filters = {{"Audio (*.mp3)", {"*.mp?", "*.ogg"}}},
                                    .folder = folder_.path(),
                                    .manyFiles = true}),
                ElementsAre(one, other));
}

TEST_F(QtDialogsTest, saveAddsTheExtensionAndRemembersTheFolder) {
    const WhenShown<QFileDialog> user([&](QFileDialog& window) {
        window.findChild<QLineEdit*>()->setText("list");
        QMetaObject::invokeMethod(&window, "accept");
    });
    EXPECT_EQ(dialogs_.saveFile({.title = "Save",
                                 .filters = {{"M3U (*.m3u)", {"*.m3u"}}},
                                 .folder = folder_.path(),
                                 .defaultExtension = "m3u"}),
              folder_ / "list.m3u");
    const WhenShown<QFileDialog> later([&](QFileDialog& window) {
        EXPECT_EQ(window.directory().absolutePath().toStdString(), folder_.path());
        window.reject();
    });
    EXPECT_EQ(dialogs_.saveFile({.title = "Save"}), std::nullopt);
}

TEST_F(QtDialogsTest, whoPreparesWindowsIsGivenEachByItsName) {
    std::vector<std::string> names;
    dialogs_.prepareWith([&names](QWidget& window) {
        EXPECT_FALSE(window.isVisible());
        names.push_back(window.objectName().toStdString());
    });
    const auto cancel = [](QFileDialog& window) { window.reject(); };
    {
        const WhenShown<QFileDialog> user(cancel);
        EXPECT_THAT(dialogs_.openFiles({.title = "Add"}), ElementsAre());
    }
    {
        const WhenShown<QFileDialog> user(cancel);
        EXPECT_EQ(dialogs_.saveFile({.title = "Save"}), std::nullopt);
    }
    {
        const WhenShown<QFileDialog> user(cancel);
        EXPECT_EQ(dialogs_.chooseFolder({.title = "Folder"}), std::nullopt);
    }
    EXPECT_THAT(names, ElementsAre("openFiles", "saveFile", "chooseFolder"));
}

/// Saves under this name with the filter of that number chosen.
class QtSavingTest : public QtDialogsTest {
protected:
    [[nodiscard]] std::optional<std::string> save(const QString& name, int filter) {
        const WhenShown<QFileDialog> user([&](QFileDialog& window) {
            auto* const filters = window.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
            filters->setCurrentIndex(filter);
            emit filters->activated(filter); // as when the user chooses it
            emit filters->textActivated(filters->currentText());
            window.findChild<QLineEdit*>()->setText(name);
            QMetaObject::invokeMethod(&window, "accept");
        });
        return dialogs_.saveFile({.title = "Save",
                                  .filters = {{"M3U", {"*.m3u"}}, {"XSPF", {"*.xspf"}}},
                                  .folder = folder_.path(),
                                  .defaultExtension = "m3u",
                                  .addsFilterExtension = true});
    }
};

TEST_F(QtSavingTest, theFilterTellsTheExtension) {
    EXPECT_EQ(save("mix", 0), folder_ / "mix.m3u");
    EXPECT_EQ(save("mix", 1), folder_ / "mix.xspf");
    EXPECT_EQ(save("Vol. 2", 1), folder_ / "Vol. 2.xspf");
    EXPECT_EQ(save("mix.M3U", 1), folder_ / "mix.M3U") << "a name that says it itself";
}

TEST_F(QtSavingTest, aNameThatIsCompletedIsReplacedOnlyIfTheUserSaysSo) {
    folder_.write("Vol. 2.xspf", "kept");
    for (const auto& [button, saved] :
         {std::pair{QMessageBox::Yes, std::optional(folder_ / "Vol. 2.xspf")},
          {QMessageBox::No, std::optional<std::string>()}}) {
        std::optional<WhenShown<QFileDialog>> again; // after a No
        const WhenShown<QMessageBox> answer([&again, pressed = button](QMessageBox& window) {
            again.emplace([](QFileDialog& dialog) { dialog.reject(); });
            window.button(pressed)->click();
        });
        EXPECT_EQ(save("Vol. 2", 1), saved);
    }
}

TEST_F(QtDialogsTest, buttonsMayHaveWordsOfTheirOwn) {
    const WhenShown<QMessageBox> user([](QMessageBox& window) {
        EXPECT_EQ(window.button(QMessageBox::Yes)->text(), "Replace");
        EXPECT_EQ(window.button(QMessageBox::No)->text(), "Append");
        window.button(QMessageBox::No)->click();
    });
    EXPECT_EQ(dialogs_.showMessage({.text = "?",
                                    .buttons = MessageButtons::YesNoCancel,
                                    .yesCaption = "Replace",
                                    .noCaption = "Append"}),
              MessageAnswer::No);
}

TEST_F(QtDialogsTest, theFirstOneOpensWithTheMusicOrAtHome) {
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", folder_.path().c_str());
    const auto opensIn = [this](const std::string& folder) {
        const WhenShown<QFileDialog> user([&](QFileDialog& window) {
            EXPECT_EQ(window.directory().absolutePath().toStdString(), folder);
            window.reject();
        });
        EXPECT_THAT(dialogs_.openFiles({.title = "Add"}), ElementsAre());
    };
    opensIn(folder_.path());
    std::filesystem::create_directory(folder_ / "Music");
    opensIn(folder_ / "Music");
    qputenv("HOME", home);
}

TEST_F(QtDialogsTest, aFolderIsChosenOrNot) {
    std::filesystem::create_directory(folder_ / "music");
    const WhenShown<QFileDialog> user([&](QFileDialog& window) {
        EXPECT_EQ(window.fileMode(), QFileDialog::Directory);
        window.findChild<QLineEdit*>()->setText("music");
        QMetaObject::invokeMethod(&window, "accept");
    });
    EXPECT_EQ(dialogs_.chooseFolder({.title = "Rip to", .folder = folder_.path()}),
              folder_ / "music");
    const WhenShown<QFileDialog> second([](QFileDialog& window) { window.reject(); });
    EXPECT_EQ(dialogs_.chooseFolder({.title = "Rip to"}), std::nullopt);
    const WhenShown<QFileDialog> third([](QFileDialog& window) { window.reject(); });
    EXPECT_THAT(dialogs_.openFiles({.title = "Add"}), ElementsAre());
}

} // namespace
} // namespace tovik::host
