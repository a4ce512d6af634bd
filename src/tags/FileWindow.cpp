// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/FileWindow.h"

#include <algorithm>

namespace tovik::tags {

std::string_view FileWindow::at(std::int64_t offset, std::size_t count) {
    const std::int64_t rest = std::max<std::int64_t>(file_.size() - offset, 0);
    const auto wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(count, static_cast<std::uint64_t>(rest)));
    const auto held = static_cast<std::int64_t>(bytes_.size());
    if (offset < start_ || offset + static_cast<std::int64_t>(wanted) > start_ + held) {
        start_ = offset;
        if (file_.readAt(offset,
                         std::max(wanted, std::min(windowBytes_, static_cast<std::size_t>(rest))),
                         bytes_)) {
            bytes_.clear();
        }
    }
    const auto from = static_cast<std::size_t>(offset - start_);
    return from > bytes_.size() ? std::string_view()
                                : std::string_view(bytes_).substr(from, wanted);
}

} // namespace tovik::tags
