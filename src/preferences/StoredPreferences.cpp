// SPDX-License-Identifier: GPL-3.0-or-later
#include "preferences/StoredPreferences.h"

#include "base/Numbers.h"
#include "config/Fields.h"
#include "config/SettingText.h"
#include "player/ComfortSettings.h"

#include <array>

namespace tovik::preferences {

namespace {

using C = Control;

constexpr char kSeparator = ',';
constexpr std::string_view kNothing = "-1";
constexpr const char* kLanguageWithoutName = "English";

constexpr auto kTable = std::to_array<StoredRow>({
    {"X", Form::left},
    {"Y", Form::top},
    {"AP", Form::flag, C::Check9},
    {"ASOT", Form::flag, C::Check3},
    {"CLNG", Form::language, C::Combo3},
    {"CHKU", Form::flag, C::Check13},
    {"OSD", Form::flag, C::Check16},
    {"OSK", Form::flag, C::Check18},
    {"STI", Form::number, C::Slider3},
    {"VPS", Form::number, C::Slider4},
    {"MI", Form::flag, C::Check1},
    {"SHI", Form::twoDigits, C::Check4},
    {"CFD", Form::flag, C::Check7},
    {"CFDT", Form::number, C::Slider1_0},
    {"CFDN", Form::chosenNumber, C::Slider1_2},
    {"SLD", Form::flag, C::Check8},
    {"SLDT", Form::number, C::Slider1_1},
    {"SHF", Form::flag, C::Check10},
    {"AFS", Form::flag, C::Check6},
    {"DOF", Form::text, C::Combo1},
    {"EPRIO", Form::number, C::Combo2},
    {"ROP", Form::text, C::Label3},
    {"IROP", Form::text, C::Label1},
    {"MSN", Form::flag, C::Check17},
    {"EV2", Form::scheme, C::Check2},
    {"SFA", Form::places, C::List1},
    {"DOB", Form::rates, C::Slider2},
    {"DBR", Form::position, C::Slider2},
    {"SCD", Form::flag, C::Check12},
    {"ASO", Form::copy, C::Check6},
    {"RPT", Form::flag, C::Check11},
    {"CDSEARCH", Form::flag, C::Check14},
});

constexpr Control next(Control control) {
    return static_cast<Control>(static_cast<std::size_t>(control) + 1);
}

std::int32_t wholeNumber(std::string_view text) {
    return base::toInt32(base::textToNumber(text));
}

Ticks placesIn(std::string_view text) {
    Ticks ticks;
    const config::Fields fields(text, kSeparator);
    for (const std::string& field : fields.all()) {
        if (const std::int32_t place = wholeNumber(field);
            place >= 0 && place < static_cast<std::int32_t>(ticks.size())) {
            ticks.set(static_cast<std::size_t>(place));
        }
    }
    return ticks;
}

std::string textOf(const Ticks& ticks) {
    std::string text;
    for (std::size_t place = 0; place < ticks.size(); ++place) {
        if (ticks.test(place)) {
            text += (text.empty() ? "" : ",") + std::to_string(place);
        }
    }
    return text.empty() ? std::string(kNothing) : text;
}

/// A list that is too short leaves the other rates as they are.
Rates ratesIn(std::string_view text, Rates rates) {
    const config::Fields fields(text, kSeparator);
    for (std::size_t i = 0; i < rates.size() && i < fields.all().size(); ++i) {
        rates.at(i) = wholeNumber(fields.at(i));
    }
    return rates;
}

std::string textOf(const Rates& rates) {
    std::string text;
    for (const std::int32_t rate : rates) {
        text += (text.empty() ? "" : ",") + std::to_string(rate);
    }
    return text;
}

void take(const StoredRow& row, std::string_view text, PreferenceValues& values) {
    switch (row.form) {
    case Form::flag:
        values.setNumber(row.control, config::settingToFlag(text) ? 1 : 0);
        break;
    case Form::number:
    case Form::chosenNumber:
        values.setNumber(row.control, wholeNumber(text));
        break;
    case Form::position:
        if (!values.choosesRate()) {
            values.setNumber(row.control, wholeNumber(text));
        }
        break;
    case Form::text:
    case Form::language:
        values.setText(row.control, text);
        break;
    case Form::twoDigits:
        // One digit stands for both: the player reads the first, the tray the last.
        values.setNumber(row.control, text.starts_with('1') ? 1 : 0);
        values.setNumber(next(row.control), text.ends_with('1') ? 1 : 0);
        break;
    case Form::scheme:
        values.setNumber(row.control, wholeNumber(text) == 0 ? 1 : 0);
        break;
    case Form::places:
        values.setTypes(placesIn(text));
        break;
    case Form::rates:
        values.setRates(ratesIn(text, values.rates()));
        break;
    case Form::left:
    case Form::top:
    case Form::copy:
        break;
    }
}

std::string textFor(const StoredRow& row, const PreferenceValues& values) {
    const auto flag = [&](Control control) {
        return std::string(config::flagText(values.ticked(control)));
    };
    switch (row.form) {
    case Form::flag:
    case Form::copy:
        return flag(row.control);
    case Form::number:
    case Form::chosenNumber:
    case Form::position:
        return std::to_string(values.number(row.control));
    case Form::text:
        return values.text(row.control);
    case Form::language:
        return values.text(row.control).empty() ? kLanguageWithoutName : values.text(row.control);
    case Form::twoDigits:
        return flag(row.control) + flag(next(row.control));
    case Form::scheme:
        return flag(next(row.control));
    case Form::places:
        return textOf(values.types());
    case Form::rates:
        return textOf(values.rates());
    case Form::left:
    case Form::top:
        break;
    }
    return {};
}

/// A number beyond what its slider can show is still there where nobody moved the slider.
bool showsTheSame(const StoredRow& row, const std::string& kept, const PreferenceValues& values) {
    if (row.form != Form::number && row.form != Form::chosenNumber) {
        return false;
    }
    PreferenceValues shown;
    try {
        shown.setNumber(row.control, wholeNumber(kept));
    } catch (const base::RuntimeError&) {
        return false;
    }
    return shown.number(row.control) == values.number(row.control);
}

const player::SettingRow& settingOf(const StoredRow& row) {
    return player::kSettingTable.at(row.key.row);
}

} // namespace

std::span<const StoredRow> storedTable() noexcept {
    return kTable;
}

void readPreferences(config::Settings& settings, PreferenceValues& values) {
    settings.readSettings([&](const config::clsXML& xml) {
        values.setComfort(player::comfortIn(xml));
        for (const StoredRow& row : kTable) {
            const player::SettingRow& setting = settingOf(row);
            if (setting.owner == player::KeyOf::player &&
                !config::Settings::holds(xml, setting.key)) {
                if (row.form != Form::chosenNumber) {
                    values.setNumber(row.control, 0);
                }
                continue;
            }
            settings.converted(setting.key, settings.textOf(xml, setting.key),
                               [&](std::string_view text) { take(row, text, values); });
        }
    });
}

void writePreferences(config::Settings& settings, const PreferenceValues& values,
                      const std::optional<WindowPlace>& place) {
    settings.withSettings([&](config::clsXML& xml) {
        if (values.known(Control::Comfort_0) && values.comfort() != player::comfortIn(xml)) {
            player::putComfort(xml, values.comfort());
        }
        for (const StoredRow& row : kTable) {
            const player::SettingRow& setting = settingOf(row);
            if (row.form == Form::left || row.form == Form::top) {
                if (place) {
                    xml.WriteNode(
                        config::Settings::pathOf(setting.key),
                        std::to_string(row.form == Form::left ? place->left : place->top));
                }
            } else if (!values.known(row.control)) {
                continue;
            } else if (setting.owner == player::KeyOf::player &&
                       !config::Settings::holds(xml, setting.key)) {
                config::Settings::makeOrWrite(xml, setting.key, textFor(row, values));
            } else if (!showsTheSame(row, settings.textOf(xml, setting.key), values)) {
                settings.write(xml, setting.key, textFor(row, values));
            }
        }
    });
}

} // namespace tovik::preferences
