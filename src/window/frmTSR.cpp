// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/frmTSR.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "commands/ClsShortcut.h"
#include "config/Fields.h"
#include "menus/Accelerator.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace tovik::window {

namespace {

using commands::CommandId;
using commands::CommandKind;
using commands::MenuEntry;

constexpr std::array kRoots = {"mnuMain", "mnuRip", "mnuPreset", "vis", "mnupls"};

constexpr std::array kDevices = {"mnuDevice1", "mnuDevice2", "mnuDevice3", "mnuDevice4",
                                 "mnuDevice5"};
constexpr std::string_view kLineBelowDevices = "mnublank2";
constexpr std::string_view kDevice = "mnuDevice"; ///< by which languages know all of them
constexpr const char* kDeviceCaption = "Audio CD";

constexpr std::string_view kVisual = "sp";
constexpr int kFirstPlugin = 3; ///< the index of the first entry of a plug-in

constexpr std::int32_t kButtonFace = -2147483633;
constexpr std::int32_t kNavy = 8388608;
constexpr std::int32_t kPeriwinkle = 12615808;

std::vector<menus::FormMenu> form() {
    std::vector<menus::FormMenu> entries;
    for (const MenuEntry& entry : commands::menuTree()) {
        entries.push_back({.depth = entry.depth,
                           .key = entry.key(),
                           .caption = std::string(entry.words()),
                           .separator = entry.separator});
    }
    return entries;
}

} // namespace

frmTSR::frmTSR(const commands::Commands& commands, const config::MenuTexts& texts,
               PlayerWindow& window)
    : commands_(commands), texts_(texts), window_(window),
      messages_([this](const ui::WindowMessage& message) {
          if (message.number == ui::messages::kInitMenuPopup) {
              // Who showed the menu has told of an error by now; a command raises its own.
              showWords();
              refreshBelow(m_Menus.IndexForID(static_cast<int>(message.wParam)), false);
          }
          return ui::MessageResult{0};
      }) {}

frmTSR::~frmTSR() {
    m_Menus.destroyMenus();
}

void frmTSR::Form_Load() {
    const std::vector<menus::FormMenu> entries = form();
    m_Menus.CreateFromForm(messages_, entries);
    m_Menus.DrawStyle = kButtonFace;
    m_Menus.ConsumeKeys = kPeriwinkle != 0;
    m_Menus.HighlightColor = kPeriwinkle;
    m_Menus.BackColor = kNavy;
    m_Menus.ImageList = window_.menuImages();
    m_Menus.SystemColour = [this](int number) { return window_.systemColour(number); };
    for (const MenuEntry& entry : commands::menuTree()) {
        const int index = m_Menus.IndexForKey(entry.key());
        entries_.emplace(entry.key(), &entry);
        m_Menus.ItemImage(index, entry.image);
        if (entry.command != CommandId::none) {
            const CommandKind kind = commands::commandOf(entry.command).kind;
            m_Menus.ItemCheckable(index, kind != CommandKind::action);
            m_Menus.ItemCheckedStyle(index, kind == CommandKind::choice
                                                ? menus::CheckedStyle::Radio
                                                : menus::CheckedStyle::Check);
        }
    }
    fillFixedKeys();
    showDrives({});
    m_Menus.onClick([this](int index) {
        const auto found = entries_.find(m_Menus.ItemKey(index));
        if (found != entries_.end()) {
            commands_.run(found->second->command);
        } else if (const auto plugin = plugins_.find(m_Menus.ItemKey(index));
                   plugin != plugins_.end() && visualisations_.choose) {
            visualisations_.choose(plugin->second);
        }
    });
}

void frmTSR::fillFixedKeys() {
    const auto map = commands::ClsShortcut::map();
    for (const auto& [key, entry] : entries_) {
        const auto row =
            std::ranges::find(map, entry->command, &commands::ClsShortcut::Shortcut::command);
        if (entry->command != CommandId::none && row != map.end()) {
            m_Menus.ItemFixedKey(
                m_Menus.IndexForKey(key),
                menus::acceleratorText({.keyCode = row->keyCode, .shift = row->shift}));
        }
    }
}

void frmTSR::loadShortcuts(const std::string& fileName) {
    shortcutsForeign_ = true;
    if (!m_Menus.LoadShortcuts(fileName)) {
        std::error_code failure;
        if (!std::filesystem::exists(fileName, failure)) {
            shortcutsForeign_ = false;
            return;
        }
        throw base::RuntimeError(base::ErrorNumber::DeviceIoError,
                                 fileName + " is no file of shortcuts; it is left as it is");
    }
    shortcutsForeign_ = false;
}

void frmTSR::saveShortcuts(const std::string& fileName) {
    if (m_Menus.acceleratorsChanged() && !shortcutsForeign_) {
        m_Menus.SaveShortcuts(fileName);
    }
}

