// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Presence.h"

#include "config/SettingText.h"
#include "player/LiveSetting.h"
#include "window/WindowPlaces.h"

namespace tovik::app {

using commands::CommandId;
using window::MainElement;
using window::MiniElement;

namespace {

constexpr int kSmallTitleTwips = 480;
constexpr int kSmallTitlePercent = 90;

} // namespace

Presence::Presence(const Needs& needs)
    : p_(needs), mini({.core = needs.core,
                       .knobs = needs.knobs,
                       .main = needs.main,
                       .window = needs.window.mini(),
                       .host = needs.host,
                       .menus = &needs.menus,
                       .visual = &needs.visuals,
                       .shippedSkin = needs.shippedSkin,
                       .spare = needs.spare}),
      sysTray(needs.core, needs.version, needs.shell != nullptr ? needs.shell->area : noArea_,
              {.left = [this](bool twice) { clickIcon(twice); },
               .menu =
                   [this] {
                       p_.window.askedForMenu(p_.shell->area.takePlace());
                       p_.menus.popUp(window::MenuRoot::mnuMain);
                   }}),
      title(needs.core.timers, needs.core.errors,
            needs.shell != nullptr ? needs.shell->popup : noPopup_),
      miniArea_({.window = needs.window.mini(),
                 .elements = mini.elements,
                 .pictures = needs.main.pictures,
                 .area = ui::addressOf(MiniElement::Picture1),
                 .store = needs.main.elements,
                 .bars = ui::addressOf(MainElement::Picture2)}) {
    p_.core.news.add(*this);
    p_.main.titleElsewhere = [this](std::u32string_view text) { mini.display.drawTitle(text); };
    listenToTray();
}

Presence::~Presence() {
    if (p_.shell != nullptr) {
        p_.shell->area.setEvents({});
    }
    p_.main.titleElsewhere = nullptr;
    p_.core.news.remove(*this);
}

void Presence::showTitlePopup(const std::string& text) {
    window::TitleBar bar{.text = text,
                         .asNotification = player::readLiveOr(p_.core.settings, "OSK",
                                                              config::settingToFlag, false)};
    if (p_.core.state.comfort.showsSmallTitle) {
        bar.small = true;
        bar.heightTwips = kSmallTitleTwips;
        bar.opacityPercent = kSmallTitlePercent;
    }
    title.show_title(bar);
}

void Presence::bind(commands::Commands& commands) {
    commands.bind(CommandId::miniMode, {.run =
                                            [this] {
                                                if (p_.core.state.MiniModeOn) {
                                                    leaveMiniMode();
                                                } else {
                                                    enterMiniMode();
                                                }
                                            },
                                        .checked = [this] { return p_.core.state.MiniModeOn; }});
    commands.bind(CommandId::minimise, [this] { minimise(); });
    commands.bind(CommandId::exit, [this] {
        // No dead icon stays behind, however long the end takes.
        hideTray();
        p_.host.closing.request();
    });
}

window::SkinnedWindow& Presence::windowInUse() {
    return p_.core.state.MiniModeOn ? p_.window.mini() : p_.window;
}

void Presence::enterMiniMode() {
    player::PlayerState& state = p_.core.state;
    if (state.MiniModeOn) {
        return;
    }
    state.MiniModeOn = true;
    try {
        mini.Form_Load();
    } catch (...) {
        // Without its skin there is no mini window, and the main one stays.
        state.MiniModeOn = false;
        p_.core.errors.reportAndTell(config::currentError(), config::player("Load"));
        return;
    }
    p_.window.hide();
    p_.window.mini().setTopmost(state.AlwaysOnTop == 1);
    if (const auto place = window::keptPlace(state, window::kMiniWindow)) {
        p_.window.mini().moveTo(place->left, place->top);
    }
    p_.window.mini().show();
    state.MiniModeShown = true;
    hidden_ = false;
    showVisualIn(&miniArea_);
}

/// What cannot be drawn keeps nobody from the window: it is on the screen by now.
void Presence::showVisualIn(VisualElement* area) {
    try {
        p_.visuals.showIn(area);
    } catch (...) {
        p_.core.errors.reportAndTell(config::currentError(), config::player("Load"));
    }
}

void Presence::leaveMiniMode() {
    player::PlayerState& state = p_.core.state;
    if (!state.MiniModeOn) {
        return;
    }
    state.MiniModeOn = false;
    state.MiniModeShown = false;
    mini.Form_Unload();
    p_.window.mini().hide();
    p_.window.show();
    hidden_ = false;
    showVisualIn(nullptr);
}

void Presence::showMainWindow() {
    leaveMiniMode();
    comeBack();
}

void Presence::minimise() {
    const bool hasButton = p_.core.state.ShowInTaskbar == 1;
    const bool hides = !hasButton || !p_.core.state.comfort.minimisesToTaskBar;
    if (hides && trayHasIcon()) {
        hide();
    } else if (hasButton) {
        windowInUse().minimise();
    }
}

bool Presence::trayHasIcon() const {
    return p_.shell != nullptr && p_.shell->area.taken();
}

void Presence::hide() {
    hidden_ = true;
    p_.core.state.MiniModeShown = false;
    p_.core.news.stopVisualisation();
    windowInUse().hide();
}

/// The second click of a double one is none of its own where a click may hide.
void Presence::clickIcon(bool twice) {
    const std::string token = p_.shell->area.takeToken();
    const bool mayHide = p_.core.state.comfort.hidesByTray;
    if (mayHide && twice) {
        return;
    }
    if (mayHide && !hidden_ && trayHasIcon() && windowInUse().visible()) {
        hide();
    } else {
        bringToFront(token);
    }
}

void Presence::bringToFront(const std::string& token) {
    comeBack();
    windowInUse().bringToFront(token);
}

/// What `minimise` stopped goes on.
void Presence::comeBack() {
    if (!hidden_) {
        return;
    }
    hidden_ = false;
    p_.core.state.MiniModeShown = p_.core.state.MiniModeOn;
    mini.display.showPosition(p_.core.screen.playing);
    windowInUse().show();
    p_.core.news.restartVisualisation();
}

bool Presence::wantsTray() {
    const std::string places = player::readLive(p_.core.settings, "SHI");
    return !places.empty() && places.back() == '1';
}

void Presence::ApplyShellPresence() {
    sysTray.HideTrayIcon();
    if (wantsTray()) {
        sysTray.ShowTrayIcon();
    } else {
        trayChanged();
    }
    p_.stored.read("SHI");
    const bool button = p_.core.state.ShowInTaskbar == 1;
    p_.window.setTaskbarButton(button);
    p_.window.mini().setTaskbarButton(button);
}

void Presence::listenToTray() {
    if (p_.shell == nullptr) {
        return;
    }
    p_.shell->area.setEvents({.callback =
                                  [this](std::int32_t x) {
                                      if (window::TrayIcon* const icon = sysTray.icon()) {
                                          icon->MouseMove(x);
                                      }
                                  },
                              .wheel = [this](double notches) { p_.main.volumeBar.turn(notches); },
                              .middleClick = [this] { p_.commands.run(CommandId::pause); },
                              .takenChanged = [this] { trayChanged(); }});
}

/// The way back went with the tray.
void Presence::trayChanged() {
    if (hidden_ && !leaving_ && !p_.shell->area.taken() && !p_.shell->area.asking()) {
        comeBack();
    }
}

void Presence::showTray() {
    if (wantsTray()) {
        sysTray.ShowTrayIcon();
    }
}

void Presence::hideTray() {
    leaving_ = true;
    sysTray.HideTrayIcon();
}

void Presence::hideMini() {
    if (p_.core.state.MiniModeOn) {
        p_.window.mini().hide();
    }
}

} // namespace tovik::app
