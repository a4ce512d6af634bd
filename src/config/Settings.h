// SPDX-License-Identifier: GPL-3.0-or-later
// Settings by key, straight from the file: there is no copy in memory. Interface thread.
#pragma once

#include "base/AtomicFile.h"
#include "base/Comfort.h"
#include "base/RuntimeError.h"
#include "config/clsXML.h"
#include "config/ShippedSettings.h"
#include "host/Paths.h"

#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace tovik::config {

/// Reads and writes "db/settings.xml". Every access, also one that only reads, reads the file anew
/// into the shared document and writes it back whole. A key in any case names the element in upper
/// case. The program has no defaults: a key that the file lacks raises 94 when it is read and is
/// not created when it is written. So does every key of a missing or damaged file, which is left
/// as it is. An error of a read names the file and the key, that of a conversion the text, too.
///
/// With comfort (`obey`) what came with the program stands in for a key that is missing or bad, a
/// damaged file is kept beside the new one, and the file is written only where it changes. For one
/// that cannot be read what was read last stands in, else what came with the program; changes are
/// made to that alone, and raise what reading failed with, until the file can be read again.
class Settings {
public:
    /// Is told of a file that could not be written back after a read.
    using Unwritten = std::function<void(const base::RuntimeError&)>;

    /// Is told of a key whose value the user is changing.
    using Changed = std::function<void(std::string_view key)>;

    /// Is told of a text that a shipped one stands in for.
    using Replaced = std::function<void(const base::RuntimeError&)>;

    /// Is told where a damaged file is kept.
    using KeptAside = std::function<void(const std::string& path)>;

    /// Is told why the file cannot be read; the description ends with its path.
    using Unread = std::function<void(const base::RuntimeError&)>;

    /// Both are kept by reference. The document is the one that the whole program shares.
    Settings(const host::Paths& paths, clsXML& settingsXml);

    /// What of its behaviour is kinder, which outlives this, and the settings that came with the
    /// program; see `ShippedSettings::lieAt`. Nothing is kinder without it.
    void obey(const base::Comfort& comfort, std::string shipped,
              std::function<std::string()> musicFolder = {});

    /// Each bad text is told once.
    void reportReplaced(Replaced replaced) { replaced_ = std::move(replaced); }

    void reportKeptAside(KeptAside keptAside) { keptAside_ = std::move(keptAside); }

    /// Told once, until the file can be read again.
    void reportUnread(Unread unread) { unread_ = std::move(unread); }

    /// From now on `unwritten` is told of every read whose file could not be written back; the
    /// read itself counts.
    void reportUnwritten(Unwritten unwritten) { unwritten_ = std::move(unwritten); }

    /// From now on `changed` is told what `changed(key)` tells: whoever keeps the value stores it
    /// when it rests.
    void reportChanged(Changed changed) { changed_ = std::move(changed); }

    /// The value of a key changes, perhaps at every notch of a wheel. Nothing is written here.
    void changed(std::string_view key) const {
        if (changed_) {
            changed_(key);
        }
    }

    /// The text of a key. Raises 94 where there is none, before the file is written.
    [[nodiscard]] std::string getSetting(std::string_view key);

    /// What `convert` makes of the text of a key. Raises what either raises.
    template <typename Convert>
    [[nodiscard]] auto getAs(std::string_view key, const Convert& convert) {
        return converted(key, getSetting(key), convert);
    }

    /// What `convert` makes of a text of the key, or else of the one that stands in for it. Raises
    /// `bad`.
    template <typename Convert>
    auto converted(std::string_view key, const std::string& text, const Convert& convert) {
        try {
            return convert(text);
        } catch (const base::RuntimeError& error) {
            const std::optional<std::string> standIn = instead(bad(error, key, text), key);
            if (!standIn) {
                throw bad(error, key, text);
            }
            return convert(*standIn);
        }
    }

    /// What of the shipped settings stands in for a text that is `bad`, which is told: that of the
    /// key, or of an attribute of its element. Nothing where nothing does.
    [[nodiscard]] std::optional<std::string>
    instead(const base::RuntimeError& bad, std::string_view key, const std::string& attribute = {});

    /// Sets the text of a key that exists; the file has reached the disk on return. Raises what
    /// writing raises.
    void saveSetting(std::string_view key, std::string_view value);

    /// Opens the file in the shared document, does the work, and saves the file. An error in the
    /// work goes to the caller, and nothing is saved. Raises what saving raises.
    void withSettings(const std::function<void(clsXML&)>& work);

    /// The same for work that only reads: what saving raises is told to `reportUnwritten`.
    void readSettings(const std::function<void(const clsXML&)>& work);

    /// Opens the file in the shared document for work that only reads, before it is known what of
    /// the behaviour is kinder: in the place of a missing or damaged file, what would take it. The
    /// file stays untouched.
    void peek(const std::function<void(const clsXML&)>& work);

    /// As `withSettings`, for work whose result need not have reached the disk: nothing is waited
    /// for.
    void writeBehind(const std::function<void(clsXML&)>& work);

    /// The text of a key in the open document. Raises 94 where there is none, with file and key.
    [[nodiscard]] std::string textOf(const clsXML& xml, std::string_view key) const;

    /// Whether the open document has an element for the key.
    [[nodiscard]] static bool holds(const clsXML& xml, std::string_view key);

    /// Sets the text of a key in the open document, and makes its element where there is none.
    static void makeOrWrite(clsXML& xml, std::string_view key, const std::string& value);

    /// Sets the text of a key that the open document has; `textOf` gives it back.
    void write(clsXML& xml, std::string_view key, const std::string& value) const;

    /// The error with the file, the key and its text behind its description.
    [[nodiscard]] base::RuntimeError bad(const base::RuntimeError& error, std::string_view key,
                                         std::string_view text) const;

    /// The path of the element of a key.
    [[nodiscard]] static std::string pathOf(std::string_view key);

private:
    [[nodiscard]] bool open(std::string_view bytes);
    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] base::RuntimeError readError(std::error_code failure) const;
    void readAnew();
    void standInUnread();
    void standInDamaged(const std::string& path, std::string_view bytes);
    void save(base::Flush most);
    void saveOrTell(base::Flush most);
    [[nodiscard]] std::string placeOf(std::string_view key) const;

    const host::Paths& paths_;
    clsXML& xml_;
    const base::Comfort* comfort_;
    ShippedSettings shipped_;
    std::set<std::string> replacedTexts_; ///< that were told
    std::error_code readFailure_;         ///< of a file that is there, while something stands in
    std::error_code neverRead_;           ///< why it could not be when it was wanted first
    bool wasRead_ = false;                ///< once at least
    bool toldUnread_ = false;
    Replaced replaced_;
    KeptAside keptAside_;
    Unread unread_;
    Unwritten unwritten_;
    Changed changed_;
};

} // namespace tovik::config
