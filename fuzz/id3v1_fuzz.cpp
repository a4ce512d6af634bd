// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for an MP3 file: its tag is read, written back and removed. Everything in front
// of the tag stays as it was.
#include "base/RuntimeError.h"
#include "SilentDialogs.h"
#include "tags/cMP3ID3v1.h"
#include "tags/ShownField.h"

#include <cstdint>
#include <string>

#include <unistd.h>

namespace {

using namespace tovik;

using fuzz::content;
using fuzz::demand;

constexpr std::size_t kTagBytes = 128;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // One file a process, in memory where the system offers that.
    static const std::string path = "/dev/shm/tovik-id3v1-fuzz-" + std::to_string(::getpid());
    const std::string bytes(data, data + size);
    demand(!base::replaceFile(path, bytes, base::Flush::No));
    fuzz::SilentDialogs dialogs;
    tags::TagWarning warning(dialogs);
    tags::cMP3ID3v1 tag(warning);
    tag.MP3File(path);
    demand(!tag.HasID3v1Tag() || size > kTagBytes);
    demand(tags::shownField(tag.Title()).size() <= 30);
    try {
        tag.Update();
        demand(size > 0);
    } catch (const base::RuntimeError&) {
        demand(size == 0);
    }
    const std::string updated = content(path);
    if (size <= kTagBytes) {
        demand(updated == bytes);
    } else {
        const std::size_t sound = tag.HasID3v1Tag() ? size - kTagBytes : size;
        demand(updated.size() == sound + kTagBytes);
        demand(updated.compare(0, sound, bytes, 0, sound) == 0);
        tags::cMP3ID3v1 again(warning);
        again.MP3File(path);
        demand(again.HasID3v1Tag());
        demand(!tag.HasID3v1Tag() ||
               (again.Title() == tag.Title() && again.genre() == tag.genre() &&
                again.Comment() == tag.Comment()));
    }
    demand(tag.RemoveTag() == (updated.size() >= kTagBytes));
    tag.MP3File(path);
    demand(!tag.HasID3v1Tag());
    demand(content(path).size() == updated.size());
    ::unlink(path.c_str());
    return 0;
}