void frmTSR::showDrives(std::string_view letters) {
    drives_.clear();
    const config::Fields fields(letters, '|');
    for (const std::string& letter : fields.all()) {
        if (!letter.empty() && drives_.size() < kDevices.size()) {
            drives_.push_back(base::toUpperAscii(letter));
        }
    }
    for (std::size_t number = 0; number < kDevices.size(); ++number) {
        m_Menus.ItemVisible(m_Menus.IndexForKey(kDevices.at(number)), number < drives_.size());
    }
    m_Menus.ItemVisible(m_Menus.IndexForKey(kLineBelowDevices), !drives_.empty());
    nameDrives();
}

void frmTSR::nameDrives() {
    const std::string word = texts_.has(kDevice) ? texts_.caption(kDevice) : kDeviceCaption;
    for (std::size_t number = 0; number < drives_.size(); ++number) {
        m_Menus.ItemCaption(m_Menus.IndexForKey(kDevices.at(number)),
                            word + " " + drives_[number] + ":");
    }
}

void frmTSR::addVisualisations(std::span<const std::string> names) {
    const int vis = m_Menus.IndexForKey(kRoots.at(static_cast<std::size_t>(MenuRoot::vis)));
    for (int i = 0; i < static_cast<int>(names.size()); ++i) {
        const std::string& name = names[static_cast<std::size_t>(i)];
        if (!name.empty()) {
            const std::string key = commands::menuKey(kVisual, i + kFirstPlugin);
            const int index = m_Menus.AddItem(name, key, vis);
            m_Menus.ItemCheckable(index, true);
            m_Menus.ItemCheckedStyle(index, menus::CheckedStyle::Radio);
            plugins_.emplace(key, i);
        }
    }
    if (facility_) {
        m_Menus.BuildOn(*facility_);
        facility_->itemsChanged(m_Menus.handle(vis)); // asks for the states, if it is shown
    }
}

void frmTSR::bindVisualisations(Visualisations visualisations) {
    visualisations_ = std::move(visualisations);
}

void frmTSR::showWords() {
    nameDrives();
    for (const auto& [key, entry] : entries_) {
        if (texts_.has(entry->name, entry->index.value_or(0))) {
            m_Menus.ItemCaption(m_Menus.IndexForKey(key),
                                texts_.caption(entry->name, entry->index.value_or(0)));
        }
    }
}

/// Only what is to be seen is asked: some states are read from a file. Returns the first error.
std::exception_ptr frmTSR::refreshBelow(int parent, bool deep) {
    std::exception_ptr failure;
    for (const int index : m_Menus.itemsBelow(parent)) {
        const auto found = entries_.find(m_Menus.ItemKey(index));
        if (found != entries_.end() && found->second->command != CommandId::none) {
            try {
                const CommandId command = found->second->command;
                m_Menus.ItemEnabled(index, commands_.enabled(command));
                m_Menus.ItemChecked(index, commands_.checked(command));
                if (const auto shown = commands_.shown(command)) {
                    m_Menus.ItemVisible(index, *shown);
                }
            } catch (...) {
                failure = failure ? failure : std::current_exception();
            }
        }
        if (const auto plugin = plugins_.find(m_Menus.ItemKey(index)); plugin != plugins_.end()) {
            m_Menus.ItemChecked(index,
                                visualisations_.chosen && visualisations_.chosen(plugin->second));
        }
        if (deep) {
            const std::exception_ptr below = refreshBelow(index, deep);
            failure = failure ? failure : below;
        }
    }
    return failure;
}

void frmTSR::popUp(MenuRoot root, const std::optional<menus::MenuPlace>& place) {
    const int index = m_Menus.IndexForKey(kRoots.at(static_cast<std::size_t>(root)));
    if (index == 0) {
        return;
    }
    if (!facility_) {
        facility_ = window_.makeMenus(m_Menus, messages_);
    }
    if (root == MenuRoot::vis && visualisations_.wanted) {
        visualisations_.wanted();
    }
    if (facility_) {
        m_Menus.RightToLeft = window_.rightToLeft();
        showWords();
        const std::exception_ptr failure = refreshBelow(index, true);
        m_Menus.BuildOn(*facility_);
        m_Menus.PopUpMenu(index, place);
        if (failure) {
            std::rethrow_exception(failure);
        }
    }
}

void frmTSR::popUpFor(MenuList list, const std::optional<menus::MenuPlace>& place) {
    list_ = list;
    popUp(MenuRoot::mnupls, place);
}

bool frmTSR::hasAccelerator(const ui::KeyEvent& key) const {
    return m_Menus.IndexForKeyAccel(menus::acceleratorText(menus::acceleratorKeyOf(key))) != 0;
}

bool frmTSR::listHasSelection() const {
    return list_.rows != nullptr && list_.rows->current() &&
           *list_.rows->current() < list_.rows->rows();
}

void frmTSR::mnuplsPlay() {
    if (listHasSelection()) {
        list_.input->activateRow(*list_.rows->current());
    }
}

void frmTSR::mnuplsDel() {
    if (listHasSelection()) {
        list_.input->removeRows();
    }
}

} // namespace tovik::window
