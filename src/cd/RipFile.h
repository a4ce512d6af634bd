// SPDX-License-Identifier: GPL-3.0-or-later
// A WAV file that is written by a thread of its own, so that nobody waits for the disk. Interface
// thread.
#pragma once

#include "base/BlockQueue.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace tovik::cd {

class RipFile {
public:
    /// Makes or empties the file and writes a head of 44 bytes.
    RipFile(const std::string& path, const std::string& head);

    /// What was written so far stays; without `close` the sizes in the head stay, too.
    ~RipFile();

    RipFile(const RipFile&) = delete;
    RipFile& operator=(const RipFile&) = delete;

    [[nodiscard]] bool takesMore() const;

    /// Waits for nothing. Nothing is written any more once something failed.
    void write(std::span<const std::byte> samples);

    /// No more comes: has the sizes written, for so many bytes of samples.
    void close(std::int64_t dataBytes);

    /// Everything was written, or failed.
    [[nodiscard]] bool ended() const;

    /// What failed, as the system says it; empty when nothing did.
    [[nodiscard]] std::string failure() const;

private:
    struct Shared;

    std::shared_ptr<Shared> shared_;
};

} // namespace tovik::cd
