// SPDX-License-Identifier: GPL-3.0-or-later
// A drive of the machine, or an image of a disc, by libcdio. The thread of its drive.
#pragma once

#include "sound/cd/CdDrive.h"
#include "sound/cd/libcdio/Handle.h"

#include <string>

namespace tovik::sound::libcdio {

class CdioDrive final : public CdDrive {
public:
    enum class Kind { device, image };

    /// `path`: of the device or the image. It need not be there, and need not hold anything.
    CdioDrive(std::string path, Kind kind);

    [[nodiscard]] std::string description() const override { return description_; }

    [[nodiscard]] DriveFacts facts() const override { return facts_; }

    [[nodiscard]] DiscLook look() override;
    [[nodiscard]] bool discChanged() override;
    [[nodiscard]] SectorRead read(std::int32_t sector, std::span<std::byte> bytes) override;
    [[nodiscard]] std::unique_ptr<VerifiedReader> verified(std::int32_t first,
                                                           std::int32_t sectors) override;
    bool door(DoorAction action) override;

private:
    void open();
    void lowByteFirst(std::span<std::byte> bytes) const;
    void readFacts();

    const std::string path_;
    const Kind kind_;
    std::string description_;
    DriveFacts facts_;
    CdHandle handle_; ///< null when it could not be opened
    bool highByteFirst_ = false;
};

} // namespace tovik::sound::libcdio
