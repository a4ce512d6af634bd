// SPDX-License-Identifier: GPL-3.0-or-later
// The file of a song of which the end is not known yet: whole at every moment. One thread at a
// time.
#pragma once

#include "base/Descriptor.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace tovik::radio {

/// Closed with the object. What stands behind the sound is written with each block, and over it
/// goes the next one: so nothing is to be done at the end, whenever that comes.
class SavedSong {
public:
    /// Which of the files of a name is written.
    enum class Names : std::uint8_t {
        numbered, ///< the first that is not there yet
        one,      ///< the one without a number, which is emptied; a link or no file is refused
    };

    /// Makes a file, and the folder where it is missing, and begins it with `head`.
    [[nodiscard]] std::error_code begin(const std::string& folder, std::string_view name,
                                        std::string_view ending, Names names,
                                        std::string_view head);

    /// Goes on behind the sound of a file that this class has written.
    [[nodiscard]] std::error_code goOn(const std::string& path, std::string_view tail);

    /// Appends sound, and `tail` behind it.
    [[nodiscard]] std::error_code write(std::span<const std::byte> sound, std::string_view tail);

    void close() { file_.reset(); }

    [[nodiscard]] bool isOpen() const { return file_.open(); }

    /// Of the file that was opened last, or was to be.
    [[nodiscard]] const std::string& path() const { return path_; }

private:
    [[nodiscard]] std::error_code put(std::string_view bytes, std::int64_t at) const;

    base::Descriptor file_;
    std::string path_;
    std::int64_t end_ = 0; ///< of the sound
};

} // namespace tovik::radio
