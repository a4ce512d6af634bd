// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cDIBSectionRegion.h"

#include "base/AtomicFile.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "base/RuntimeError.h"
#include "ui/RegionData.h"

#include <algorithm>
#include <utility>

namespace tovik::ui {

namespace {

/// One column of the bitmap, from the top downwards.
void cutColumn(Region& region, const cDIBSection& dib, int x, Colour key) {
    constexpr int kNone = -1;
    int run = kNone;
    for (int y = 0; y <= dib.Height(); ++y) {
        const bool matches = y < dib.Height() && dib.pixel(x, y) == key;
        if (matches && run == kNone) {
            run = y;
        } else if (!matches && run != kNone) {
            region.exclusiveOr({x, run, x + 1, y});
            run = kNone;
        }
    }
}

bool isNumber(std::string_view text) {
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

bool cDIBSectionRegion::Create(const cDIBSection& dib, int screenDepth) {
    Destroy();
    if (dib.Width() == 0) {
        return false;
    }
    Region region(RegionRectangle{0, 0, dib.Width(), dib.Height()});
    const Colour key = keyColour(screenDepth);
    for (int x = 0; x < dib.Width(); ++x) {
        cutColumn(region, dib, x, key);
    }
    return take(std::move(region));
}

void cDIBSectionRegion::Destroy() {
    for (RegionWindow* const window : std::exchange(windows_, {})) {
        window->setRegion(nullptr);
    }
    region_.reset();
}

void cDIBSectionRegion::Save(const std::string& fileName) const {
    if (!region_) {
        return;
    }
    base::raiseFailure(base::replaceFile(fileName, regionData(*region_), base::Flush::No));
}

bool cDIBSectionRegion::LoadFromFile(const std::string& fileName) {
    Destroy();
    std::string bytes;
    return !base::readWholeFile(fileName, bytes) && take(regionFromData(bytes));
}

bool cDIBSectionRegion::LoadFromResource(const ResourceData& resources,
                                         std::string_view resourceName, std::string_view library) {
    Destroy();
    const std::string name =
        isNumber(resourceName) ? "#" + std::string(resourceName) : std::string(resourceName);
    const std::optional<std::string> bytes = resources.load(library, name);
    return bytes && take(regionFromData(*bytes));
}

bool cDIBSectionRegion::take(std::optional<Region> region) {
    region_ = std::move(region);
    return region_.has_value();
}

void cDIBSectionRegion::Applied(RegionWindow& window, bool applied) {
    const bool before = Applied(window);
    if (applied && region_) {
        window.setRegion(&*region_);
        if (!before) {
            windows_.push_back(&window);
        }
    } else if (!applied && before) {
        std::erase(windows_, &window);
        window.setRegion(nullptr);
    }
}

bool cDIBSectionRegion::Applied(const RegionWindow& window) const {
    return std::ranges::find(windows_, &window) != windows_.end();
}

RegionWindow& cDIBSectionRegion::hWndForIndex(std::size_t index) const {
    if (index < 1 || index > windows_.size()) {
        throw base::RuntimeError(base::ErrorNumber::SubscriptOutOfRange);
    }
    return *windows_[index - 1];
}

} // namespace tovik::ui
