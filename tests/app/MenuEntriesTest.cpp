// SPDX-License-Identifier: GPL-3.0-or-later
// Menus in the real window: which one comes up where, what each of its entries does, and keys.
#include "app/MainWindowRig.h"
#include "commands/MenuTree.h"
#include "ui/qt/SkinMenu.h"

#include <functional>
#include <map>
#include <QApplication>

namespace tovik::test {
namespace {

using commands::CommandId;
using window::MainElement;
using window::MenuRoot;
using window::WindowId;

class MenuEntries : public MainWindowRig {
protected:
    [[nodiscard]] menus::cMenus& model() { return real_->menus().frmTSR.m_Menus; }

    [[nodiscard]] const player::PlayerState& state() { return real_->state(); }

    [[nodiscard]] static ui::SkinMenu* shownMenu() {
        return dynamic_cast<ui::SkinMenu*>(QApplication::activePopupWidget());
    }

    /// The key of the root whose menu is shown; empty for none.
    [[nodiscard]] std::string shownRoot() {
        const ui::SkinMenu* const menu = shownMenu();
        for (int root = 1; menu != nullptr && root <= model().ItemCount(); ++root) {
            if (model().ItemTopMenu(root) &&
                menu->accessibleName().toStdString() == model().ItemDescription(root)) {
                return model().ItemKey(root);
            }
        }
        return "";
    }

    void closeMenus() {
        while (QWidget* const menu = QApplication::activePopupWidget()) {
            menu->close();
        }
        settle();
    }

    void rightClick(const ui::Box& box) {
        const QPoint place(static_cast<int>(box.left + box.width / 2),
                           static_cast<int>(box.top + box.height / 2));
        QTest::mouseClick(&shown_->widget(), Qt::RightButton, {}, place);
    }

    void rightClick(MainElement element) { rightClick(real_->elements().get(element).box()); }

    /// Shows the menu in which an entry stands, as its user does.
    void popUpFor(const std::string& root) {
        closeMenus();
        if (root == "mnuMain") {
            rightClick(MainElement::iconIMG);
        } else if (root == "vis") {
            rightClick(MainElement::Picture1);
        } else if (root == "mnupls") {
            auto& list = control<ui::ListWidget>("List1");
            QTest::mouseClick(list.viewport(), Qt::RightButton, {},
                              {20, list.rowHeight() + list.rowHeight() / 2}); // the second row
        } else {
            real_->commands().run(root == "mnuRip" ? CommandId::ripMenu : CommandId::presetMenu);
        }
    }

    [[nodiscard]] QAction* action(int index) {
        for (QAction* const one : shownMenu()->actions()) {
            if (one->data().toInt() == model().ItemID(index)) {
                return one;
            }
        }
        return nullptr;
    }

    /// Goes down to an entry by the keys; false where a menu on the way does not show it.
    bool goTo(int index) {
        const int parent = model().ItemParentIndex(index);
        if (model().ItemTopMenu(parent)) {
            popUpFor(model().ItemKey(parent));
        } else if (!goTo(parent)) {
            return false;
        } else {
            QTest::keyClick(shownMenu(), Qt::Key_Right);
        }
        if (shownMenu() == nullptr || action(index) == nullptr) {
            return false;
        }
        shownMenu()->setActiveAction(action(index));
        return true;
    }

    /// Chooses an entry; false when it is not there or disabled.
    bool choose(const std::string& key) {
        const int index = model().IndexForKey(key);
        if (index == 0 || !goTo(index) || !action(index)->isEnabled()) {
            closeMenus();
            return false;
        }
        QTest::keyClick(shownMenu(), Qt::Key_Return);
        settle();
        EXPECT_EQ(shownMenu(), nullptr) << key;
        return true;
    }

    [[nodiscard]] bool marked(const std::string& key) {
        const bool there = goTo(model().IndexForKey(key));
        const bool isMarked = there && action(model().IndexForKey(key))->isChecked();
        closeMenus();
        return isMarked;
    }

    /// The second row plays.
    void play() {
        real_->stdSS().SelectIndex(2);
        real_->commands().run(CommandId::play);
        advance(100);
        ASSERT_EQ(state().CurrentTitle, "b.mp3");
    }

