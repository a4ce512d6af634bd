// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for an MP3 file: its header and tag are told, a setter writes the tag, and the
// tag is cut off again. What stands in front stays as it was.
#include "base/RuntimeError.h"
#include "SilentDialogs.h"
#include "tags/clsID3.h"

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
    static const std::string path = "/dev/shm/tovik-mpeg-fuzz-" + std::to_string(::getpid());
    const std::string bytes(data, data + size);
    demand(!base::replaceFile(path, bytes, base::Flush::No));
    fuzz::SilentDialogs dialogs;
    tags::clsID3 info(dialogs);
    info.FullName(path);
    const std::string header = info.ReadHeader();
    demand(header.empty() || header == "-2");
    demand(!header.empty() || info.ValidHeader() == "True");
    static_cast<void>(info.PlayTime());
    try {
        info.ReadMP3Info();
        demand(size >= kTagBytes);
    } catch (const base::RuntimeError&) {
        demand(size < kTagBytes);
    }
    const bool had = info.TagPresent();
    info.Title("a title");
    const std::string sound = bytes.substr(0, size - (had ? kTagBytes : 0));
    demand(content(path).size() == sound.size() + kTagBytes);
    demand(content(path).starts_with(sound));
    demand(info.RemoveTag() == 1);
    demand(content(path) == sound);
    ::unlink(path.c_str());
    return 0;
}
