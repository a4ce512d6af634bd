// SPDX-License-Identifier: GPL-3.0-or-later
// What takes the place of a picture that the skin's folder lacks: that of the shipped skin.
// Interface thread.
#pragma once

#include "base/Comfort.h"
#include "base/RuntimeError.h"
#include "skin/PackedPictures.h"
#include "window/SkinBitmaps.h"

#include <functional>
#include <list>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::window {

/// The packages are read when a picture is first missed, and kept.
class SpareSkin {
public:
    /// Is told once of each picture that is missed.
    using Missed = std::function<void(const base::RuntimeError&)>;

    /// The packages by their paths, the first that has a picture counts. The record outlives the
    /// object.
    SpareSkin(const base::Comfort& comfort, std::vector<std::string> packages, Missed missed);

    /// The picture for a name whose own raised `error`; nothing where no package has it. Raises the
    /// error as long as `Comfort::startsWithoutPicture` is off.
    [[nodiscard]] std::optional<SkinBitmap> insteadOf(const base::RuntimeError& error,
                                                      std::string_view name);

private:
    struct Package {
        std::string bytes;
        skin::PackedPictures pictures; ///< none in one that cannot be read
    };

    void readPackages();

    const base::Comfort& comfort_;
    std::vector<std::string> paths_; ///< of those that were not read yet
    Missed missed_;
    std::list<Package> packages_;
    std::set<std::string, std::less<>> told_;
};

} // namespace tovik::window
