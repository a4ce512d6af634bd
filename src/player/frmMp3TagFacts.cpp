// SPDX-License-Identifier: GPL-3.0-or-later
// The technical page of the tag editor.
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "player/CBASS_TIME.h"
#include "player/frmMp3Tag.h"
#include "tags/clsID3.h"

namespace tovik::player {

namespace {

constexpr std::string_view kPlace = "[x]";
constexpr std::string_view kTrue = "True";
constexpr const char* kMonoMode = "Mono";
constexpr const char* kStereoMode = "Stereo";

/// What a template makes of a value; without a place for it the value stands with its unit.
std::string filled(std::string_view text, const std::string& value, std::string_view unit = {}) {
    if (value.empty()) {
        return "";
    }
    return text.find(kPlace) == std::string_view::npos ? value + std::string(unit)
                                                       : base::replaceAll(text, kPlace, value);
}

} // namespace

void frmMp3Tag::loadOwnSound() {
    constexpr std::int32_t kUsualBits = 16; // of formats whose samples have none of their own
    constexpr std::int32_t kBitsOfByte = 8;
    if (own_.hertz <= 0) {
        return;
    }
    const std::int32_t bits = own_.bits > 0 ? own_.bits : kUsualBits;
    facts_.frequency = std::to_string(own_.hertz);
    facts_.bitsAndMode =
        std::to_string(bits) + " bit, " + (own_.channels == 1 ? kMonoMode : kStereoMode);
    facts_.bytesPerSecond =
        std::to_string(std::int64_t{own_.hertz} * own_.channels * bits / kBitsOfByte);
    facts_.bitsPerSecond = std::to_string(own_.kilobits);
    facts_.duration = CBASS_TIME::GetTime(own_.seconds);
}

void frmMp3Tag::loadSound(std::int64_t fileBytes) {
    if (comfort_.tellsOwnSound) {
        loadOwnSound();
        return;
    }
    const sound::Handle channel = needs_.core.state.active();
    if (channel == sound::kNoHandle) {
        return;
    }
    const CBASS_TIME time(needs_.core.sound);
    facts_.frequency = std::to_string(time.GetFrequency(channel));
    facts_.bitsAndMode = std::to_string(time.GetBits(channel)) + " bit, " + time.GetMode(channel);
    facts_.bytesPerSecond = std::to_string(time.GetBytesPerSecond(channel));
    facts_.duration = CBASS_TIME::GetTime(time.GetDuration(channel));
    try {
        facts_.bitsPerSecond = std::to_string(time.GetBitsPerSecond(channel, fileBytes));
    } catch (const base::RuntimeError&) { // beyond what is told: another file is shown
        facts_.bitsPerSecond.clear();
    }
}

void frmMp3Tag::loadHeader() {
    if (comfort_.findsAllHeaders) {
        facts_.validHeader = own_.mpeg.has_value();
        const tags::MpegFacts mpeg = own_.mpeg.value_or(tags::MpegFacts{});
        facts_.version = mpeg.version;
        facts_.layer = mpeg.layer;
        facts_.copyright = mpeg.copyright;
        facts_.original = mpeg.original;
        return;
    }
    tags::clsID3 header(needs_.dialogs);
    header.FullName(form_.Text1);
    try {
        header.ReadHeader();
    } catch (const base::RuntimeError&) { // a file that is not there has no header
        return;
    }
    facts_.version = header.MPEGVersion();
    facts_.layer = header.Layer();
    facts_.copyright = header.Copyright();
    facts_.original = header.Original();
    facts_.validHeader = header.ValidHeader() == kTrue;
}

std::array<std::string, 11> frmMp3Tag::Label4(const TagWords& words) const {
    const auto& labels = words.labels;
    const auto flag = [&words](bool value) { return value ? words.yes : words.no; };
    return {filled(words.sizeTemplate, facts_.size),
            filled(labels[1], facts_.frequency, " Hz"),
            filled(labels[2], facts_.bitsAndMode),
            filled(labels[3], facts_.bytesPerSecond),
            filled(labels[4], facts_.bitsPerSecond, " kbps"),
            filled(labels[5], facts_.duration),
            filled(labels[6], facts_.version),
            filled(labels[7], facts_.layer),
            flag(facts_.copyright),
            flag(facts_.original),
            flag(facts_.validHeader)};
}

} // namespace tovik::player
