// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd/frmCdNFO.h"

#include "base/AtomicFile.h"
#include "base/PathText.h"
#include "base/RegularFile.h"
#include "base/Text.h"
#include "cd/DiscFile.h"
#include "cd/RipRows.h"
#include "config/Profile.h"
#include "config/SettingText.h"
#include "config/Version.h"
#include "config/WriteFailure.h"
#include "host/BesideJob.h"
#include "player/LiveSetting.h"
#include "tags/cMP3ID3v1.h"
#include "tags/cMP3ID3v2.h"

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string_view>
#include <utility>

namespace tovik::cd {

namespace {

constexpr std::int16_t kNoGenre = -1;
constexpr std::int16_t kLastGenre1 = 147;
constexpr std::int16_t kLastGenre2 = 255;
constexpr std::string_view kTaggedFormat = "MP3";
constexpr std::string_view kServerFile = "server.ini";
constexpr std::string_view kServerSection = "server";
constexpr std::int32_t kDrivesNumber = 3;
constexpr int kStores = 2;

/// The first genre that `fits`.
template <typename Fits>
std::int16_t findGenre(std::int16_t first, std::int16_t last, Fits fits) {
    for (std::int16_t genre = first; genre <= last; ++genre) {
        if (fits(genre)) {
            return genre;
        }
    }
    return kNoGenre;
}

void call(const std::function<void()>& hook) {
    if (hook) {
        hook();
    }
}

std::string discFilePath(const host::Paths& paths, std::string_view name) {
    return base::joinPath(paths.of(host::DataItem::DiscFiles), name);
}

/// What a search has found.
DiscForm fetchedForm(const discs::FREEDB& freedb) {
    DiscForm form;
    form.Text1 = {freedb.AlbumTitle(), freedb.AlbumYear()};
    form.Text2 = {freedb.AlbumArtist(), {}, freedb.AlbumGenre()};
    for (int track = 1; track <= freedb.TrackCount(); ++track) {
        form.List1.push_back(freedb.TrackTitle(track));
    }
    return form;
}

/// The bytes of a file beside the discs' files, read beside this thread; nothing where it cannot be
/// read, or the program is ending.
std::optional<std::string> readBeside(host::MessagePump& pump, const host::Paths& paths,
                                      const std::string& name) {
    const auto bytes = std::make_shared<std::optional<std::string>>();
    const bool done = host::runBeside(pump, [bytes, paths, name] {
        std::string text;
        if (!base::readWholeFile(discFilePath(paths, name), text, kMostDiscFileBytes)) {
            *bytes = std::move(text);
        }
    });
    return done ? *bytes : std::nullopt;
}

} // namespace

frmCdNFO::frmCdNFO(const Needs& needs) : needs_(needs) {}

void frmCdNFO::Show() {
    ripAsked_ = false;
    call(hooks.open);
    if (std::exchange(ripAsked_, false)) {
        call(hooks.Rip_All);
    }
}

void frmCdNFO::Unload() {
    emptyFields();
    form().Text1.front() = form().told.front();
    form().Text2.front() = form().told.back();
    form().List1.clear();
    form().V1Genre = form().V2Genre = kNoGenre;
    typed_ = false;
    toc_.clear();
    loaded_ = false;
}

void frmCdNFO::forgetOtherDisc() {
    if (loaded_ && firstToc() != toc_) {
        keepTyped();
        Unload();
    }
}

void frmCdNFO::Form_Load(CdNFOView& view, const std::function<void()>& words) {
    view_ = &view;
    form().changed = [this] { show(); };
    searchEnd_.reset();
    fresh_ = !loaded_;
    config::guard(needs_.core.errors, config::procedureOf("CDNFO", "Load"), [&] {
        if (fresh_) {
            nameTracks();
        }
        staysOnTop_ = player::readLive(needs_.core.settings, "ASOT", config::settingToInt16) != 0;
        words();
    });
    loaded_ = true;
    show();
}

void frmCdNFO::Form_Activate() {
    const std::string toc = firstToc();
    if (!fresh_ && toc == toc_) {
        return;
    }
    if (!fresh_) { // another disc than the one that was named
        keepTyped();
        Unload();
        nameTracks();
        loaded_ = true;
        show();
    }
    fresh_ = false;
    toc_ = toc;
    if (!load_local_cddb() && !toc.empty() && view_ != nullptr) {
        config::guard(needs_.core.errors, config::procedureOf("CDNFO", "command1"), [this] {
            if (player::readLiveOr(needs_.core.settings, "CDSEARCH", config::settingToFlag,
                                   false)) {
                search();
            }
        });
    }
}

void frmCdNFO::Form_Unload() {
    view_ = nullptr;
    form().changed = nullptr;
    needs_.FREEDB.callOff();
    keepTyped();
}

bool frmCdNFO::Command1_Click(Button button) {
    bool closes = button == Button::close;
    config::guard(needs_.core.errors, config::procedureOf("CDNFO", "command1"), [&] {
        switch (button) {
        case Button::rip:
            rip();
            closes = true;
            break;
        case Button::close:
            keepTyped();
            Unload();
            break;
        case Button::search:
            search();
            break;
        case Button::clear:
            clear();
            break;
        }
    });
    return closes;
}

void frmCdNFO::Text1_Change(int index, const std::string& text) {
    std::string& field = form().Text1.at(static_cast<std::size_t>(index));
    typed_ = typed_ || field != text;
    field = text;
}

void frmCdNFO::Text2_Change(int index, const std::string& text) {
    config::guard(needs_.core.errors, config::procedureOf("CDNFO", "text2_change"), [&] {
        std::string& field = form().Text2.at(static_cast<std::size_t>(index));
        const auto track = Get_Selected();
        typed_ = typed_ || (field != text && (index != kTrackField || track));
        field = text;
        if (index == kTrackField && track) {
            form().List1.at(*track) = text;
            if (view_ != nullptr) {
                view_->showTrack(*track);
            }
        }
    });
}

void frmCdNFO::List1_Click(int track) {
    config::guard(needs_.core.errors, config::procedureOf("CDNFO", "list1_click"), [&] {
        const auto row = static_cast<std::size_t>(track);
        selected_ = track >= 0 && row < form().List1.size() ? std::optional(row) : std::nullopt;
        form().Text2.at(kTrackField) = selected_ ? form().List1[row] : std::string();
    });
}

std::optional<std::size_t> frmCdNFO::Get_Selected() const {
    return selected_;
}

bool frmCdNFO::load_local_cddb() {
    bool found = false;
    config::guard(needs_.core.errors, config::procedureOf("CDNFO", "load_local_cddb"), [&] {
        const std::string toc = firstToc();
        if (toc.empty()) {
            return;
        }
        const auto bytes = readBeside(needs_.pump, needs_.paths, discs::FREEDB::DiscId(toc));
        found = bytes.has_value();
        if (!found) {
            return;
        }
        deselect();
        try {
            readDiscFile(*bytes, form(),
                         needs_.core.state.comfort.readsDiscKeys ? DiscKeys::inFront
                                                                 : DiscKeys::anywhere);
            typed_ = false;
        } catch (...) {
            show(); // what stood before the bad line is taken over
            throw;
        }
        show();
    });
    return found;
}

void frmCdNFO::rip() {
    needs_.FREEDB.callOff();
    const std::string format = base::toUpperAscii(player::readLive(needs_.core.settings, "DOF"));
    const std::string genre = base::toUpperAscii(form().Text2[kGenreField]);
    form().V1Genre = form().V2Genre = kNoGenre;
    if (format.starts_with(kTaggedFormat) && !genre.empty()) {
        const bool whole = needs_.core.state.comfort.takesWholeGenre;
        form().V1Genre = findGenre(0, kLastGenre1, [&genre, whole](int number) {
            const std::string name = base::toUpperAscii(tags::cMP3ID3v1::GenreName(number));
            return whole ? name == genre : name.find(genre) != std::string::npos;
        });
        form().V2Genre = findGenre(whole ? 0 : 1, kLastGenre2, [&genre](int number) {
            return base::toUpperAscii(tags::cMP3ID3v2::GenreName(number)) == genre;
        });
    }
    // What was typed is of this disc, also where it was put in while the dialog was open.
    toc_ = firstToc();
    keepTyped();
    ripAsked_ = true;
}

void frmCdNFO::search() {
    if (searching_) {
        return;
    }

    // Other handlers run meanwhile: however this ends, the dialog must know.
    struct Searching {
        explicit Searching(frmCdNFO& form) : form_(form) {
            form_.searching_ = true;
            form_.showSearch();
        }

        ~Searching() {
            form_.searching_ = false;
            form_.showSearch();
        }

        Searching(const Searching&) = delete;
        Searching& operator=(const Searching&) = delete;

    private:
        frmCdNFO& form_;
    } const running(*this);

    discs::FREEDB& freedb = needs_.FREEDB;
    freedb.CacheDirectory = needs_.paths.of(host::DataItem::DiscFiles);
    freedb.ClientName = "Tovik";
    freedb.ClientVersion = config::Version(needs_.core.settings).clientVersion();
    freedb.firstNumber = freedb.secondNumber = kDrivesNumber;
    freedb.firstSwitch = freedb.secondSwitch = true;
    const auto server = readBeside(needs_.pump, needs_.paths, std::string(kServerFile));
    freedb.ServerHost = config::profileValue(server.value_or(""), kServerSection, "host");
    freedb.ClientEmail = config::profileValue(server.value_or(""), kServerSection, "mail");
    const std::string toc = firstToc();
    const int result = view_ != nullptr ? freedb.Query(toc) : 0;
    searchEnd_ = freedb.lastEnd();
    if (result == 0 || view_ == nullptr) {
        return;
    }
    const DiscForm fetched = fetchedForm(freedb);
    if (firstToc() == toc) { // else another disc was put in meanwhile
        takeFetched(fetched);
    }
    if (result == kStores) {
        store(discs::FREEDB::DiscId(toc), fetched);
    }
}

void frmCdNFO::clear() {
    typed_ = false; // what is kept of the disc stays
    emptyFields();
    nameTracks();
    show();
}

void frmCdNFO::emptyFields() {
    form().Text1 = {};
    form().Text2 = {};
    selected_.reset();
}

void frmCdNFO::deselect() {
    selected_.reset();
    form().Text2.at(kTrackField).clear();
}

void frmCdNFO::nameTracks() {
    deselect();
    form().List1.clear();
    // Up to the last row's track: one without a row has its place among the names all the same.
    const playlist::Row rows = needs_.lstTracks.ListCount();
    const std::int32_t tracks = rows > 0 ? trackOfRow(needs_.lstTracks, rows).value_or(-1) + 1 : 0;
    for (std::int32_t track = 1; track <= tracks; ++track) {
        form().List1.push_back("Track " + std::to_string(track));
    }
}

void frmCdNFO::takeFetched(const DiscForm& fetched) {
    deselect();
    form().Text1 = fetched.Text1;
    form().Text2 = fetched.Text2;
    form().List1 = fetched.List1;
    typed_ = false;
    show();
}

void frmCdNFO::store(const std::string& discId, const DiscForm& fetched) {
    const auto done = host::runBeside(
        needs_.pump, [paths = needs_.paths, discId, text = discFileText(discId, fetched)] {
            const std::string path = discFilePath(paths, discId);
            std::error_code failure;
            std::filesystem::create_directories(base::folderPart(path), failure);
            if (const auto lost = base::replaceFile(path, text, base::Flush::No)) {
                config::raiseWriteFailure(lost, path);
            }
        });
    static_cast<void>(done); // an end of the program does not keep it from being written
}

/// What the user knows of the disc is kept as what a search has found.
void frmCdNFO::keepTyped() {
    if (!needs_.core.state.comfort.keepsTypedNames || !typed_ || toc_.empty()) {
        return;
    }
    typed_ = false;
    config::guard(needs_.core.errors, config::procedureOf("CDNFO", "command1"),
                  [this] { store(discs::FREEDB::DiscId(toc_), form()); });
}

/// A deliberate oddity: the disc in the first drive, whichever drive is chosen.
std::string frmCdNFO::firstToc() const {
    const std::string drives = needs_.FREEDB.CdDrives();
    std::string_view letters = drives;
    const bool chosen = needs_.core.state.comfort.namesChosenDisc && hooks.drive;
    for (std::int32_t before = chosen ? hooks.drive() : 0; before > 0; --before) {
        const std::size_t bar = letters.find('|');
        letters.remove_prefix(bar == std::string_view::npos ? letters.size() : bar + 1);
    }
    return letters.empty()
               ? std::string()
               : needs_.FREEDB.DiscToc(std::string(letters.substr(0, letters.find('|'))));
}

void frmCdNFO::show() {
    if (view_ != nullptr) {
        view_->showData();
    }
}

void frmCdNFO::showSearch() {
    if (view_ != nullptr) {
        view_->showSearch();
    }
}

} // namespace tovik::cd
