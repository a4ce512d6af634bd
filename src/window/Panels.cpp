// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/Panels.h"

#include "window/ModeFaces.h"

#include <algorithm>
#include <string>

namespace tovik::window {

namespace {

struct QuickListLayout {
    double listTop;
    double listWidth;
    double listHeight;
    double headingTop; ///< of lblPos(4)
    double buttonTop;
    MainElement face; ///< store of the button's picture
};

constexpr QuickListLayout kOpen{60, 163, 202, 46, 46, MainElement::qpl_col};
constexpr QuickListLayout kClosed{169, 161, 80, 154, 156, MainElement::qpl_exp};

const Tab* tabNamed(MainElement name) {
    const auto found = std::ranges::find(tabs(), name, &Tab::name);
    return found == tabs().end() ? nullptr : &*found;
}

constexpr std::size_t kPreferencesTab = 5;

} // namespace

Panels::Panels(const player::Core& core, MainElements& elements, PlayerWindow& window)
    : core_(core), state_(core.state), elements_(elements), window_(window),
      Timer6_(core.timers.makeTimer([this] { Timer6(); })) {
    Timer6_->setInterval(kTimer6Ms);
}

void Panels::Switch_Win(std::string_view mask) {
    config::guard(core_.errors, config::player("Switch_Win"), [&] {
        const std::size_t place = mask.find('1');
        if (state_.PanelLock != 0 || place >= kPanels) {
            return;
        }
        window_.takeFocus();
        state_.CurrentPanel = static_cast<std::int16_t>(place + 1);
        RefreshTabs();
        applyPanel(elements_, state_);
        state_.RadioPanelActive = static_cast<Panel>(state_.CurrentPanel) == Panel::radio;
        Timer6_->setEnabled(true);
        if (static_cast<Panel>(state_.CurrentPanel) == Panel::main) {
            ApplyQuickList();
            core_.news.stirVisualisation();
        }
        if (switched) {
            switched();
        }
    });
}

void Panels::Timer6() {
    config::guard(core_.errors, config::player("timer6"), [this] {
        Timer6_->setEnabled(false);
        applyPanel(elements_, state_, MainElement::RadioLst);
    });
}

void Panels::showTab(const Tab& tab, std::size_t face, bool down) {
    const ui::Picture picture = elements_.get(MainElement::Image2, face).picture;
    const ui::Element& before = elements_.get(tab.name);
    // The mouse comes here at every move: a write that changes nothing would wake the window.
    if (before.picture != picture || before.checked != down) {
        ui::Element& element = elements_.touch(tab.name);
        element.picture = picture;
        element.checked = down;
    }
}

void Panels::RefreshTabs() {
    for (const Tab& tab : tabs()) {
        const bool down = static_cast<Panel>(state_.CurrentPanel) == tab.panel;
        showTab(tab, down ? tab.down : tab.up, down);
    }
}

void Panels::hoverTab(MainElement name) {
    if (const Tab* const tab = tabNamed(name); tab != nullptr) {
        RefreshTabs();
        const bool current = static_cast<Panel>(state_.CurrentPanel) == tab->panel;
        if (!current || !state_.comfort.keepsCurrentTab) {
            showTab(*tab, tab->over, elements_.get(name).checked);
        }
    }
}

void Panels::clickTab(MainElement name) {
    const Tab* const tab = tabNamed(name);
    if (tab == nullptr || tab->panel == Panel::preferences) {
        return;
    }
    std::string mask(kPanels, '0');
    mask[static_cast<std::size_t>(tab->panel) - 1] = '1';
    Switch_Win(mask);
}

void Panels::pressPreferences(const std::function<void()>& dialog) {
    const std::int16_t before = state_.CurrentPanel;
    state_.CurrentPanel = static_cast<std::int16_t>(Panel::preferences);
    RefreshTabs();
    ++state_.PanelLock;
    const auto back = [&] {
        --state_.PanelLock;
        state_.CurrentPanel = before;
        if (state_.comfort.pressesTabAtOnce) {
            RefreshTabs();
        }
        applyPanel(elements_, state_);
        if (static_cast<Panel>(before) == Panel::main) {
            ApplyQuickList();
            core_.news.stirVisualisation();
        }
    };
    try {
        dialog();
    } catch (...) {
        back();
        throw;
    }
    back();
}

void Panels::releasePreferences() {
    const Tab& tab = tabs()[kPreferencesTab];
    showTab(tab, tab.up, false);
}

void Panels::ApplyQuickList() {
    const QuickListLayout& layout = state_.QuickListOpen ? kOpen : kClosed;
    ui::Element& list = elements_.touch(MainElement::List1);
    list.top = layout.listTop;
    list.width = layout.listWidth;
    list.height = layout.listHeight;
    elements_.touch(MainElement::lblPos, 4).top = layout.headingTop;
    // The list may be folded from anywhere, and nothing of it may come up over another panel.
    for (const MainElement name : {MainElement::lblPos, MainElement::infoWin, MainElement::fxWin}) {
        applyPanel(elements_, state_, name);
    }
    const ui::Picture face = elements_.get(layout.face).picture;
    ui::Element& button = elements_.touch(MainElement::qpl_but);
    button.picture = face;
    button.checked = state_.QuickListOpen;
    button.top = layout.buttonTop;
}

void Panels::FlipQuickList() {
    state_.QuickListOpen = !state_.QuickListOpen;
    ApplyQuickList();
}

} // namespace tovik::window
