// SPDX-License-Identifier: GPL-3.0-or-later
// Finds the picture of the track that plays, on a thread of its own. Interface thread.
#pragma once

#include "desktop/CoverFiles.h"

#include <functional>
#include <optional>
#include <QObject>
#include <string>

namespace tovik::desktop {

class CoverSearch final : public QObject {
public:
    /// Pictures out of tags are kept in that folder.
    explicit CoverSearch(std::string covers) : covers_(std::move(covers)) {}

    /// The URL of the picture of a track; not called for one that has none, nor for one behind
    /// which another was looked for.
    std::function<void(const std::string& track, const std::string& url)> found{};

    /// Whose tags are looked at from now on.
    CoverTags tags = CoverTags::id3v2;

    /// Waits for nothing; an empty path has no picture. One search runs at a time: of those that
    /// are asked for meanwhile only the last one follows.
    void look(const std::string& track);

private:
    void begin(const std::string& track);
    void finish(const std::string& track, const std::string& picture);

    std::string covers_;
    bool searching_ = false;
    std::optional<std::string> next_;
};

} // namespace tovik::desktop
