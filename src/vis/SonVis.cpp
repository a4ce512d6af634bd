// SPDX-License-Identifier: GPL-3.0-or-later
#include "vis/SonVis.h"

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "config/INI.h"
#include "config/SettingText.h"
#include "player/LiveSetting.h"
#include "vis/HeardChannel.h"

#include <filesystem>
#include <utility>

namespace tovik::vis {

namespace {

constexpr std::uint32_t kInputOn = 0x20000;

/// Beside a plug-in: whether it wants more room than the mini window has.
constexpr const char* kRoomFile = "tpcf.ini";
constexpr const char* kRoomSection = "Size";
constexpr const char* kRoomKey = "960x720";

/// "true" in any case, or a number other than 0.
bool isTrue(std::string_view text) {
    if (base::equalsIgnoringCase(text, "true")) {
        return true;
    }
    try {
        return base::textToNumber(text) != 0;
    } catch (const base::RuntimeError&) {
        return false;
    }
}

} // namespace

void sonfix(sound::RecordOperations& sound, int input) {
    sound.BASS_RecordSetInput(static_cast<std::uint32_t>(input) | kInputOn);
}

SonVis::SonVis(Parts parts, VisualArea& area)
    : p_(std::move(parts)), area_(&area), list_([this](const ui::WindowMessage& message) {
          if (message.number == kRenderMessage) {
              render();
          }
          return ui::MessageResult{0};
      }),
      timer_(p_.core.timers.makeTimer([this] { list_.send({kRenderMessage}); })),
      patience_(p_.core.timers.makeTimer([this] {
          // This thread may have been held up itself: what lies there by now counts.
          if (!answered()) {
              lose();
          }
      })) {
    patience_->setInterval(kPatienceMs);
}

bool SonVis::needsRoom(const std::string& path) const {
    if (!p_.core.state.MiniModeOn) {
        return false;
    }
    config::INI file;
    file.Path = (std::filesystem::path(path).parent_path() / kRoomFile).native();
    file.Section = kRoomSection;
    file.Key = kRoomKey;
    const std::string text = file.Value();
    return isTrue(base::trimmed(text));
}

void SonVis::StartSonVis(const std::string& path) {
    path_ = path;
    if (needsRoom(path)) {
        return;
    }
    // What it may raise leaves everything as it was.
    const std::int16_t speed = player::readLive(p_.core.settings, "VPS", config::settingToInt16);
    p_.core.sound.BASS_SONIQUEVIS_CreateFakeSoniqueWnd();
    timer_->setEnabled(false);
    free();
    size_ = fitting();
    visual_ = p_.core.sound.BASS_SONIQUEVIS_CreateVis(
        path, p_.paths.of(host::DataItem::VisualSettings), 0, size_.width, size_.height);
    const int news = running() ? p_.core.sound.visualDescriptor(visual_) : -1;
    if (news < 0) {
        lose();
        return;
    }
    watch_ = p_.watches.watch(news, [this] { answered(); });
    started_ = true;
    watchOver();
    render();
    setSpeed(speed);
}

void SonVis::stopSonVis() {
    set_builtin_vis();
    area_->clear();
}

void SonVis::set_builtin_vis() {
    started_ = false;
    timer_->setEnabled(false);
}

void SonVis::free() {
    patience_->setEnabled(false);
    watch_.reset();
    if (const sound::Handle visual = std::exchange(visual_, sound::kNoHandle);
        visual != sound::kNoHandle) {
        p_.core.sound.BASS_SONIQUEVIS_Free(visual);
    }
}

void SonVis::setSpeed(int milliseconds) {
    timer_->setInterval(intervalOf(milliseconds));
    timer_->setEnabled(false);
    if (started_) {
        stir();
    }
}

void SonVis::stir() {
    started_ = running();
    if (started_ && !timer_->enabled() && timer_->interval() > 0 &&
        mayMove(p_.core.state, *area_)) {
        timer_->setEnabled(true);
    }
}

/// Asks for the next picture, unless one is being drawn.
void SonVis::render() {
    if (!running() || !started_ || !mayMove(p_.core.state, *area_)) {
        timer_->setEnabled(false);
        return;
    }
    if (!fit()) {
        return;
    }
    sound::Handle heard = heardChannel(p_.core.state);
    heard = heard != sound::kNoHandle ? heard : p_.core.state.PrimaryChannel;
    if (heard == sound::kNoHandle) {
        return;
    }
    p_.core.sound.BASS_SONIQUEVIS_Render(visual_, heard, {});
    watchOver();
}

/// The pictures that the area shows best now.
SonVis::Size SonVis::fitting() const {
    return {.width = area_->width() * area_->density(),
            .height = area_->height() * area_->density()};
}

/// Sees to it that the next pictures are such ones. False: it cannot draw them and is lost.
bool SonVis::fit() {
    if (size_ == fitting()) {
        return true;
    }
    size_ = fitting();
    if (!p_.core.sound.BASS_SONIQUEVIS_Resize(visual_, size_.width, size_.height)) {
        lose();
        return false;
    }
    watchOver();
    return true;
}

/// Whatever it was told to do, it has a limited time to do it.
void SonVis::watchOver() {
    if (!patience_->enabled() && p_.core.sound.visualIsBusy(visual_)) {
        patience_->setEnabled(true);
    }
}

/// False when it still owes what it was told.
bool SonVis::answered() {
    switch (p_.core.sound.visualNews(visual_)) {
    case sound::VisualNews::nothing:
        if (p_.core.sound.visualIsBusy(visual_)) {
            return false;
        }
        patience_->setEnabled(false);
        break;
    case sound::VisualNews::picture:
        patience_->setEnabled(false);
        show();
        watchOver();
        break;
    case sound::VisualNews::ended:
        lose();
        break;
    }
    return true;
}

void SonVis::show() {
    if (!started_ || !area_->canBeSeen() || size_ != fitting()) {
        return;
    }
    area_->draw(area_->density(), [this](ui::PixelImage& picture) {
        p_.core.sound.BASS_SONIQUEVIS_Render(
            visual_, sound::kNoHandle,
            {.pixels = picture.pixels, .width = picture.width, .height = picture.height});
    });
}

void SonVis::lose() {
    set_builtin_vis();
    free();
    area_->clear();
    p_.lost();
}

void SonVis::click(int x, int y) {
    if (running() && started_) {
        p_.core.sound.BASS_SONIQUEVIS_Clicked(visual_, x * area_->density(), y * area_->density());
        watchOver();
    }
}

void SonVis::drawIn(VisualArea& area) {
    area_ = &area;
    if (!running()) {
        return;
    }
    if (fit() && started_) {
        render();
        stir();
    }
}

} // namespace tovik::vis
