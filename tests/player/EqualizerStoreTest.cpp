// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/EqualizerFiles.h"
#include "player/EqualizerRig.h"
#include "player/frmLoadPreset.h"
#include "support/host/SettingPlace.h"

namespace tovik::test {
namespace {

using PresetButton = player::frmLoadPreset::Button;
using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kSettings = "db/settings.xml";
constexpr const char* kPresets = "<Presets><MAX_ID>3</MAX_ID>"
                                 "<ID1 Name=\"Flat\" Value=\"0/0/0/0/0/0/0/0/0/0\"/>"
                                 "<ID2 Name=\"Steps\" Value=\"12/10.8/9.6/8.4/7.2/6/4/-2/-9/-12\"/>"
                                 "<ID3 Name=\"Short\" Value=\"6/6\"/></Presets>";

class EqualizerStore : public EqualizerRig {
protected:
    void write(const std::string& elements) const {
        host_.folder.write(kSettings,
                           "<?xml version=\"1.0\"?>\n<Settings>" + elements + "</Settings>\n");
    }

    /// Settings with that curve and a master in the middle.
    void writeCurve(const std::string& curve) const {
        write("<CEQ Value=\"" + curve + "\"/><CDB>0</CDB>");
    }

    template <typename Operation>
    static int numberOf(const Operation& operation) {
        try {
            operation();
        } catch (const base::RuntimeError& error) {
            return error.number();
        }
        return 0;
    }

