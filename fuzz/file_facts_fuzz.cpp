// SPDX-License-Identifier: GPL-3.0-or-later
// Facts and pictures of any bytes: the first byte chooses the ending of the name.
#include "tags/EditedBytes.h"
#include "tags/FileFacts.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr std::array kNames = {"",      "a.mp3", "a.mod", "a.xm",  "a.it",
                                          "a.s3m", "a.ogg", "a.wma", "a.flac"};
    if (size == 0) {
        return 0;
    }
    const std::string name = kNames.at(*data % kNames.size());
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    tovik::tags::EditedBytes bytes(text);
    const auto facts = tovik::tags::factsOfBytes(bytes, name);
    if (facts.title.size() > tovik::tags::kMostFactBytes || facts.track < 0 ||
        bytes.size() != static_cast<std::int64_t>(text.size())) {
        std::abort();
    }
    static_cast<void>(tovik::tags::pictureOfBytes(bytes, name));
    return 0;
}
