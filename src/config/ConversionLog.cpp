// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ConversionLog.h"

#include "config/ErrorTexts.h"
#include "config/LogFile.h"

namespace tovik::config {

void logConversion(const host::Paths& paths, const host::Clock& clock, std::int32_t code,
                   std::string_view fileName) {
    if (code <= 0) {
        return;
    }
    std::string words(BassErrorText(code));
    words += " " + std::to_string(code) + " occured when Tovik tried to play/convert: ";
    words += fileName;
    noteConversion(paths, clock, words);
}

void noteConversion(const host::Paths& paths, const host::Clock& clock, std::string_view words) {
    const host::LocalTime now = clock.localTime();
    std::string line = isoDate(now) + " " + logTime(now) + " ";
    line += words;
    LogFile(paths.of(host::DataItem::ConversionLog)).append(line);
}

} // namespace tovik::config