    [[nodiscard]] std::string teq(const std::string& curve) const {
        return host_.folder.write("curve.teq",
                                  "<EQ>\n<Save Name=\"any\" Value=\"" + curve + "\"/>\n</EQ>\n");
    }
};

// The settings ------------------------------------------------------------------------------------

TEST_F(EqualizerStore, everyValueOfEverySliderSurvivesSaveAndLoad) {
    writeCurve("0/0/0/0/0/0/0/0/0/0");
    for (std::int32_t first = 0; first <= 20; ++first) {
        Sliders values{};
        for (std::size_t band = 0; band < values.size(); ++band) {
            values.at(band) = (first + 2 * static_cast<std::int32_t>(band)) % 21;
        }
        put(values);
        master(20 - first);
        store_.autosave_eq();
        store_.autosave_db();
        putAll(10);
        master(10);
        store_.autoload_eq();
        store_.autoload_db();
        EXPECT_EQ(sliders(), values);
        EXPECT_EQ(master(), 20 - first);
    }
}

TEST_F(EqualizerStore, gainsAreWrittenAsDecibels) {
    writeCurve("");
    put({0, 3, 9, 10, 11, 13, 17, 18, 19, 20});
    master(3);
    store_.autosave_eq();
    store_.autosave_db();
    EXPECT_EQ(host_.folder.read(kSettings),
              "<?xml version=\"1.0\"?>\n<Settings><CEQ "
              "Value=\"12/8.4/1.2/0/-1.2/-3.6/-8.4/-9.6/-10.8/-12\"/><CDB>8.4</CDB></Settings>\n");
}

TEST_F(EqualizerStore, aLoadedCurveIsHeard) {
    equalizer_.Set_EQ();
    writeCurve("12/0/0/0/0/0/0/0/0/-12");
    store_.autoload_eq();
    EXPECT_EQ(gains().front(), 10.0F);
    EXPECT_EQ(gains().back(), -10.0F);
    write("<CDB>12</CDB>");
    store_.autoload_db();
    EXPECT_EQ(gains().front(), 20.0F);
    EXPECT_EQ(gains()[5], 10.0F);
}

TEST_F(EqualizerStore, anEmptyCurveLeavesTheSliders) {
    putAll(4);
    for (const char* elements : {"<CEQ Value=\"\"/>", "<CEQ/>", ""}) {
        write(elements);
        store_.autoload_eq();
        EXPECT_THAT(sliders(), Each(4)) << elements;
    }
    EXPECT_THAT(logged(), IsEmpty());
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(EqualizerStore, aDamagedCurveIsTakenAsFarAsItGoes) {
    writeCurve("6/6/loud/6/6/6/6/6/6/6");
    store_.autoload_eq();
    EXPECT_THAT(sliders(), ElementsAre(5, 5, 10, 10, 10, 10, 10, 10, 10, 10));
    EXPECT_THAT(host_.dialogs.boxes, IsEmpty());
}

TEST_F(EqualizerStore, aDamagedCurveIsAnsweredAndStaysUntilASliderMoves) {
    for (const auto& [curve, number] : {std::pair{"6/6/loud/6/6/6/6/6/6/6", 13}, {"6/6", 9}}) {
        writeCurve(curve);
        const std::string before = host_.folder.read(kSettings);
        const auto damage = store_.autoload_eq();
        ASSERT_TRUE(damage);
        EXPECT_EQ(damage->number(), number);
        EXPECT_TRUE(damage->description().ends_with(settingPlace(host_.folder, "CEQ", curve)));
        store_.autosave_eq();
        EXPECT_EQ(host_.folder.read(kSettings), before);
        equalizer_.eq_sld(9, 0);
        store_.autosave_eq();
        EXPECT_NE(host_.folder.read(kSettings), before);
        EXPECT_FALSE(store_.autoload_eq());
        putAll(10);
        store_.autosave_eq();
        EXPECT_THAT(host_.folder.read(kSettings), testing::HasSubstr("0/0/0/0/0/0/0/0/0/0"));
    }
}

TEST_F(EqualizerStore, aGainBeyondTheSliderIsRefusedAndTheNextOnesCount) {
    writeCurve("6/13/6/-13/6/6/6/6/6/12");
    store_.autoload_eq();
    EXPECT_THAT(sliders(), ElementsAre(5, 10, 5, 10, 5, 5, 5, 5, 5, 0));
    ASSERT_THAT(host_.dialogs.boxes, SizeIs(2));
    EXPECT_EQ(host_.dialogs.boxes[0].text, "Value exceeds limits!");
}

TEST_F(EqualizerStore, theMasterOfAMissingOrBadSettingIsAnError) {
    master(4);
    write("");
    EXPECT_EQ(numberOf([this] { store_.autoload_db(); }), 94);
    write("<CDB>loud</CDB>");
    EXPECT_EQ(numberOf([this] { store_.autoload_db(); }), 13);
    EXPECT_EQ(master(), 4);
}

TEST_F(EqualizerStore, aKeyThatTheFileLacksIsNotMade) {
    write("");
    store_.autosave_eq();
    store_.autosave_db();
    EXPECT_EQ(host_.folder.read(kSettings), "<?xml version=\"1.0\"?>\n<Settings/>\n");
}

// Files -------------------------------------------------------------------------------------------

TEST_F(EqualizerStore, theFourLinesOfAFile) {
    put({0, 3, 9, 10, 11, 13, 17, 18, 19, 20});
    host_.folder.write("my.teq", "what stood here before, and longer than the new file is"
                                 "........................................................"
                                 "........................................................");
    store_.save_teq(host_.folder / "my.teq");
    EXPECT_EQ(host_.folder.read("my.teq"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\r\n"
              "<EQ>\r\n"
              "<Save Name=\"Tovik EQ  file\" "
              "Value=\"12/8.4/1.2/0/-1.2/-3.6/-8.4/-9.6/-10.8/-12\"/>\r\n"
              "</EQ>\r\n");
}

TEST_F(EqualizerStore, everyValueSurvivesAFile) {
    for (std::int32_t value = 0; value <= 20; ++value) {
        putAll(value);
        master(3);
        store_.save_teq(host_.folder / "my.teq");
        putAll(10);
        store_.load_teq(host_.folder / "my.teq");
        EXPECT_THAT(sliders(), Each(value));
        EXPECT_EQ(master(), 3) << "no file holds the master";
    }
}

TEST_F(EqualizerStore, aFileWithFewerGainsSetsThoseItHas) {
    EXPECT_EQ(numberOf([this] { store_.load_teq(teq("6/-6/12")); }), 9);
    EXPECT_THAT(sliders(), ElementsAre(5, 15, 0, 10, 10, 10, 10, 10, 10, 10));
}

TEST_F(EqualizerStore, gainsBehindTheTenthAreNotRead) {
    store_.load_teq(teq("6/6/6/6/6/6/6/6/6/6/loud"));
    EXPECT_THAT(sliders(), Each(5));
}

TEST_F(EqualizerStore, aFileThatIsNoneLeavesTheSliders) {
    putAll(4);
    for (const std::string& path :
         {host_.folder / "missing.teq", host_.folder.write("no.teq", "no XML at all"),
          host_.folder.write("other.teq", "<EQ><Other Value=\"1\"/></EQ>"),
          host_.folder.write("bare.teq", "<EQ><Save/></EQ>")}) {
        EXPECT_EQ(numberOf([&] { store_.load_teq(path); }), 94) << path;
    }
    EXPECT_EQ(numberOf([this] { store_.load_teq(teq("")); }), 9);
    EXPECT_EQ(numberOf([this] { store_.load_teq(teq("loud")); }), 13);
    EXPECT_THAT(sliders(), Each(4));
}

TEST_F(EqualizerStore, aFileThatCannotBeWrittenIsAnError) {
    EXPECT_EQ(numberOf([this] { store_.save_teq(host_.folder / "no such folder/my.teq"); }), 76);
}

TEST_F(EqualizerStore, theDialogsAskForTheFiles) {
    player::EqualizerFiles files(host_.dialogs, store_);
    putAll(4);
    host_.dialogs.filesToSave = {host_.folder / "my.teq"};
    files.save_teq();
    putAll(10);
    host_.dialogs.filesToOpen = {{host_.folder / "my.teq"}};
    files.load_teq();
    EXPECT_THAT(sliders(), Each(4));
    ASSERT_THAT(host_.dialogs.saveDialogs, SizeIs(1));
    ASSERT_THAT(host_.dialogs.openDialogs, SizeIs(1));
    for (const host::FileDialog& dialog :
         {host_.dialogs.saveDialogs[0], host_.dialogs.openDialogs[0]}) {
        ASSERT_THAT(dialog.filters, SizeIs(1));
        EXPECT_EQ(dialog.filters[0].name, "TEQ File (*.teq)");
        EXPECT_THAT(dialog.filters[0].patterns, ElementsAre("*.teq"));
        EXPECT_EQ(dialog.defaultExtension, "teq");
        EXPECT_FALSE(dialog.manyFiles);
    }
}

TEST_F(EqualizerStore, aCancelledDialogDoesNothing) {
    player::EqualizerFiles files(host_.dialogs, store_);
    putAll(4);
    files.save_teq();
    files.load_teq();
    EXPECT_THAT(sliders(), Each(4));
}

// Presets -----------------------------------------------------------------------------------------

class LoadPreset : public EqualizerStore {
protected:
    LoadPreset() { write(kPresets); }

    player::frmLoadPreset dialog_{store_};
};

TEST_F(LoadPreset, theNamesStandInTheirOrder) {
    dialog_.Form_Load();
    EXPECT_THAT(dialog_.List1(), ElementsAre("Flat", "Steps", "Short"));
    dialog_.Form_Load();
    EXPECT_THAT(dialog_.List1(), SizeIs(3)) << "not twice";
}

TEST_F(LoadPreset, onlyAsManyAsAreCounted) {
    write("<Presets><MAX_ID>1</MAX_ID><ID1 Name=\"One\" Value=\"\"/><ID2 Name=\"Two\" "
          "Value=\"\"/></Presets>");
    dialog_.Form_Load();
    EXPECT_THAT(dialog_.List1(), ElementsAre("One"));
}

TEST_F(LoadPreset, aMissingOneEndsTheList) {
    write("<Presets><MAX_ID>3</MAX_ID><ID1 Name=\"One\" Value=\"\"/></Presets>");
    EXPECT_EQ(numberOf([this] { dialog_.Form_Load(); }), 94);
    EXPECT_THAT(dialog_.List1(), ElementsAre("One"));
    write("");
    EXPECT_EQ(numberOf([this] { dialog_.Form_Load(); }), 94);
    EXPECT_THAT(dialog_.List1(), IsEmpty());
}

TEST_F(LoadPreset, theSelectedRowIsAppliedAndTheDialogCloses) {
    EXPECT_TRUE(dialog_.Command1_Click(PresetButton::load, 1));
    EXPECT_THAT(sliders(), ElementsAre(0, 1, 2, 3, 4, 5, 7, 12, 18, 20));
    EXPECT_TRUE(dialog_.Command1_Click(PresetButton::load, 0));
    EXPECT_THAT(sliders(), Each(10));
}

TEST_F(LoadPreset, applyLeavesTheDialogOpenAndCancelTheSliders) {
    EXPECT_FALSE(dialog_.Command1_Click(PresetButton::apply, 1));
    EXPECT_EQ(sliders()[0], 0);
    EXPECT_TRUE(dialog_.Command1_Click(PresetButton::cancel, 0));
    EXPECT_EQ(sliders()[0], 0);
}

TEST_F(LoadPreset, withoutARowNothingHappens) {
    putAll(4);
    EXPECT_FALSE(dialog_.Command1_Click(PresetButton::load, -1));
    EXPECT_FALSE(dialog_.Command1_Click(PresetButton::apply, -1));
    EXPECT_TRUE(dialog_.Command1_Click(PresetButton::cancel, -1));
    EXPECT_THAT(sliders(), Each(4));
}

TEST_F(LoadPreset, aPresetWithFewerGainsSetsThoseItHas) {
    EXPECT_EQ(numberOf([this] { dialog_.Command1_Click(PresetButton::load, 2); }), 9);
    EXPECT_THAT(sliders(), ElementsAre(5, 5, 10, 10, 10, 10, 10, 10, 10, 10));
}

TEST_F(LoadPreset, readingPresetsChangesNothingInTheFile) {
    const std::string before = host_.folder.read(kSettings);
    dialog_.Form_Load();
    dialog_.Command1_Click(PresetButton::load, 1);
    EXPECT_EQ(host_.folder.read(kSettings), before);
}

} // namespace
} // namespace tovik::test
