// SPDX-License-Identifier: GPL-3.0-or-later
// The outline of a window, cut out of a bitmap along its key colour. Interface thread.
#pragma once

#include "ui/cDIBSection.h"
#include "ui/Region.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::ui {

/// A window that can have an outline.
class RegionWindow {
public:
    virtual ~RegionWindow() = default;

    /// Shows only the pixels of the region, and takes the mouse only there; null: all of them.
    virtual void setRegion(const Region* region) = 0;
};

/// Where data lies that is linked into a program or a library.
class ResourceData {
public:
    virtual ~ResourceData() = default;

    /// The bytes of a resource; nothing when there is none of that name. No library: the program
    /// itself.
    [[nodiscard]] virtual std::optional<std::string> load(std::string_view library,
                                                          std::string_view resourceName) const = 0;
};

class cDIBSectionRegion {
public:
    cDIBSectionRegion() = default;

    ~cDIBSectionRegion() { Destroy(); }

    cDIBSectionRegion(const cDIBSectionRegion&) = delete;
    cDIBSectionRegion& operator=(const cDIBSectionRegion&) = delete;

    /// Makes the region: the whole bitmap without the pixels of the key colour that a screen of
    /// that many bits a pixel has. An earlier region is dropped first, in any case. False for a
    /// bitmap without pixels.
    bool Create(const cDIBSection& dib, int screenDepth = kWindowDepth);

    /// Takes the region off every window that has it, and drops it.
    void Destroy();

    /// Writes the region's data (see `RegionData.h`) to a file in the place of any of that name;
    /// does nothing without a region. A failure of writing is raised.
    void Save(const std::string& fileName) const;

    /// Makes the region from the whole of a file. False, and no region, when it cannot be read or
    /// holds none.
    bool LoadFromFile(const std::string& fileName);

    /// The same from a resource, of that library or of the program itself. A name that is a number
    /// is looked up as "#" and the number.
    bool LoadFromResource(const ResourceData& resources, std::string_view resourceName,
                          std::string_view library = {});

    /// Gives a window the region, or takes it away. The window must outlive the region, or give it
    /// back first. Giving it does nothing without a region.
    void Applied(RegionWindow& window, bool applied);

    [[nodiscard]] bool Applied(const RegionWindow& window) const;

    /// How many windows have the region.
    [[nodiscard]] std::size_t AppliedToCount() const noexcept { return windows_.size(); }

    /// The windows that have it, numbered from 1 in the order in which they got it. Raises 9
    /// beyond.
    [[nodiscard]] RegionWindow& hWndForIndex(std::size_t index) const;

    [[nodiscard]] const std::optional<Region>& region() const noexcept { return region_; }

private:
    bool take(std::optional<Region> region);

    std::optional<Region> region_;
    std::vector<RegionWindow*> windows_;
};

} // namespace tovik::ui
