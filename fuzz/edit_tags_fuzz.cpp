// SPDX-License-Identifier: GPL-3.0-or-later
// Changes in the tags of any bytes: the first byte chooses the ending of the name.
#include "tags/EditedBytes.h"
#include "tags/EditTags.h"
#include "tags/Id3v1Edit.h"
#include "tags/Id3v2Edit.h"
#include "tags/TagModule.h"
#include "tags/TagWalk.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

using namespace tovik::tags;

TagChange change() {
    TagChange wanted;
    wanted.texts.at(static_cast<std::size_t>(EditField::title)) = "Title";
    wanted.texts.at(static_cast<std::size_t>(EditField::comment)) = "\xE2\x82\xAC";
    wanted.texts.at(static_cast<std::size_t>(EditField::year)) = "";
    return wanted;
}

/// What stands behind a tag stays, and the tag can be walked to its end.
void changeId3(const std::string& text) {
    EditedBytes bytes(text);
    changeVersion1(bytes, change());
    if (changeVersion2(bytes, change(), std::nullopt)) {
        const TagWalk walk(bytes.read(0, static_cast<std::size_t>(bytes.size())));
        if (!walk.complete() || walk.frames().empty()) {
            std::abort();
        }
    }
    changeVersion1(bytes, {.keep = false});
    static_cast<void>(changeVersion2(bytes, {.keep = false}, std::nullopt));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static constexpr std::array kNames = {"", "a.ogg", "a.wma", "a.flac"};
    if (size == 0 || tagModule() == nullptr) {
        return 0;
    }
    const std::string name = kNames.at(*data % kNames.size());
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    changeId3(text);
    EditedBytes bytes(text);
    static_cast<void>(tagModule()->readId3v2(bytes));
    static_cast<void>(tagModule()->readOther(bytes, name));
    static_cast<void>(tagModule()->changeOther(bytes, name, change()));
    return 0;
}
