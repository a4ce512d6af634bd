// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/RuntimeError.h"
#include "support/host/TemporaryFolder.h"
#include "ui/cMemDC.h"
#include "window/frmTSR.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <set>

namespace tovik::window {
namespace {

using commands::CommandId;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

/// The menus of a window system, as far as a test wants to know.
class ShownMenus final : public menus::MenuFacility {
public:
    explicit ShownMenus(std::vector<std::string>& log, const menus::cMenus& model)
        : log_(log), model_(model) {}

    [[nodiscard]] menus::MenuHandle CreatePopupMenu(int parentId) override {
        parents_.push_back(parentId);
        return static_cast<menus::MenuHandle>(parents_.size());
    }

    void DestroyMenu(menus::MenuHandle /*menu*/) override {}

    void TrackPopupMenu(menus::MenuHandle menu,
                        const std::optional<menus::MenuPlace>& place) override {
        log_.push_back(model_.ItemKey(model_.IndexForID(parents_.at(menu - 1))) +
                       (place ? " below a box" : ""));
    }

private:
    std::vector<std::string>& log_;
    const menus::cMenus& model_;
    std::vector<int> parents_;
};

class MenuWindow final : public PlayerWindow {
public:
    [[nodiscard]] std::unique_ptr<menus::MenuFacility>
    makeMenus(const menus::cMenus& model, ui::MessageWindow& messages) override {
        ++made;
        window = &messages;
        return std::make_unique<ShownMenus>(shown, model);
    }

    int made = 0;
    ui::MessageWindow* window = nullptr;
    std::vector<std::string> shown;
};

struct Rows final : ui::ListModel, ui::ListInput {
    [[nodiscard]] std::size_t rows() const override { return 3; }

    [[nodiscard]] std::string text(std::size_t /*row*/) const override { return {}; }

    [[nodiscard]] std::optional<std::size_t> current() const override { return chosen; }

    [[nodiscard]] bool selected(std::size_t row) const override { return row == chosen; }

    [[nodiscard]] bool marked(std::size_t /*row*/) const override { return false; }

    void selectRow(std::size_t /*row*/, ui::Modifiers /*modifiers*/) override {}

    void activateRow(std::size_t row) override { log.push_back("start " + std::to_string(row)); }

    bool removeRows() override {
        log.emplace_back("remove");
        return true;
    }

    std::optional<std::size_t> chosen;
    std::vector<std::string> log;
};

struct TSR : testing::Test {
    TSR() {
        tsr.Form_Load();
        bind(CommandId::listPlay, [this] { tsr.mnuplsPlay(); });
        bind(CommandId::listDelete, [this] { tsr.mnuplsDel(); });
    }

    void bind(CommandId id, std::function<void()> run) {
        commands.bind(id, {.run = std::move(run),
                           .checked = [this, id] { return checked.contains(id); },
                           .enabled = {}});
    }

    [[nodiscard]] int at(std::string_view key) const { return tsr.m_Menus.IndexForKey(key); }

    void choose(std::string_view key) {
        tsr.popUp(MenuRoot::mnuMain);
        window.window->send({ui::messages::kCommand, tsr.m_Menus.ItemID(at(key))});
    }