    [[nodiscard]] bool opened(WindowId window) const {
        return !windows_.opened.empty() && windows_.opened.back() == window;
    }

    [[nodiscard]] bool plays(const char* title) {
        return state().IsPlaying && state().CurrentTitle == title;
    }

    /// One for each entry that has something to do: whether it was done.
    using Effects = std::map<std::string, std::function<bool()>>;

    [[nodiscard]] Effects effects() {
        const auto opens = [this](WindowId window) { return [=, this] { return opened(window); }; };
        const auto shows = [this](int panel) {
            return [=, this] { return state().CurrentPanel == panel; };
        };
        const auto seeks = [this] {
            return sound_.calls.back().starts_with("BASS_ChannelSetPosition");
        };
        return {
            {"mnuAbout", opens(WindowId::about)},
            {"mnuFile", [this] { return host_.dialogs.openDialogs.size() == 1; }},
            {"mnuFolder", opens(WindowId::openDirectory)},
            {"mnuLocation", opens(WindowId::addStation)},
            {"mnuMainWin", shows(1)},
            {"mnuEQWin", shows(2)},
            {"mnuPlaylistWin", shows(3)},
            {"mnuRipWin", shows(4)},
            {"mnuIRTWin", shows(5)},
            {"mnuPreWin", opens(WindowId::preferences)},
            {"mnuplbitem1(1)", [this] { return plays("a.mp3"); }},
            {"mnuplbitem1(2)", [this] { return plays("b.mp3"); }},
            {"mnuplbitem1(3)", [this] { return state().IsPaused; }},
            {"mnuplbitem1(4)", [this] { return !state().IsPlaying; }},
            {"mnuplbitem1(5)", [this] { return plays("c.mp3"); }},
            {"mnuplbitem1(7)",
             [this] {
                 advance(10000);
                 return !state().IsPlaying;
             }},
            {"mnuplbitem1(8)", [this] { return state().StopAfterCurrent; }},
            {"mnuplbitem1(9)", seeks},
            {"mnuplbitem1(10)", seeks},
            {"mnuplbitem1(11)", [this] { return plays("a.mp3"); }},
            {"mnuplbitem1(12)", [this] { return plays("c.mp3"); }},
            {"mnuplbitem1(13)", [this] { return plays("a.mp3"); }},
            {"mnuplbitem1(14)", [this] { return plays("c.mp3"); }},
            {"mnuplbitem1(16)", opens(WindowId::jumpToTime)},
            {"mnuplbitem1(17)", opens(WindowId::jumpToTrack)},
            {"mnuplbitem1(18)", opens(WindowId::musicSearch)},
            {"mnuTop",
             [this] {
                 return setting("ASOT") == "1" &&
                        shown_->widget().windowFlags().testFlag(Qt::WindowStaysOnTopHint);
             }},
            {"mnuElapsed", [this] { return state().TimeDisplayMode == 0; }},
            {"mnuRemaining", [this] { return state().TimeDisplayMode == 1; }},
            {"mnuLoop", [this] { return state().RepeatOn; }},
            {"mnuShuffle", [this] { return state().ShuffleOn; }},
            {"mnucrossfade", [this] { return state().CrossfadeOn; }},
            {"mnuSld", [this] { return state().SilenceSkipOn; }},
            {"mnuExit", [this] { return host_.closing.leaveIfAsked(); }},
            {"mnuldpreset", opens(WindowId::loadPreset)},
            {"mnuldpreset2", [this] { return host_.dialogs.openDialogs.size() == 1; }},
            {"mnusvpreset", [this] { return host_.dialogs.saveDialogs.size() == 1; }},
            {"sp(0)", [this] { return marked("sp(0)") && !marked("sp(2)"); }},
            {"sp(2)", [this] { return marked("sp(2)") && !marked("sp(0)"); }},
            {"mnuplsPlay", [this] { return plays("b.mp3"); }},
            {"mnuplsDel",
             [this] { return real_->stdSS().ListCount() == 2 && real_->List1().ListCount() == 2; }},
            {"mnuplsinfo", opens(WindowId::mp3Tag)},
        };
    }

