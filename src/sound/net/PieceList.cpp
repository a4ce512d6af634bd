// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/PieceList.h"

#include "base/LineReader.h"
#include "base/Text.h"
#include "sound/net/StationLists.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace tovik::sound {
namespace {

constexpr std::string_view kForm = "#EXT-X-STREAM-INF:";
constexpr std::string_view kRendition = "#EXT-X-MEDIA:";
constexpr std::uint64_t kPiecesBeforeEnd = 3;
constexpr std::uint64_t kMostNumber = 1ULL << 62U; ///< leaves room to count on
constexpr std::uint64_t kMostSeconds = 3600;

/// Of the forms without pictures: what an ear can tell apart from better ones, and a station's
/// line carries, in bits a second.
constexpr std::uint64_t kBestSound = 400'000;

constexpr std::array<std::string_view, 9> kSoundCodecs = {"mp4a", "mp3",  "ac-3",   "ec-3", "opus",
                                                          "flac", "alac", "vorbis", "mp2"};

struct TypeOfName {
    std::string_view suffix;
    std::string_view type;
};

constexpr std::array kTypesOfNames = {
    TypeOfName{".ts", "video/mp2t"},  TypeOfName{".aac", "audio/aac"},
    TypeOfName{".mp3", "audio/mpeg"}, TypeOfName{".m4s", "audio/mp4"},
    TypeOfName{".mp4", "audio/mp4"},  TypeOfName{".m4a", "audio/mp4"},
    TypeOfName{".cmfa", "audio/mp4"},
};

std::optional<std::string_view> behind(std::string_view line, std::string_view tag) {
    return line.starts_with(tag) ? std::optional(line.substr(tag.size())) : std::nullopt;
}

/// The number at the beginning; 0 when there is none.
std::uint64_t numberOf(std::string_view text) {
    std::uint64_t number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    return result.ec == std::errc() ? number : 0;
}

/// The value of `name` in "A=1,B="x,y",C=D", without quotes; empty when there is none.
std::string_view attribute(std::string_view list, std::string_view name) {
    while (!list.empty()) {
        const std::size_t equals = list.find('=');
        if (equals == std::string_view::npos) {
            break;
        }
        const std::string_view key = base::trimmed(list.substr(0, equals));
        list.remove_prefix(equals + 1);
        const bool quoted = list.starts_with('"');
        list.remove_prefix(quoted ? 1 : 0);
        const std::size_t end = std::min(list.find(quoted ? '"' : ','), list.size());
        if (key == name) {
            return list.substr(0, end);
        }
        const std::size_t comma = list.find(',', end);
        list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
    }
    return {};
}

/// "bytes@first"; without a place it begins where the stretch before it ended.
void cut(Stretch& stretch, std::string_view range, std::uint64_t next) {
    stretch.bytes = numberOf(range);
    const std::size_t at = range.find('@');
    stretch.first = at == std::string_view::npos ? next : numberOf(range.substr(at + 1));
    // What does not fit a number is no place.
    const std::uint64_t room = std::numeric_limits<std::uint64_t>::max() - stretch.first;
    stretch.bytes = std::min(*stretch.bytes, room);
}

class PieceReading {
public:
    void add(std::string_view line);

    [[nodiscard]] PieceList take() { return std::move(list_); }

private:
    void addTag(std::string_view line);
    void addPiece(std::string_view reference);
    void addHead(std::string_view attributes);

