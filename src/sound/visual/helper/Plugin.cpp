// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/helper/Plugin.h"

#include "sound/visual/PluginName.h"

#include <algorithm>
#include <cstring>
#include <dlfcn.h>

namespace tovik::visual {

namespace {

static_assert(TOVIK_VIS_SAMPLES == sound::kVisualSamples);
static_assert(TOVIK_VIS_VALUES == sound::kVisualValues);

constexpr std::size_t kLookedAt = 2 * sound::kLongestPluginName; ///< bytes of what a name may be
constexpr double kRate = 44100;                                  ///< of the mix

using Get = const tovik_vis* (*)();

} // namespace

Plugin::Plugin(const char* path) {
    void* const file = ::dlopen(path, RTLD_NOW | RTLD_LOCAL);
    const auto get = file != nullptr ? reinterpret_cast<Get>(::dlsym(file, "tovik_vis_get"))
                                     : static_cast<Get>(nullptr);
    const tovik_vis* const vis = get != nullptr ? get() : nullptr;
    if (vis != nullptr && vis->version == TOVIK_VIS_VERSION && vis->size >= sizeof(tovik_vis) &&
        vis->name != nullptr && vis->begin != nullptr && vis->render != nullptr) {
        vis_ = vis;
    }
}

std::string Plugin::name() const {
    return vis_ == nullptr ? std::string()
                           : sound::pluginName({vis_->name, ::strnlen(vis_->name, kLookedAt)});
}

bool Plugin::show(const SharedPicture& picture, const char* settings) {
    if (self_ == nullptr) {
        begun_ = std::chrono::steady_clock::now();
        self_ = vis_->begin(picture.width(), picture.height(), settings);
    } else if (vis_->resize != nullptr) {
        vis_->resize(self_, picture.width(), picture.height());
    }
    return self_ != nullptr;
}

void Plugin::render(const SharedPicture& picture, const sound::HeardSound& heard) {
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begun_;
    const tovik_vis_frame frame{.pixels = picture.pixels(),
                                .width = picture.width(),
                                .height = picture.height(),
                                .left = heard.left.data(),
                                .right = heard.right.data(),
                                .spectrum = heard.spectrum.data(),
                                .rate = kRate,
                                .seconds = seconds.count()};
    vis_->render(self_, &frame);
}

void Plugin::click(std::int32_t x, std::int32_t y) {
    if (self_ != nullptr && vis_->click != nullptr) {
        vis_->click(self_, x, y);
    }
}

void Plugin::end() {
    if (self_ != nullptr && vis_->end != nullptr) {
        vis_->end(self_);
    }
}

} // namespace tovik::visual
