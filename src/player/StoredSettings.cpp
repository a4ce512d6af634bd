// SPDX-License-Identifier: GPL-3.0-or-later
#include "player/StoredSettings.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "config/SettingText.h"

#include <type_traits>
#include <utility>

namespace tovik::player {

namespace {

/// Calls `use` with the row's member of the state.
template <typename State, typename Use>
void useMember(State& state, const SettingRow& row, const Use& use) {
    std::visit(
        [&](auto member) {
            if constexpr (std::is_same_v<decltype(member), NoMember>) {
                return;
            } else {
                use(state.*member);
            }
        },
        row.member);
}

/// Converts a text into the value that it stands for.
struct Take {
    SettingKind kind;
    std::string_view text;

    void operator()(bool& value) const { value = config::settingToFlag(text); }

    void operator()(std::int16_t& value) const {
        value = config::settingToInt16(kind == SettingKind::firstDigit ? text.substr(0, 1) : text);
    }

    /// A window on the right of a wide desktop is further away than 16 bits can tell.
    void operator()(std::int32_t& value) const { value = base::toInt32(base::textToNumber(text)); }

    void operator()(std::string& value) const { value = text; }
};

/// The text for a value.
struct Give {
    SettingKind kind;
    std::string& text;

    void operator()(bool value) const {
        text = kind == SettingKind::panelFlag ? (value ? "1" : "2") : config::flagText(value);
    }

    void operator()(std::int32_t value) const { text = std::to_string(value); }

    void operator()(const std::string& value) const { text = value; }
};

} // namespace

StoredSettings::StoredSettings(config::Settings& settings, PlayerState& state,
                               host::TimerFactory& timers)
    : settings_(settings), state_(state), rest_(timers.makeTimer([this] { writeRested(); })) {
    rest_->setInterval(kRestMs);
    settings_.reportChanged([this](std::string_view key) { noteChange(key); });
}

StoredSettings::~StoredSettings() {
    settings_.reportChanged(nullptr);
}

void StoredSettings::getSettings() {
    settings_.readSettings([&](const config::clsXML& xml) {
        for (std::size_t row = 0; row < kSettingTable.size(); ++row) {
            if (inGroup(kSettingTable.at(row).read)) {
                readRow(xml, row);
            }
        }
    });
}

void StoredSettings::read(SettingKey key) {
    settings_.readSettings([&](const config::clsXML& xml) { readRow(xml, key.row); });
}

void StoredSettings::readRow(const config::clsXML& xml, std::size_t row) {
    const SettingRow& setting = kSettingTable.at(row);
    if (setting.owner == KeyOf::format || config::Settings::holds(xml, setting.key)) {
        settings_.converted(setting.key, settings_.textOf(xml, setting.key),
                            [&](std::string_view text) {
                                useMember(state_, setting, Take{setting.kind, text});
                            });
    }
    known_.set(row);
}

void StoredSettings::save(SettingKey key) {
    settings_.withSettings([&](config::clsXML& xml) { write(xml, key.row); });
    known_.set(key.row);
    changing_.reset(key.row);
}

void StoredSettings::saveBehind(SettingKey key) {
    settings_.writeBehind([&](config::clsXML& xml) { write(xml, key.row); });
    known_.set(key.row);
    changing_.reset(key.row);
}

void StoredSettings::saveAtEnd() {
    rest_->setEnabled(false);
    changing_.reset();
    if (known_.none()) {
        return;
    }
    settings_.withSettings([&](config::clsXML& xml) {
        for (std::size_t row = 0; row < kSettingTable.size(); ++row) {
            if (known_.test(row) && kSettingTable.at(row).saved != SavedAt::demand &&
                !keepers_.at(row)) {
                write(xml, row);
            }
        }
    });
}

void StoredSettings::write(config::clsXML& xml, std::size_t row) const {
    if (keepers_.at(row)) {
        keepers_.at(row)(xml);
        return;
    }
    const SettingRow& setting = kSettingTable.at(row);
    std::string text;
    useMember(state_, setting, Give{setting.kind, text});
    if (setting.owner == KeyOf::player) {
        config::Settings::makeOrWrite(xml, setting.key, text);
    } else {
        settings_.write(xml, setting.key, text);
    }
}

void StoredSettings::keptBy(SettingKey key, Keeper write) {
    keepers_.at(key.row) = std::move(write);
    known_.set(key.row);
}

void StoredSettings::noteChange(std::string_view key) {
    for (std::size_t row = 0; row < kSettingTable.size(); ++row) {
        const SettingRow& setting = kSettingTable.at(row);
        if (setting.key == key && setting.saved == SavedAt::rest && known_.test(row)) {
            changing_.set(row);
            rest_->setEnabled(true); // once more from the start: it rests from the last change on
        }
    }
}

void StoredSettings::writeRested() {
    rest_->setEnabled(false);
    settings_.writeBehind([&](config::clsXML& xml) {
        for (std::size_t row = 0; row < kSettingTable.size(); ++row) {
            if (changing_.test(row)) {
                write(xml, row);
            }
        }
    });
    changing_.reset();
}

} // namespace tovik::player
