// SPDX-License-Identifier: GPL-3.0-or-later
// Letters for what a file allows. Any thread.
#pragma once

#include <string>
#include <string_view>

namespace tovik::tags {

/// "R" where the owner may not write, "H" where the name begins with "."; "Normal" without any of
/// them, "-1" for a missing file.
[[nodiscard]] std::string fileAttributes(const std::string& path);

/// With an "R", in any case, nobody may write the file, without one its owner may; other letters
/// are passed over, and "Normal", in any case, has none. Nothing happens to a missing file. Raises
/// the error of a change that is not allowed.
void setFileAttributes(const std::string& path, std::string_view letters);

/// Makes a file writable for its owner and gives it its old mode back, at the latest with the end
/// of the object.
class NormalAttributes {
public:
    /// Raises what `setFileAttributes` raises.
    explicit NormalAttributes(std::string path);
    ~NormalAttributes();
    NormalAttributes(const NormalAttributes&) = delete;
    NormalAttributes& operator=(const NormalAttributes&) = delete;

    /// The file stays as it is now.
    void keep() noexcept { restore_ = false; }

private:
    std::string path_;
    unsigned mode_ = 0;
    bool restore_ = false;
};

} // namespace tovik::tags
