// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/cd/libcdio/CdioDrive.h"

#include "sound/cd/libcdio/CdioVerified.h"
#include "sound/cd/libcdio/CdText.h"
#include "sound/cd/libcdio/Contents.h"
#include "sound/cd/libcdio/TocSheet.h"

#include <cdio/device.h>
#include <cdio/mmc_ll_cmds.h>
#include <cdio/read.h>

#include <cstring>
#include <string_view>
#include <utility>

#include <strings.h>

namespace tovik::sound::libcdio {

namespace {

std::string fileName(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

/// By the ending of the name, in any case.
bool hasTocSheet(const std::string& path) {
    constexpr std::string_view kEnding = ".toc";
    return path.size() >= kEnding.size() &&
           ::strcasecmp(path.c_str() + path.size() - kEnding.size(), kEnding.data()) == 0;
}

/// A field of fixed width without the blanks that fill it.
std::string trimmed(const char* field) {
    const std::string text(field);
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? std::string()
                                      : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

} // namespace

CdioDrive::CdioDrive(std::string path, Kind kind)
    : path_(std::move(path)), kind_(kind), description_(fileName(path_)) {
    open();
    if (kind_ == Kind::device && handle_ != nullptr) {
        readFacts();
    }
}

/// An open handle goes on telling of the disc that it began with, so a new one is made.
void CdioDrive::open() {
    if (kind_ == Kind::image && hasTocSheet(path_)) {
        TocImage image = openTocSheet(path_);
        handle_ = std::move(image.handle);
        highByteFirst_ = image.highByteFirst;
        return;
    }
    handle_ =
        share(cdio_open(path_.c_str(), kind_ == Kind::device ? DRIVER_DEVICE : DRIVER_UNKNOWN));
}

void CdioDrive::lowByteFirst(std::span<std::byte> bytes) const {
    if (!highByteFirst_) {
        return;
    }
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        std::swap(bytes[i], bytes[i + 1]);
    }
}

void CdioDrive::readFacts() {
    cdio_hwinfo_t info{};
    if (cdio_get_hwinfo(handle_.get(), &info)) {
        const std::string name = trimmed(&info.psz_vendor[0]) + " " + trimmed(&info.psz_model[0]);
        description_ = name.size() > 1 ? name : description_;
    }
    cdio_drive_read_cap_t reads = 0;
    cdio_drive_write_cap_t writes = 0;
    cdio_drive_misc_cap_t others = 0;
    cdio_get_drive_cap(handle_.get(), &reads, &writes, &others);
    facts_.canOpen = (others & CDIO_DRIVE_CAP_MISC_EJECT) != 0;
    facts_.canLock = (others & CDIO_DRIVE_CAP_MISC_LOCK) != 0;
}

DiscLook CdioDrive::look() {
    open();
    if (handle_ == nullptr) {
        return {};
    }
    DiscLook look{.toc = contentsOf(*handle_), .text = {}};
    if (look.toc) {
        look.text = cdTextOf(*handle_, kind_ == Kind::image);
    }
    return look;
}

bool CdioDrive::discChanged() {
    return kind_ == Kind::device &&
           (handle_ == nullptr || cdio_get_media_changed(handle_.get()) > 0);
}

SectorRead CdioDrive::read(std::int32_t sector, std::span<std::byte> bytes) {
    if (handle_ == nullptr) {
        return {.trouble = DiscTrouble::noDrive};
    }
    const auto sectors = static_cast<std::uint32_t>(bytes.size() / kSectorBytes);
    if (cdio_read_audio_sectors(handle_.get(), bytes.data(), sector, sectors) ==
        DRIVER_OP_SUCCESS) {
        lowByteFirst(bytes);
        return {.sectors = sectors};
    }
    // Which one it was: as many as there are in front of it.
    std::size_t good = 0;
    while (sectors > 1 && good < sectors &&
           cdio_read_audio_sectors(handle_.get(), bytes.data() + good * kSectorBytes,
                                   sector + static_cast<std::int32_t>(good),
                                   1) == DRIVER_OP_SUCCESS) {
        ++good;
    }
    lowByteFirst(bytes.first(good * kSectorBytes));
    return {.sectors = good, .trouble = good > 0 ? DiscTrouble::none : DiscTrouble::unreadable};
}

std::unique_ptr<VerifiedReader> CdioDrive::verified(std::int32_t first, std::int32_t sectors) {
    return handle_ == nullptr ? nullptr
                              : CdioVerified::make(handle_, first, sectors, highByteFirst_);
}

bool CdioDrive::door(DoorAction action) {
    if (handle_ == nullptr || kind_ == Kind::image) {
        return false;
    }
    driver_id_t driver = DRIVER_DEVICE;
    switch (action) {
    case DoorAction::close:
        return cdio_close_tray(path_.c_str(), &driver) == DRIVER_OP_SUCCESS;
    case DoorAction::open:
        return cdio_eject_media_drive(path_.c_str()) == DRIVER_OP_SUCCESS;
    case DoorAction::lock:
    case DoorAction::unlock:
        return mmc_prevent_allow_medium_removal(handle_.get(), false, action == DoorAction::lock,
                                                0) == DRIVER_OP_SUCCESS;
    }
    return false;
}

} // namespace tovik::sound::libcdio
