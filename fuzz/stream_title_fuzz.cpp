// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for what a server says: headers of a station and a metadata string. Whatever it
// is, the name of a song's file fits a folder and does not lead out of it.
#include "base/Text.h"
#include "radio/StreamTitle.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace tovik;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void demandSafeName(std::string_view title) {
    const std::string name = radio::songFileName(title);
    demand(name.size() <= 255 && name.ends_with(".mp3"));
    demand(name.find('/') == std::string::npos && name.find('\0') == std::string::npos);
    demand(base::isUtf8(name));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const radio::StreamTitle title = radio::streamTitle(text);
    if (title.answer == radio::TitleAnswer::title) {
        demandSafeName(title.title);
        demand(base::isUtf8(radio::shownText(title.title)));
    }
    if (const auto name = radio::stationName(text)) {
        demand(base::isUtf8(radio::shownText(*name)));
        demand(name->find('\0') == std::string_view::npos);
    }
    return 0;
}
