// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/taglib/EditTag.h"

#include "tags/taglib/OpenTagged.h"

#include <taglib/asffile.h>
#include <taglib/asftag.h>
#include <taglib/commentsframe.h>
#include <taglib/flacfile.h>
#include <taglib/id3v2framefactory.h>
#include <taglib/id3v2tag.h>
#include <taglib/mpegfile.h>
#include <taglib/textidentificationframe.h>
#include <taglib/xiphcomment.h>

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <string_view>

namespace tovik::tags::taglib {

namespace {

constexpr std::int64_t kMostBytes = std::int64_t{1} << 30; ///< a file may be read more than once

/// What a field is called, by `EditField`.
struct Names {
    const char* id3v2;
    const char* xiph;
    const char* windows; ///< null: not an attribute, but one of the four of every file
};

constexpr std::array<Names, kEditFields> kNames{{
    {"TIT2", "TITLE", nullptr},
    {"TPE1", "ARTIST", nullptr},
    {"TALB", "ALBUM", "WM/AlbumTitle"},
    {"TDRC", "DATE", "WM/Year"},
    {"COMM", "COMMENT", nullptr},
    {"TRCK", "TRACKNUMBER", "WM/TrackNumber"},
    {"TCON", "GENRE", "WM/Genre"},
    {"TCOM", "COMPOSER", "WM/Composer"},
    {"TOPE", "ORIGINALARTIST", "WM/OriginalArtist"},
    {"TCOP", "COPYRIGHT", nullptr},
    {"WOAR", "WEBSITE", "WM/AuthorURL"},
    {"TENC", "ENCODED-BY", "WM/EncodedBy"},
}};

/// Comments of Vorbis have two names that are used as much (xiph.org leaves it open).
constexpr const char* kDescription = "DESCRIPTION";

TagLib::String wide(const std::string& text) {
    return {text, TagLib::String::UTF8};
}

std::string& at(EditTag& tag, EditField field) {
    return tag.texts.at(static_cast<std::size_t>(field));
}

void readXiph(TagLib::Ogg::XiphComment& comment, EditTag& tag) {
    const TagLib::Ogg::FieldListMap& fields = comment.fieldListMap();
    const auto textOfField = [&fields](const char* name) {
        const auto field = fields.find(name);
        return field == fields.end() ? std::string() : textOf(field->second.toString(", "));
    };
    tag.there = !comment.isEmpty() || !comment.pictureList().isEmpty();
    for (std::size_t i = 0; i < kEditFields; ++i) {
        tag.texts.at(i) = textOfField(kNames.at(i).xiph);
    }
    if (at(tag, EditField::comment).empty()) {
        at(tag, EditField::comment) = textOfField(kDescription);
    }
}

void changeXiph(TagLib::Ogg::XiphComment& comment, const TagChange& change) {
    if (!change.keep) {
        comment.removeAllFields();
        comment.removeAllPictures();
        return;
    }
    for (std::size_t i = 0; i < kEditFields; ++i) {
        const auto& text = change.texts.at(i);
        if (!text) {
            continue;
        }
        TagLib::String name(kNames.at(i).xiph);
        if (static_cast<EditField>(i) == EditField::comment && !comment.contains(name) &&
            comment.contains(kDescription)) {
            name = kDescription;
        }
        comment.removeFields(name);
        if (!text->empty()) {
            comment.addField(name, wide(*text), false);
        }
    }
}

/// What tells of the sound and not of the music, as the list of attributes of Microsoft's Windows
/// Media Format SDK names it: it belongs to no tag.
constexpr std::array<std::string_view, 15> kTechnicalAttributes{"IsVBR",
                                                                "ASFLeakyBucketPairs",
                                                                "WMFSDKVersion",
                                                                "WMFSDKNeeded",
                                                                "DeviceConformanceTemplate",
                                                                "PeakValue",
                                                                "AverageLevel",
                                                                "VBR Peak",
                                                                "Buffer Average",
                                                                "WM/WMADRCPeakReference",
                                                                "WM/WMADRCPeakTarget",
                                                                "WM/WMADRCAverageReference",
                                                                "WM/WMADRCAverageTarget",
                                                                "WM/EncodingTime",
                                                                "WM/EncodingSettings"};

bool isTechnical(const std::string& name) {
    return std::ranges::find(kTechnicalAttributes, name) != kTechnicalAttributes.end();
}

TagLib::ASF::AttributeListMap technicalOf(const TagLib::ASF::AttributeListMap& attributes) {
    TagLib::ASF::AttributeListMap technical;
    for (const auto& [name, values] : attributes) {
        if (isTechnical(textOf(name))) {
            technical.insert(name, values);
        }
    }
    return technical;
}

void readWindows(const TagLib::ASF::Tag& asf, EditTag& tag) {
    const TagLib::ASF::AttributeListMap& all = asf.attributeListMap();
    tag.there = !asf.TagLib::Tag::isEmpty() || technicalOf(all).size() != all.size();
    for (std::size_t i = 0; i < kEditFields; ++i) {
        const char* const name = kNames.at(i).windows;
        if (name == nullptr || !asf.contains(name)) {
            continue;
        }
        const TagLib::ASF::Attribute attribute = asf.attribute(name).front();
        tag.texts.at(i) = attribute.type() == TagLib::ASF::Attribute::UnicodeType
                              ? textOf(attribute.toString())
                              : std::to_string(attribute.toUInt());
    }
    at(tag, EditField::title) = textOf(asf.title());
    at(tag, EditField::artist) = textOf(asf.artist());
    at(tag, EditField::comment) = textOf(asf.comment());
    at(tag, EditField::copyright) = textOf(asf.copyright());
}

void setFixed(TagLib::ASF::Tag& asf, EditField field, const TagLib::String& text) {
    switch (field) {
    case EditField::title:
        asf.setTitle(text);
        break;
    case EditField::artist:
        asf.setArtist(text);
        break;
    case EditField::comment:
        asf.setComment(text);
        break;
    case EditField::copyright:
        asf.setCopyright(text);
        break;
    default:
        break;
    }
}

void changeWindows(TagLib::ASF::Tag& asf, const TagChange& change) {
    if (!change.keep) {
        asf.attributeListMap() = technicalOf(asf.attributeListMap());
    }
    for (std::size_t i = 0; i < kEditFields; ++i) {
        const auto& text = change.texts.at(i);
        const char* const name = kNames.at(i).windows;
        if (name == nullptr && (text || !change.keep)) {
            setFixed(asf, static_cast<EditField>(i), change.keep ? wide(*text) : TagLib::String());
        } else if (text && change.keep) {
            asf.removeItem(name);
            if (!text->empty()) {
                asf.setAttribute(name, TagLib::ASF::Attribute(wide(*text)));
            }
        }
    }
}

/// The comments of a file that has some, or may have.
TagLib::Ogg::XiphComment* xiphOf(TagLib::File& file, bool create) {
    if (auto* const flac = dynamic_cast<TagLib::FLAC::File*>(&file)) {
        return flac->xiphComment(create);
    }
    return dynamic_cast<TagLib::Ogg::XiphComment*>(file.tag());
}

bool changeAndSave(TagLib::File& file, const TagChange& change) {
    if (auto* const xiph = xiphOf(file, true)) {
        changeXiph(*xiph, change);
        return file.save();
    }
    if (auto* const asf = dynamic_cast<TagLib::ASF::Tag*>(file.tag())) {
        changeWindows(*asf, change);
        return file.save();
    }
    return false;
}

std::string commentOf(const TagLib::ID3v2::Tag& id3) {
    return textOf(id3.comment());
}

std::string textOfFrames(const TagLib::ID3v2::FrameList& frames) {
    const auto* const text =
        dynamic_cast<const TagLib::ID3v2::TextIdentificationFrame*>(frames.front());
    return textOf(text != nullptr ? text->fieldList().toString(", ") : frames.front()->toString());
}

} // namespace

EditTag readId3v2(TagBytes& bytes) {
    EditTag tag;
    try {
        quiet();
        TagStream stream(bytes, {}, kMostBytes, true);
        TagLib::MPEG::File file(&stream, TagLib::ID3v2::FrameFactory::instance(), false);
        if (!file.hasID3v2Tag()) {
            return tag;
        }
        tag.there = true;
        const TagLib::ID3v2::Tag& id3 = *file.ID3v2Tag();
        for (std::size_t i = 0; i < kEditFields; ++i) {
            const TagLib::ID3v2::FrameList& frames = id3.frameList(kNames.at(i).id3v2);
            if (!frames.isEmpty()) {
                tag.texts.at(i) = textOfFrames(frames);
            }
        }
        at(tag, EditField::comment) = commentOf(id3);
    } catch (const std::exception&) { // too large for the memory that there is
        return {};
    }
    return tag;
}

EditTags readOther(TagBytes& bytes, const std::string& name) {
    EditTags tags;
    try {
        OpenTagged opened(bytes, name, kMostBytes, true);
        const TagLib::FileRef& ref = opened.file();
        if (ref.isNull()) {
            return tags;
        }
        if (const auto* const asf = dynamic_cast<const TagLib::ASF::Tag*>(ref.tag())) {
            tags.kind = TagKind::windows;
            readWindows(*asf, tags.version2);
        } else if (auto* const xiph = xiphOf(*ref.file(), true)) {
            tags.kind = TagKind::xiph;
            readXiph(*xiph, tags.version2);
        }
    } catch (const std::exception&) {
        return {};
    }
    return tags;
}

bool changeOther(TagBytes& bytes, const std::string& name, const TagChange& change) {
    try {
        OpenTagged opened(bytes, name, kMostBytes, false);
        return !opened.file().isNull() && changeAndSave(*opened.file().file(), change) &&
               !opened.exhausted();
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace tovik::tags::taglib
