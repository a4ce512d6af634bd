// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/taglib/ReadFacts.h"

#include "tags/taglib/OpenTagged.h"

#include <taglib/aiffproperties.h>
#include <taglib/apeproperties.h>
#include <taglib/asffile.h>
#include <taglib/asfpicture.h>
#include <taglib/asfproperties.h>
#include <taglib/asftag.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/flacfile.h>
#include <taglib/flacproperties.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4coverart.h>
#include <taglib/mp4file.h>
#include <taglib/mp4properties.h>
#include <taglib/mp4tag.h>
#include <taglib/mpegfile.h>
#include <taglib/mpegproperties.h>
#include <taglib/tpropertymap.h>
#include <taglib/wavpackproperties.h>
#include <taglib/wavproperties.h>
#include <taglib/xiphcomment.h>

#include <algorithm>
#include <exception>
#include <iterator>

namespace tovik::tags::taglib {

namespace {

/// More than tags and their pictures take; modules are read whole.
constexpr std::int64_t kMostBytes = std::int64_t{64} << 20;

constexpr int kBitsOfMpeg = 16; ///< what its decoder gives

std::string versionOf(TagLib::MPEG::Header::Version version) {
    switch (version) {
    case TagLib::MPEG::Header::Version1:
        return "1.0";
    case TagLib::MPEG::Header::Version2:
        return "2.0";
    case TagLib::MPEG::Header::Version2_5:
        return "2.5";
    }
    return {};
}

template <typename Properties>
bool takeBits(const TagLib::AudioProperties& properties, FileFacts& facts) {
    if (const auto* const known = dynamic_cast<const Properties*>(&properties)) {
        facts.bits = known->bitsPerSample();
        return true;
    }
    return false;
}

template <typename... Properties>
void takeBitsOfAny(const TagLib::AudioProperties& properties, FileFacts& facts) {
    static_cast<void>((takeBits<Properties>(properties, facts) || ...));
}

void takeSound(const TagLib::AudioProperties& sound, FileFacts& facts) {
    facts.seconds = sound.lengthInSeconds();
    facts.kilobits = sound.bitrate();
    facts.hertz = sound.sampleRate();
    facts.channels = sound.channels();
    if (const auto* const mpeg = dynamic_cast<const TagLib::MPEG::Properties*>(&sound)) {
        if (facts.hertz > 0) { // else no header was found
            facts.bits = kBitsOfMpeg;
            facts.mpeg = MpegFacts{.version = versionOf(mpeg->version()),
                                   .layer = std::to_string(mpeg->layer()),
                                   .copyright = mpeg->isCopyrighted(),
                                   .original = mpeg->isOriginal()};
        }
        return;
    }
    takeBitsOfAny<TagLib::FLAC::Properties, TagLib::RIFF::WAV::Properties,
                  TagLib::RIFF::AIFF::Properties, TagLib::ASF::Properties, TagLib::MP4::Properties,
                  TagLib::APE::Properties, TagLib::WavPack::Properties>(sound, facts);
}

void takeTexts(const TagLib::Tag& tag, FileFacts& facts) {
    facts.artist = factOf(tag.artist());
    facts.title = factOf(tag.title());
    facts.album = factOf(tag.album());
    facts.genre = factOf(tag.genre());
    facts.year = tag.year() > 0 ? std::to_string(tag.year()) : std::string();
    constexpr unsigned kMostTracks = 9999;
    facts.track = static_cast<std::int32_t>(std::min(tag.track(), kMostTracks));
}

std::int32_t discOf(const TagLib::File& file) {
    const TagLib::PropertyMap properties = file.properties();
    const auto disc = properties.find("DISCNUMBER");
    return disc == properties.end() || disc->second.isEmpty() ? 0 : disc->second.front().toInt();
}

std::string bytesOf(const TagLib::ByteVector& data) {
    return {data.data(), data.size()};
}

/// Gathers pictures, the front cover in front of the others.
class Pictures {
public:
    void add(const TagLib::ByteVector& data, bool front) {
        (front ? fronts_ : others_).push_back(bytesOf(data));
    }

    void addAll(const TagLib::List<TagLib::FLAC::Picture*>& pictures) {
        for (const TagLib::FLAC::Picture* const picture : pictures) {
            add(picture->data(), picture->type() == TagLib::FLAC::Picture::FrontCover);
        }
    }

    void addAll(const TagLib::ID3v2::Tag& tag) {
        using Frame = TagLib::ID3v2::AttachedPictureFrame;
        for (const TagLib::ID3v2::Frame* const frame : tag.frameList("APIC")) {
            if (const auto* const picture = dynamic_cast<const Frame*>(frame)) {
                add(picture->picture(), picture->type() == Frame::FrontCover);
            }
        }
    }

    void addAll(const TagLib::ASF::Tag& tag) {
        for (const TagLib::ASF::Attribute& attribute : tag.attribute("WM/Picture")) {
            const TagLib::ASF::Picture picture = attribute.toPicture();
            if (picture.isValid()) {
                add(picture.picture(), picture.type() == TagLib::ASF::Picture::FrontCover);
            }
        }
    }

    void addAll(const TagLib::MP4::Tag& tag) {
        if (tag.contains("covr")) {
            for (const TagLib::MP4::CoverArt& cover : tag.item("covr").toCoverArtList()) {
                add(cover.data(), true);
            }
        }
    }

    [[nodiscard]] std::vector<std::string> take() {
        std::ranges::move(others_, std::back_inserter(fronts_));
        return std::move(fronts_);
    }

private:
    std::vector<std::string> fronts_;
    std::vector<std::string> others_;
};

void gather(TagLib::File& file, Pictures& pictures) {
    if (auto* const flac = dynamic_cast<TagLib::FLAC::File*>(&file)) {
        pictures.addAll(flac->pictureList());
    }
    if (auto* const mpeg = dynamic_cast<TagLib::MPEG::File*>(&file);
        mpeg != nullptr && mpeg->ID3v2Tag() != nullptr) {
        pictures.addAll(*mpeg->ID3v2Tag());
    }
    TagLib::Tag* const tag = file.tag();
    if (auto* const xiph = dynamic_cast<TagLib::Ogg::XiphComment*>(tag)) {
        pictures.addAll(xiph->pictureList());
    } else if (const auto* const asf = dynamic_cast<const TagLib::ASF::Tag*>(tag)) {
        pictures.addAll(*asf);
    } else if (const auto* const mp4 = dynamic_cast<const TagLib::MP4::Tag*>(tag)) {
        pictures.addAll(*mp4);
    }
}

} // namespace

FileFacts readFacts(TagBytes& bytes, const std::string& name) {
    FileFacts facts;
    try {
        OpenTagged opened(bytes, name, kMostBytes, true);
        const TagLib::FileRef& ref = opened.file();
        if (ref.isNull()) {
            return facts;
        }
        if (const TagLib::Tag* const tag = ref.tag()) {
            takeTexts(*tag, facts);
            facts.disc = discOf(*ref.file());
        }
        if (const TagLib::AudioProperties* const sound = ref.audioProperties()) {
            takeSound(*sound, facts);
        }
    } catch (const std::exception&) { // too large for the memory that there is
        return {};
    }
    return facts;
}

std::vector<std::string> readPictures(TagBytes& bytes, const std::string& name) {
    Pictures pictures;
    try {
        OpenTagged opened(bytes, name, kMostBytes, true);
        const TagLib::FileRef& ref = opened.file();
        if (!ref.isNull()) {
            gather(*ref.file(), pictures);
        }
    } catch (const std::exception&) {
        return {};
    }
    return pictures.take();
}

} // namespace tovik::tags::taglib
