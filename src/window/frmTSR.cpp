// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/frmTSR.h"

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "commands/ClsShortcut.h"
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
constexpr std::string_view kDeviceCaption = "Audio CD";

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
              refresh();
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
        if (entry.command != CommandId::none &&
            commands::commandOf(entry.command).kind == CommandKind::choice) {
            m_Menus.ItemCheckedStyle(index, menus::CheckedStyle::Radio);
        }
    }
    fillFixedKeys();
    showDrives({});
    m_Menus.onClick([this](int index) {
        const auto found = entries_.find(m_Menus.ItemKey(index));
        if (found != entries_.end()) {
            commands_.run(found->second->command);
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
    bool any = false;
    for (const std::string_view device : kDevices) {
        const std::size_t end = letters.find('|');
        const std::string_view drive = letters.substr(0, end);
        letters.remove_prefix(end == std::string_view::npos ? letters.size() : end + 1);
        const int index = m_Menus.IndexForKey(device);
        m_Menus.ItemVisible(index, !drive.empty());
        if (!drive.empty()) {
            m_Menus.ItemCaption(index, std::string(kDeviceCaption) + " " +
                                           base::toUpperAscii(drive) + ":");
            any = true;
        }
    }
    m_Menus.ItemVisible(m_Menus.IndexForKey(kLineBelowDevices), any);
}

void frmTSR::addVisualisations(std::span<const std::string> names) {
    const int vis = m_Menus.IndexForKey(kRoots.at(static_cast<std::size_t>(MenuRoot::vis)));
    for (int i = 0; i < static_cast<int>(names.size()); ++i) {
        const std::string& name = names[static_cast<std::size_t>(i)];
        if (!name.empty()) {
            const int index =
                m_Menus.AddItem(name, commands::menuKey(kVisual, i + kFirstPlugin), vis);
            m_Menus.ItemCheckedStyle(index, menus::CheckedStyle::Radio);
            // No command plays a plug-in yet.
            m_Menus.ItemEnabled(index, false);
        }
    }
}

void frmTSR::refresh() {
    for (const auto& [key, entry] : entries_) {
        refresh(m_Menus.IndexForKey(key), *entry);
    }
}

void frmTSR::refresh(int index, const MenuEntry& entry) {
    if (texts_.has(entry.name, entry.index.value_or(0))) {
        m_Menus.ItemCaption(index, texts_.caption(entry.name, entry.index.value_or(0)));
    }
    if (entry.command != CommandId::none) {
        m_Menus.ItemEnabled(index, commands_.enabled(entry.command));
        m_Menus.ItemChecked(index, commands_.checked(entry.command));
    }
}

void frmTSR::popUp(MenuRoot root, const std::optional<menus::MenuPlace>& place) {
    const int index = m_Menus.IndexForKey(kRoots.at(static_cast<std::size_t>(root)));
    if (index == 0) {
        return;
    }
    if (!facility_) {
        facility_ = window_.makeMenus(m_Menus, messages_);
    }
    if (facility_) {
        refresh();
        m_Menus.BuildOn(*facility_);
        m_Menus.PopUpMenu(index, place);
    }
}

void frmTSR::popUpFor(MenuList list) {
    list_ = list;
    popUp(MenuRoot::mnupls);
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
