// SPDX-License-Identifier: GPL-3.0-or-later
// A file written in place, for what may stay behind half written. One thread at a time.
#pragma once

#include <string>
#include <string_view>

namespace tovik::skin {

/// Made empty, or emptied if it exists; a link is not followed. Closed with the object. Raises the
/// failure of what it could not do.
class NewFile {
public:
    explicit NewFile(const std::string& path);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Appends all of the bytes.
    void write(std::string_view bytes) const;

private:
    int descriptor_;
};

} // namespace tovik::skin
