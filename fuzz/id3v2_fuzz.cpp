// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for what stands in front of the sound of an MP3 file: its tag is read, changed,
// written and read again. What was set comes back, and the sound stays as it was. The picture of
// the tag is one, or there is none.
#include "base/Text.h"
#include "SilentDialogs.h"
#include "tags/cMP3ID3v2.h"
#include "tags/LostFrames.h"
#include "tags/SoundStart.h"
#include "tags/TagPicture.h"

#include <cstdint>
#include <string>

#include <unistd.h>

namespace {

using namespace tovik;
using fuzz::content;
using fuzz::demand;

/// Frames of 417 bytes.
std::string sound() {
    std::string bytes;
    for (int frame = 0; frame < 6; ++frame) {
        std::string one = "\xFF\xFB\x90\x44";
        one.resize(417, static_cast<char>('a' + frame));
        bytes += one;
    }
    return bytes;
}

void checkUpdate(const std::string& path, const std::string& before, const std::string& kept) {
    fuzz::SilentDialogs dialogs;
    tags::TagWarning warning(dialogs);
    tags::cMP3ID3v2 tag(warning);
    demand(!base::replaceFile(path, before + kept, base::Flush::No));
    tag.MP3File(path);
    static_cast<void>(tags::lostFrames(path, 17));
    const std::string unknown = tag.TagText("APIC", 1);
    tag.Title("a title of its own");
    tag.Comment(std::string(before.size() % 300, 'c'));
    tag.genre(17);
    tag.track("7");
    const std::int32_t frames = tag.FrameCount();
    demand(tag.Update());
    const std::string updated = content(path);
    demand(updated.ends_with(kept));
    demand(updated.starts_with("ID3\x03"));
    tag.MP3File(path);
    demand(tag.Title() == "a title of its own");
    demand(tag.Comment() == std::string(before.size() % 300, 'c'));
    demand(tag.track() == "7" && tag.genre() == 1);
    demand(tag.TagText("APIC", 1) == unknown);
    demand(tag.FrameCount() <= frames); // but for heads of other tags
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // One file a process, in memory where the system offers that.
    static const std::string path = "/dev/shm/tovik-id3v2-fuzz-" + std::to_string(::getpid());
    const std::string bytes(data, data + size);
    demand(!base::replaceFile(path, bytes, base::Flush::No));
    const base::RegularFile file(path, base::RegularFile::Access::Read);
    static_cast<void>(tags::isMpegAudio(file));
    if (const auto picture = tags::pictureOfTag(bytes)) {
        demand(tags::pictureForm(picture->bytes) == picture->form);
        demand(picture->bytes.size() < bytes.size());
    }
    const std::string kept = sound();
    // With frames of its own the input may begin its sound earlier: then that is kept, too.
    checkUpdate(path, bytes, kept);
    ::unlink(path.c_str());
    return 0;
}