    commands::Commands commands;
    config::MenuTexts texts;
    MenuWindow window;
    frmTSR tsr{commands, texts, window};
    std::set<CommandId> checked;
};

TEST_F(TSR, loadingMakesNoMenuOfTheWindowSystem) {
    EXPECT_EQ(window.made, 0);
    EXPECT_EQ(tsr.m_Menus.ItemCount(), static_cast<int>(commands::menuTree().size()));
    tsr.popUp(MenuRoot::mnuMain);
    tsr.popUp(MenuRoot::mnuRip, menus::MenuPlace{1, 2, 3, 4});
    tsr.popUp(MenuRoot::mnuPreset);
    tsr.popUp(MenuRoot::vis);
    tsr.popUp(MenuRoot::mnupls);
    EXPECT_EQ(window.made, 1);
    EXPECT_THAT(window.shown,
                ElementsAre("mnuMain", "mnuRip below a box", "mnuPreset", "vis", "mnupls"));
}

TEST_F(TSR, aWindowWithoutMenusAndAHostThatWasNotLoadedShowNone) {
    PlayerWindow bare;
    frmTSR other(commands, texts, bare);
    EXPECT_NO_THROW(other.popUp(MenuRoot::mnuMain));
    other.Form_Load();
    EXPECT_NO_THROW(other.popUp(MenuRoot::mnuMain));
    EXPECT_EQ(other.m_Menus.handle(other.m_Menus.IndexForKey("mnuMain")), 0U);
}

TEST_F(TSR, theNumbersOfTheLookAreSet) {
    EXPECT_EQ(tsr.m_Menus.DrawStyle, -2147483633);
    EXPECT_TRUE(tsr.m_Menus.ConsumeKeys);
    EXPECT_EQ(tsr.m_Menus.BackColor, 8388608);
    EXPECT_EQ(ui::cMemDC::TranslateColor(tsr.m_Menus.HighlightColor), (ui::Colour{128, 128, 192}));
}

TEST_F(TSR, everyEntryRunsItsCommand) {
    int ran = 0;
    for (const commands::MenuEntry& entry : commands::menuTree()) {
        if (entry.command == CommandId::none) {
            continue;
        }
        int times = 0;
        bind(entry.command, [&times] { ++times; });
        choose(entry.key());
        EXPECT_EQ(times, 1) << entry.key();
        ++ran;
    }
    EXPECT_EQ(ran, 51);
}

TEST_F(TSR, anEntryIsThereWhenItsCommandSaysSo) {
    bool shown = false;
    commands.bind(CommandId::undoList, {.run = [] {}, .shown = [&shown] { return shown; }});
    tsr.popUp(MenuRoot::mnupls);
    EXPECT_FALSE(tsr.m_Menus.ItemVisible(at("mnuplsUndo")));
    EXPECT_TRUE(tsr.m_Menus.ItemVisible(at("mnuplsDel")));
    shown = true;
    tsr.popUp(MenuRoot::mnupls);
    EXPECT_TRUE(tsr.m_Menus.ItemVisible(at("mnuplsUndo")));
}

TEST_F(TSR, whatHasNoTargetIsDisabled) {
    bind(CommandId::stop, [] {});
    tsr.popUp(MenuRoot::mnuMain);
    EXPECT_TRUE(tsr.m_Menus.ItemEnabled(at("mnuplbitem1(4)")));
    EXPECT_FALSE(tsr.m_Menus.ItemEnabled(at("mnuplbitem1(3)")));
    EXPECT_TRUE(tsr.m_Menus.ItemEnabled(at("mnuPlay"))) << "what opens a menu always does";
}

TEST_F(TSR, checkMarksAreSetJustBefore) {
    const std::vector<std::pair<CommandId, std::string>> marks = {
        {CommandId::repeat, "mnuLoop"},         {CommandId::shuffle, "mnuShuffle"},
        {CommandId::crossfade, "mnucrossfade"}, {CommandId::silenceSkip, "mnuSld"},
        {CommandId::timeElapsed, "mnuElapsed"}, {CommandId::timeRemaining, "mnuRemaining"},
        {CommandId::alwaysOnTop, "mnuTop"},     {CommandId::stopAfterCurrent, "mnuplbitem1(8)"}};
    for (const auto& [id, key] : marks) {
        bind(id, [] {});
        checked = {id};
        EXPECT_FALSE(tsr.m_Menus.ItemChecked(at(key))) << key << ": not before it is shown";
        tsr.popUp(MenuRoot::mnuMain);
        for (const auto& [other, otherKey] : marks) {
            EXPECT_EQ(tsr.m_Menus.ItemChecked(at(otherKey)), other == id) << otherKey;
        }
        checked.clear();
        window.window->send({ui::messages::kInitMenuPopup, tsr.m_Menus.ItemParentID(at(key))});
        EXPECT_FALSE(tsr.m_Menus.ItemChecked(at(key)));
    }
    EXPECT_EQ(tsr.m_Menus.ItemCheckedStyle(at("mnuElapsed")), menus::CheckedStyle::Radio);
    EXPECT_EQ(tsr.m_Menus.ItemCheckedStyle(at("mnuLoop")), menus::CheckedStyle::Check);
}

TEST_F(TSR, onlyWhatIsToBeSeenIsAsked) {
    int asked = 0;
    commands.bind(CommandId::alwaysOnTop, {.run = [] {},
                                           .checked =
                                               [&] {
                                                   ++asked;
                                                   return false;
                                               },
                                           .enabled = {}});
    for (const MenuRoot root : {MenuRoot::mnuRip, MenuRoot::mnuPreset, MenuRoot::vis}) {
        tsr.popUp(root);
    }
    tsr.m_Menus.ItemKeyAccel(at("mnuExit"), "Ctrl+Q");
    tsr.m_Menus.KeyAccelPressed('Q', 2);
    tsr.showWords();
    EXPECT_EQ(asked, 0);
    tsr.popUp(MenuRoot::mnuMain);
    EXPECT_EQ(asked, 1);
}

TEST_F(TSR, anEntryThatCannotTellItsStateKeepsNoOtherBack) {
    int exits = 0;
    bind(CommandId::exit, [&] { ++exits; });
    bind(CommandId::repeat, [] {});
    checked = {CommandId::repeat};
    commands.bind(
        CommandId::alwaysOnTop,
        {.run = [] {},
         .checked = []() -> bool { throw base::RuntimeError(base::ErrorNumber::InvalidUseOfNull); },
         .enabled = {}});
    EXPECT_THROW(tsr.popUp(MenuRoot::mnuMain), base::RuntimeError);
    EXPECT_THAT(window.shown, ElementsAre("mnuMain")) << "it is shown all the same";
    EXPECT_TRUE(tsr.m_Menus.ItemChecked(at("mnuLoop")));
    tsr.popUp(MenuRoot::mnupls);
    window.window->send({ui::messages::kInitMenuPopup, tsr.m_Menus.ItemID(at("mnuOptions"))});
    tsr.m_Menus.ItemKeyAccel(at("mnuExit"), "Ctrl+Q");
    EXPECT_TRUE(tsr.m_Menus.KeyAccelPressed('Q', 2));
    EXPECT_EQ(exits, 1);
}

TEST_F(TSR, captionsFollowTheLanguage) {
    texts.setText("mnuAbout", 0, config::TextKind::Caption, "O programu");
    texts.setText("mnuplbitem1", 7, config::TextKind::Caption, "Zbledi");
    tsr.popUp(MenuRoot::mnuMain);
    EXPECT_EQ(tsr.m_Menus.ItemCaption(at("mnuAbout")), "O programu");
    EXPECT_EQ(tsr.m_Menus.ItemCaption(at("mnuplbitem1(7)")), "Zbledi");
    EXPECT_EQ(tsr.m_Menus.ItemCaption(at("mnuExit")), "Exit");
}

TEST_F(TSR, keysOfTheMapStandBesideTheirEntries) {
    const auto key = [this](std::string_view entry) {
        return tsr.m_Menus.item(at(entry)).fixedKey;
    };
    EXPECT_EQ(key("mnuplbitem1(4)"), "V");
    EXPECT_EQ(key("mnuExit"), "Alt+X");
    EXPECT_EQ(key("mnuFile"), "Ctrl+F");
    EXPECT_EQ(key("mnuplbitem1(13)"), "Num1");
    EXPECT_EQ(key("mnuTop"), "");
    EXPECT_EQ(key("mnuPlay"), "");
}

struct Drive {
    std::string_view letters;
    std::vector<std::string> captions;
};

TEST_F(TSR, drivesAreOfferedUpToTheFifth) {
    for (const Drive& drive :
         {Drive{"", {}}, Drive{"d", {"Audio CD D:"}}, Drive{"d|e", {"Audio CD D:", "Audio CD E:"}},
          Drive{"a|b|c|d|e|f",
                {"Audio CD A:", "Audio CD B:", "Audio CD C:", "Audio CD D:", "Audio CD E:"}}}) {
        tsr.showDrives(drive.letters);
        std::vector<std::string> offered;
        for (int number = 1; number <= 5; ++number) {
            const int index = at("mnuDevice" + std::to_string(number));
            if (tsr.m_Menus.ItemVisible(index)) {
                offered.push_back(tsr.m_Menus.ItemCaption(index));
            }
        }
        EXPECT_EQ(offered, drive.captions) << drive.letters;
        EXPECT_EQ(tsr.m_Menus.ItemVisible(at("mnublank2")), !offered.empty());
    }
}

TEST_F(TSR, drivesAreNamedInTheLanguage) {
    tsr.showDrives("d||e");
    EXPECT_EQ(tsr.m_Menus.ItemCaption(at("mnuDevice2")), "Audio CD E:");
    texts.setText("mnuDevice", 0, config::TextKind::Caption, "Zvočni CD");
    tsr.popUp(MenuRoot::mnuMain);
    EXPECT_EQ(tsr.m_Menus.ItemCaption(at("mnuDevice1")), "Zvočni CD D:");
}

TEST_F(TSR, pluginsWithANameGetAnEntry) {
    tsr.addVisualisations(std::vector<std::string>{"Waves", "", "Stars"});
    EXPECT_EQ(tsr.m_Menus.ItemCaption(at("sp(3)")), "Waves");
    EXPECT_EQ(at("sp(4)"), 0);
    EXPECT_EQ(tsr.m_Menus.ItemCaption(at("sp(5)")), "Stars");
    EXPECT_EQ(tsr.m_Menus.ItemParentIndex(at("sp(5)")), at("vis"));
}

TEST_F(TSR, entriesOfPluginsChooseByTheirNumberAndShowWhichIsChosen) {
    int chosen = -1;
    int wanted = 0;
    tsr.bindVisualisations({.choose = [&](int number) { chosen = number; },
                            .chosen = [&](int number) { return number == chosen; },
                            .wanted = [&] { ++wanted; }});
    tsr.popUp(window::MenuRoot::vis);
    EXPECT_EQ(wanted, 1);
    tsr.popUp(window::MenuRoot::mnuRip);
    EXPECT_EQ(wanted, 1);
    tsr.addVisualisations(std::vector<std::string>{"Waves", "", "Stars"});
    EXPECT_TRUE(tsr.m_Menus.ItemEnabled(at("sp(3)")));
    choose("sp(5)");
    EXPECT_EQ(chosen, 2);
    tsr.popUp(window::MenuRoot::vis);
    EXPECT_FALSE(tsr.m_Menus.ItemChecked(at("sp(3)")));
    EXPECT_TRUE(tsr.m_Menus.ItemChecked(at("sp(5)")));
    choose("sp(3)");
    EXPECT_EQ(chosen, 0);
}

TEST_F(TSR, theMenuOfAListActsOnThatList) {
    Rows one;
    Rows other;
    other.chosen = 2;
    tsr.popUpFor({&other, &other});
    choose("mnuplsPlay");
    choose("mnuplsDel");
    EXPECT_THAT(other.log, ElementsAre("start 2", "remove"));
    EXPECT_EQ(window.shown.front(), "mnupls");
    tsr.popUpFor({&one, &one});
    EXPECT_FALSE(tsr.listHasSelection());
    choose("mnuplsPlay");
    choose("mnuplsDel");
    one.chosen = 3;
    EXPECT_FALSE(tsr.listHasSelection()) << "a row that is gone";
    EXPECT_THAT(one.log, IsEmpty());
}

TEST_F(TSR, withoutAListNothingHappens) {
    tsr.mnuplsPlay();
    tsr.mnuplsDel();
    EXPECT_FALSE(tsr.listHasSelection());
}

struct TSRShortcuts : TSR {
    test::TemporaryFolder folder;
    std::string file = folder / "shortcuts.dat";
};

TEST_F(TSRShortcuts, areWrittenOnlyWhenOneWasChanged) {
    tsr.loadShortcuts(file);
    EXPECT_TRUE(tsr.keepsShortcuts());
    tsr.saveShortcuts(file);
    EXPECT_FALSE(std::filesystem::exists(file));
    tsr.m_Menus.ItemKeyAccel(at("mnuExit"), "Ctrl+Q");
    tsr.saveShortcuts(file);
    EXPECT_NE(folder.read("shortcuts.dat").find("K\0mnuExit\0Ctrl+Q\0"s), std::string::npos);
    frmTSR other(commands, texts, window);
    other.Form_Load();
    other.loadShortcuts(file);
    EXPECT_EQ(other.m_Menus.ItemKeyAccel(at("mnuExit")), "Ctrl+Q");
    folder.write("shortcuts.dat", "untouched");
    other.saveShortcuts(file);
    EXPECT_EQ(folder.read("shortcuts.dat"), "untouched");
}

TEST_F(TSRShortcuts, ofAForeignFileAreLeftAsTheyAre) {
    folder.write("shortcuts.dat", "something else");
    EXPECT_THROW(tsr.loadShortcuts(file), base::RuntimeError);
    tsr.m_Menus.ItemKeyAccel(at("mnuExit"), "Ctrl+Q");
    EXPECT_FALSE(tsr.keepsShortcuts());
    tsr.saveShortcuts(file);
    EXPECT_EQ(folder.read("shortcuts.dat"), "something else");
    EXPECT_THROW(tsr.loadShortcuts(folder.path()), base::RuntimeError);
    tsr.saveShortcuts(file);
    EXPECT_EQ(folder.read("shortcuts.dat"), "something else");
}

} // namespace
} // namespace tovik::window
