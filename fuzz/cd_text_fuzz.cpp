// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for the CD-Text of a disc, as its packs, which libcdio reads, and as the strings
// that come of them. The first byte is the number of tracks.
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "cd/CdTexts.h"
#include "sound/cd/libcdio/CdText.h"

#include <cdio/logging.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace tovik;

constexpr int kMostTracks = 99;

void demand(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void readLines(const std::string& lines, int count) {
    try {
        const cd::CdTexts texts(lines, count);
        for (int index = 0; index <= count; ++index) {
            demand(base::isUtf8(texts.title(index)) && base::isUtf8(texts.performer(index)));
        }
    } catch (const base::RuntimeError&) {
        // A box says so, and the list stays empty.
    }
}

struct Destroy {
    void operator()(cdtext_t* text) const { cdtext_destroy(text); }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    cdio_loglevel_default = CDIO_LOG_ASSERT;
    if (size == 0) {
        return 0;
    }
    const int count = data[0] % (kMostTracks + 1);
    const std::string input(data + 1, data + size);
    readLines(input, count);
    static_cast<void>(sound::libcdio::withoutSecondEncoding(input));
    const std::unique_ptr<cdtext_t, Destroy> text(cdtext_init());
    std::vector<std::uint8_t> packs(data + 1, data + size);
    cdtext_data_init(text.get(), packs.data(), packs.size());
    readLines(sound::libcdio::linesOf(*text, 1, static_cast<unsigned>(count), false), count);
    return 0;
}