    /// What an entry needs to have something to do, beside the three rows.
    void prepare(const std::string& key) {
        constexpr std::string_view kStarts[] = {"mnuplbitem1(2)", "mnuplsPlay"};
        if (key == "mnuMainWin") {
            switchTo("01000");
        } else if (key == "mnuElapsed") {
            real_->view().timeDisplay.choose(1);
        } else if (key == "mnuldpreset2") {
            host_.dialogs.filesToOpen.push_back({});
        } else if (key.starts_with("mnuplbitem1") || key == "mnuplsinfo") {
            if (std::ranges::find(kStarts, key) != std::end(kStarts)) {
                real_->stdSS().SelectIndex(2);
            } else {
                play();
            }
        }
    }
};

/// Every entry has a test of its own, so that none finds what another one did.
class MenuEntry : public MenuEntries, public testing::WithParamInterface<std::string> {};

TEST_P(MenuEntry, doesWhatItSays) {
    const Effects all = effects();
    const auto effect = all.find(GetParam());
    prepare(GetParam());
    if (effect == all.end()) {
        // What it does is told elsewhere, if it does anything: here it is there.
        const int index = model().IndexForKey(GetParam());
        const bool shows = goTo(index);
        EXPECT_EQ(shows, model().ItemVisible(index));
        if (shows) {
            EXPECT_EQ(action(index)->isEnabled(), model().ItemEnabled(index));
        }
        closeMenus();
        return;
    }
    ASSERT_TRUE(choose(GetParam()));
    EXPECT_TRUE(effect->second());
    EXPECT_TRUE(host_.errors.empty());
}

std::vector<std::string> entriesWithCommands() {
    std::vector<std::string> keys;
    for (const commands::MenuEntry& entry : commands::menuTree()) {
        if (entry.command != CommandId::none) {
            keys.push_back(entry.key());
        }
    }
    return keys;
}

std::string plainName(const testing::TestParamInfo<std::string>& info) {
    std::string name = info.param;
    std::erase_if(name, [](char c) { return c == '(' || c == ')'; });
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, MenuEntry, testing::ValuesIn(entriesWithCommands()), plainName);

TEST_F(MenuEntries, everyEffectBelongsToAnEntry) {
    const std::vector<std::string> entries = entriesWithCommands();
    for (const auto& [key, effect] : effects()) {
        EXPECT_TRUE(std::ranges::find(entries, key) != entries.end()) << key;
    }
    EXPECT_GE(effects().size(), 42U);
}

TEST_F(MenuEntries, eachPlaceHasItsOwnMenu) {
    for (const auto& [element, root] :
         {std::pair(MainElement::iconIMG, "mnuMain"), std::pair(MainElement::Picture1, "vis"),
          std::pair(MainElement::playup, "")}) {
        rightClick(element);
        EXPECT_EQ(shownRoot(), root);
        closeMenus();
    }
    rightClick({10, 60, 2, 2}); // the background
    EXPECT_EQ(shownRoot(), "mnuMain");
    closeMenus();
    for (const auto& [mask, list] : {std::pair("10000", "List1"), std::pair("00100", "stdSS"),
                                     std::pair("00001", "RadioLst")}) {
        switchTo(mask);
        tick();
        QTest::mouseClick(control<ui::ListWidget>(list).viewport(), Qt::RightButton, {}, {20, 60});
        EXPECT_EQ(shownRoot(), "mnupls") << list;
        closeMenus();
    }
    for (const auto& [mask, element, root] :
         {std::tuple("01000", MainElement::presetbt, "mnuPreset"),
          std::tuple("00010", MainElement::ripperbt, "mnuRip")}) {
        switchTo(mask);
        const ui::Box box = real_->elements().get(element).box();
        QTest::mouseClick(&shown_->widget(), Qt::LeftButton, {},
                          {int(box.left + box.width / 2), int(box.top + box.height / 2)});
        ASSERT_EQ(shownRoot(), root);
        EXPECT_EQ(shownMenu()->pos(),
                  shown_->widget().mapToGlobal(QPoint(int(box.left), int(box.top + box.height))));
        closeMenus();
    }
}

TEST_F(MenuEntries, aKeyShowsTheMenuOfTheRowThatHasTheFocus) {
    switchTo("00100");
    auto& list = control<ui::ListWidget>("stdSS");
    QTest::keyClick(&list, Qt::Key_Down);
    ASSERT_EQ(real_->stdSS().SelectedIndex, 2);
    for (const auto& [key, modifiers] :
         {std::pair(Qt::Key_Menu, Qt::KeyboardModifiers()),
          std::pair(Qt::Key_F10, Qt::KeyboardModifiers(Qt::ShiftModifier))}) {
        QTest::keyClick(&list, key, modifiers);
        ASSERT_EQ(shownRoot(), "mnupls");
        const QPoint below =
            list.viewport()->mapToGlobal(list.cellPlace(1, 0).bottomLeft() + QPoint(0, 1));
        EXPECT_EQ(shownMenu()->pos(), below);
        closeMenus();
    }
    QTest::keyClick(&list, Qt::Key_Menu);
    QTest::keyClick(shownMenu(), Qt::Key_Down);
    QTest::keyClick(shownMenu(), Qt::Key_Return);
    settle();
    EXPECT_TRUE(plays("b.mp3"));
    QTest::keyClick(&control<QWidget>("Text4"), Qt::Key_Menu);
    EXPECT_EQ(shownRoot(), "mnuMain");
    closeMenus();
}

TEST_F(MenuEntries, anAcceleratorWinsOverTheKeysOfAListAndOfAFocusedElement) {
    play();
    model().ItemKeyAccel(model().IndexForKey("mnuplbitem1(4)"), "Del");
    auto& list = control<ui::ListWidget>("List1");
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_FALSE(state().IsPlaying);
    EXPECT_EQ(real_->stdSS().ListCount(), 3);
    model().ItemKeyAccel(model().IndexForKey("mnuplbitem1(4)"), "");
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(real_->stdSS().ListCount(), 2);

    QApplication::setActiveWindow(&shown_->widget());
    shown_->takeFocus();
    model().ItemKeyAccel(model().IndexForKey("mnuLoop"), "Right");
    const int volume = state().CurrentVolume;
    for (int step = 0; step < 40; ++step) {
        const bool before = state().RepeatOn;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        EXPECT_NE(state().RepeatOn, before) << step;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(state().CurrentVolume, volume);
}

TEST_F(MenuEntries, menusRunAsTheDesktopDoes) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    rightClick(MainElement::iconIMG);
    EXPECT_EQ(shownMenu()->layoutDirection(), Qt::RightToLeft);
    closeMenus();
    QApplication::setLayoutDirection(Qt::LeftToRight);
    rightClick(MainElement::iconIMG);
    EXPECT_EQ(shownMenu()->layoutDirection(), Qt::LeftToRight);
    closeMenus();
}

TEST_F(MenuEntries, theMarkOfStayingOnTopIsThatOfTheSetting) {
    EXPECT_FALSE(marked("mnuTop"));
    set("ASOT", "1"); // by hand
    EXPECT_TRUE(marked("mnuTop"));
    EXPECT_FALSE(shown_->widget().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    ASSERT_TRUE(choose("mnuTop"));
    EXPECT_EQ(setting("ASOT"), "0");
    EXPECT_FALSE(marked("mnuTop"));
}

TEST_F(MenuEntries, elapsedAndRemainingAreNeverMarkedTogether) {
    for (const char* const key : {"mnuRemaining", "mnuElapsed", "mnuRemaining"}) {
        ASSERT_TRUE(choose(key));
        EXPECT_EQ(marked("mnuRemaining"), key == std::string("mnuRemaining"));
        EXPECT_EQ(marked("mnuElapsed"), key == std::string("mnuElapsed"));
    }
}

TEST_F(MenuEntries, theMenuShowsThoughASettingIsMissingAndTheErrorIsLogged) {
    takeOut("ASOT");
    rightClick(MainElement::iconIMG);
    EXPECT_EQ(shownRoot(), "mnuMain");
    closeMenus();
    EXPECT_THAT(logged(), testing::SizeIs(1));
    EXPECT_TRUE(host_.dialogs.boxes.empty());
    ASSERT_TRUE(choose("mnuLoop"));
    EXPECT_TRUE(state().RepeatOn);
}

} // namespace
} // namespace tovik::test
