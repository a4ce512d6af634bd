// SPDX-License-Identifier: GPL-3.0-or-later
#include "radio/StationList.h"

#include "base/AtomicFile.h"
#include "base/ErrorPlace.h"
#include "base/FileErrors.h"
#include "base/RegularFile.h"
#include "config/Profile.h"
#include "radio/StationFile.h"

#include <filesystem>
#include <system_error>

namespace tovik::radio {

namespace {

/// Far more than as many stations as there may be take.
constexpr std::int64_t kMostFileBytes = std::int64_t{64} << 20;

constexpr std::string_view kAside = ".unread";

} // namespace

void addStation(playlist::stdSS& list, std::string_view address, std::string_view name) {
    // NOLINTNEXTLINE(readability-suspicious-call-argument): the row shows the name
    list.AddItem(address, address, name, kStationTime, 0);
}

std::string StationList::ReadStationList(std::string_view section, std::string_view key,
                                         const std::string& path) {
    std::string bytes;
    static_cast<void>(base::readWholeFile(path, bytes, kMostFileBytes));
    return config::profileValue(bytes, section, key);
}

std::string StationList::fileText(std::int16_t count) const {
    std::string file;
    appendStationHead(file);
    for (playlist::Row row = 1; row <= count; ++row) {
        appendStation(file, row, list_.text(row, playlist::RowText::ItemData),
                      list_.text(row, playlist::RowText::Title));
    }
    appendStationTail(file, count);
    return file;
}

bool StationList::WriteStationList(const std::string& path, std::int16_t count) {
    if (const std::error_code failure =
            base::replaceFile(path, fileText(count), base::Flush::Yes)) {
        log(base::RuntimeError(base::errorNumberOf(failure)), path,
            config::procedureOf("AddStation", "WriteStationList"));
    }
    return true;
}

bool StationList::load(const std::string& path, bool whole) {
    static constexpr const config::Procedure& kProcedure =
        config::procedureOf("AddStation", "ReadStationList");
    std::string bytes;
    const std::error_code failure = base::readWholeFile(path, bytes, kMostFileBytes);
    if (failure == std::errc::no_such_file_or_directory) {
        return true;
    }
    if (failure) {
        log(base::RuntimeError(base::errorNumberOf(failure)), path, kProcedure);
        return false;
    }
    const StationFile file(bytes, whole ? bytes.size() : config::kProfileValueWidth);
    const auto count = file.count();
    if (!count) {
        log(base::RuntimeError(base::ErrorNumber::TypeMismatch), path, kProcedure);
        return false;
    }
    for (std::int32_t number = 1; number <= *count; ++number) {
        addStation(list_, file.value(addressKey(number)), file.value(nameKey(number)));
    }
    return true;
}

bool StationList::setAside(const std::string& path) {
    std::error_code failure;
    std::filesystem::rename(path, path + std::string(kAside), failure);
    return !failure || failure == std::errc::no_such_file_or_directory;
}

void StationList::log(const base::RuntimeError& error, const std::string& path,
                      const config::Procedure& procedure) const {
    static_cast<void>(errors_.log(base::withPlace(error, path), procedure));
}

} // namespace tovik::radio