    PieceList list_;
    std::uint64_t number_ = 0;
    std::optional<std::size_t> head_;
    std::string range_; ///< of the next piece
    bool announced_ = false;
    bool missing_ = false;
};

void PieceReading::add(std::string_view line) {
    if (line.starts_with('#')) {
        addTag(line);
    } else if (!line.empty() && announced_) {
        addPiece(line);
    }
}

void PieceReading::addTag(std::string_view line) {
    if (line.starts_with("#EXTINF:")) {
        announced_ = true;
    } else if (line == "#EXT-X-ENDLIST" || line == "#EXT-X-PLAYLIST-TYPE:VOD") {
        list_.whole = true;
    } else if (line == "#EXT-X-GAP") {
        missing_ = true;
    } else if (const auto target = behind(line, "#EXT-X-TARGETDURATION:")) {
        list_.target = std::chrono::seconds(std::min(numberOf(*target), kMostSeconds));
    } else if (const auto number = behind(line, "#EXT-X-MEDIA-SEQUENCE:")) {
        number_ = list_.pieces.empty() ? std::min(numberOf(*number), kMostNumber) : number_;
    } else if (const auto range = behind(line, "#EXT-X-BYTERANGE:")) {
        range_ = *range;
    } else if (const auto map = behind(line, "#EXT-X-MAP:")) {
        addHead(*map);
    } else if (const auto key = behind(line, "#EXT-X-KEY:")) {
        list_.locked = list_.locked || attribute(*key, "METHOD") != "NONE";
    }
}

void PieceReading::addPiece(std::string_view reference) {
    Piece piece{
        .sound = {std::string(reference)}, .number = number_++, .head = head_, .missing = missing_};
    if (!range_.empty()) {
        const Stretch* const before = list_.pieces.empty() ? nullptr : &list_.pieces.back().sound;
        const bool goesOn = before != nullptr && before->reference == reference && before->bytes;
        cut(piece.sound, range_, goesOn ? before->first + *before->bytes : 0);
    }
    list_.pieces.push_back(std::move(piece));
    range_.clear();
    announced_ = missing_ = false;
}

void PieceReading::addHead(std::string_view attributes) {
    Stretch head{.reference = std::string(attribute(attributes, "URI"))};
    if (const std::string_view range = attribute(attributes, "BYTERANGE"); !range.empty()) {
        cut(head, range, 0);
    }
    list_.heads.push_back(std::move(head));
    head_ = list_.heads.size() - 1;
}

/// What is tried first.
enum class Rank { goodSound, moreSound, chosenRendition, rendition, other };

struct Form {
    Rank rank;
    std::uint64_t order; ///< within the rank
    std::string_view reference;
};

/// Whether there is nothing but sound in a form, as far as it is told.
bool isSoundAlone(std::string_view attributes) {
    std::string_view codecs = attribute(attributes, "CODECS");
    bool sound = !codecs.empty();
    while (sound && !codecs.empty()) {
        const std::size_t comma = std::min(codecs.find(','), codecs.size());
        const std::string codec = base::toLowerAscii(base::trimmed(codecs.substr(0, comma)));
        sound = std::ranges::any_of(
            kSoundCodecs, [&](std::string_view known) { return codec.starts_with(known); });
        codecs.remove_prefix(std::min(comma + 1, codecs.size()));
    }
    return sound;
}

Form formOf(std::string_view attributes, std::string_view reference) {
    const std::uint64_t bits = numberOf(attribute(attributes, "BANDWIDTH"));
    if (!isSoundAlone(attributes)) {
        return {Rank::other, bits, reference};
    }
    return bits <= kBestSound ? Form{Rank::goodSound, kBestSound - bits, reference}
                              : Form{Rank::moreSound, bits, reference};
}

/// Sound that goes with the pictures of other forms.
std::optional<Form> renditionOf(std::string_view attributes) {
    const std::string_view reference = attribute(attributes, "URI");
    if (attribute(attributes, "TYPE") != "AUDIO" || reference.empty()) {
        return std::nullopt;
    }
    const bool chosen = attribute(attributes, "DEFAULT") == "YES";
    return Form{chosen ? Rank::chosenRendition : Rank::rendition, 0, reference};
}

} // namespace

bool isListOfForms(std::string_view text) {
    return text.find(kForm) != std::string_view::npos;
}

std::vector<std::string> formsOfList(std::string_view text, std::string_view base) {
    std::vector<Form> forms;
    std::optional<std::string_view> attributes;
    base::LineReader lines(text.substr(0, kMostListBytes));
    while (const auto line = lines.next()) {
        const std::string_view entry = withoutWhite(*line);
        if (const auto form = behind(entry, kForm)) {
            attributes = form;
        } else if (const auto media = behind(entry, kRendition)) {
            if (const auto rendition = renditionOf(*media)) {
                forms.push_back(*rendition);
            }
        } else if (attributes && !entry.empty() && !entry.starts_with('#')) {
            forms.push_back(formOf(*attributes, entry));
            attributes.reset();
        }
    }
    std::ranges::stable_sort(forms, [](const Form& left, const Form& right) {
        return left.rank != right.rank ? left.rank < right.rank : left.order < right.order;
    });
    std::vector<std::string> addresses;
    for (const Form& form : forms) {
        std::string address = wholeAddress(base, form.reference);
        if (!address.empty() && addresses.size() < kMostAddresses) {
            addresses.push_back(std::move(address));
        }
    }
    return addresses;
}

PieceList piecesOfList(std::string_view text) {
    const bool cutOff = text.size() >= kMostListBytes;
    if (cutOff) {
        text = text.substr(0, kMostListBytes);
        text = text.substr(0, text.find_last_of("\r\n") + 1); // npos + 1: nothing
    }
    PieceReading reading;
    base::LineReader lines(text);
    while (const auto line = lines.next()) {
        reading.add(withoutWhite(*line));
    }
    PieceList list = reading.take();
    list.whole = list.whole || cutOff;
    return list;
}

std::uint64_t firstToPlay(const PieceList& list) noexcept {
    if (list.pieces.empty()) {
        return 0;
    }
    const std::uint64_t first = list.pieces.front().number;
    const std::uint64_t count = list.pieces.size();
    return list.whole ? first : first + count - std::min(count, kPiecesBeforeEnd);
}

std::string_view typeOfName(std::string_view reference) noexcept {
    const std::string_view path = reference.substr(0, reference.find_first_of("?#"));
    const auto* const row = std::ranges::find_if(
        kTypesOfNames, [&](const TypeOfName& type) { return path.ends_with(type.suffix); });
    return row == kTypesOfNames.end() ? std::string_view() : row->type;
}

} // namespace tovik::sound
