// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/MessengerText.h"

#include "base/Unicode.h"
#include "ui/GlyphText.h"

namespace tovik::desktop {

host::MessengerRecord messengerRecord(const MessengerStatus& status) {
    constexpr const char* kPart = "\\0";
    std::u32string text = ui::charactersOf(kPart);
    for (const std::string& part :
         {status.category, std::string(status.enabled ? "1" : "0"), status.format, status.value1,
          status.value2, status.value3, status.value4}) {
        text.append(ui::charactersOf(part)).append(ui::charactersOf(kPart));
    }
    text.push_back(U'\0');
    return {.dwData = kNowPlayingRecord, .lpData = base::utf16LeOf(text)};
}

} // namespace tovik::desktop
