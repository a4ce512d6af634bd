// SPDX-License-Identifier: GPL-3.0-or-later
#include "tags/taglib/OpenTagged.h"

#include "base/Windows1252.h"
#include "tags/FileFacts.h"

#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/infotag.h>
#include <taglib/modfile.h>
#include <taglib/tdebuglistener.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace tovik::tags::taglib {

namespace {

class Silence final : public TagLib::DebugListener {
public:
    void printMessage(const TagLib::String& /*message*/) override {}
};

TagLib::String shown(const TagLib::ByteVector& data) {
    const std::string_view bytes(data.data(), data.size());
    return {base::displayText(bytes.substr(0, bytes.find('\0'))), TagLib::String::UTF8};
}

class Id3v1Texts final : public TagLib::ID3v1::StringHandler {
public:
    [[nodiscard]] TagLib::String parse(const TagLib::ByteVector& data) const override {
        return shown(data).stripWhiteSpace();
    }
};

class Id3v2Texts final : public TagLib::ID3v2::Latin1StringHandler {
public:
    [[nodiscard]] TagLib::String parse(const TagLib::ByteVector& data) const override {
        return shown(data);
    }
};

class InfoTexts final : public TagLib::RIFF::Info::StringHandler {
public:
    [[nodiscard]] TagLib::String parse(const TagLib::ByteVector& data) const override {
        return shown(data);
    }
};

/// In force as long as the library is there, which is for ever.
struct Ways {
    Silence silence;
    Id3v1Texts id3v1;
    Id3v2Texts id3v2;
    InfoTexts info;

    Ways() {
        TagLib::setDebugListener(&silence);
        TagLib::ID3v1::Tag::setStringHandler(&id3v1);
        TagLib::ID3v2::Tag::setLatin1StringHandler(&id3v2);
        TagLib::RIFF::Info::Tag::setStringHandler(&info);
    }
};

bool isControl(char byte) {
    constexpr unsigned char kBlank = 0x20;
    constexpr unsigned char kDelete = 0x7F;
    const auto number = static_cast<unsigned char>(byte);
    return number < kBlank || number == kDelete;
}

bool continues(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// Whether a file of that ending is a module: the library takes any bytes for one without the mark
/// of its channels (as the trackers of the time wrote it).
bool hasModuleMark(TagLib::File& file) {
    constexpr long kMarkAt = 1080;
    constexpr unsigned long kMarkBytes = 4;
    file.seek(kMarkAt);
    const TagLib::ByteVector data = file.readBlock(kMarkBytes);
    const std::string_view mark(data.data(), data.size());
    constexpr std::array<std::string_view, 4> kMarks = {"M.K.", "M!K!", "CD81", "OCTA"};
    return std::ranges::find(kMarks, mark) != kMarks.end() || mark.starts_with("FLT") ||
           mark.starts_with("TDZ") || mark.ends_with("CHN") || mark.ends_with("CH");
}

} // namespace

void quiet() {
    // Never destroyed: a thread may read to the last moment of the process.
    static const auto* const ways = new Ways; // NOLINT(cppcoreguidelines-owning-memory)
    static_cast<void>(ways);
}

OpenTagged::OpenTagged(TagBytes& bytes, const std::string& name, std::int64_t mostBytes,
                       bool readOnly)
    : nameless_(bytes, {}, mostBytes, readOnly), named_(bytes, name, mostBytes, readOnly) {
    quiet();
    file_ = TagLib::FileRef(&nameless_);
    if (file_.isNull()) {
        file_ = TagLib::FileRef(&named_);
    }
    if (auto* const module = dynamic_cast<TagLib::Mod::File*>(file_.file());
        module != nullptr && !hasModuleMark(*module)) {
        file_ = {};
    }
}

std::string textOf(const TagLib::String& text) {
    return text.to8Bit(true);
}

std::string factOf(const TagLib::String& text) {
    std::string fact = textOf(text);
    std::ranges::replace_if(fact, isControl, ' ');
    if (fact.size() > kMostFactBytes) {
        std::size_t end = kMostFactBytes;
        while (end > 0 && continues(fact.at(end))) {
            --end;
        }
        fact.resize(end);
    }
    const std::size_t first = fact.find_first_not_of(' ');
    return first == std::string::npos ? std::string()
                                      : fact.substr(first, fact.find_last_not_of(' ') - first + 1);
}

} // namespace tovik::tags::taglib
