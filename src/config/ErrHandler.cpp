// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ErrHandler.h"

#include "base/RuntimeError.h"
#include "config/clsXML.h"
#include "config/LogFile.h"
#include "config/Settings.h"
#include "config/Version.h"

namespace tovik::config {

namespace {

struct Identity {
    std::string version;
    std::string build;
};

template <typename Read>
std::string orEmpty(const Read& read) {
    try {
        return read();
    } catch (const base::RuntimeError&) {
        return {};
    }
}

/// Read through a document of its own: an error may be logged while somebody works on the shared
/// one. The file is not written.
Identity identityIn(const std::string& settingsPath) {
    clsXML xml;
    xml.OpenXML(settingsPath, XmlSource::FilePath);
    const auto read = [&xml](std::string_view key) { return xml.ReadNode(Settings::pathOf(key)); };
    return {.version = orEmpty([&] { return versionText(read("TKXV"), read("TKV2")); }),
            .build = orEmpty([&] { return std::to_string(buildNumber(read("TKXV"))); })};
}

constexpr base::Comfort kNoComfort;

/// A field of a table in text (RFC 4180) that stays on its line.
std::string quoted(std::string_view field) {
    std::string text;
    bool needs = false;
    for (const char character : field) {
        needs |= character == ',' || character == '"';
        if (character == '"') {
            text += character;
        }
        const auto byte = static_cast<unsigned char>(character);
        text += byte < ' ' ? ' ' : character;
    }
    return needs ? '"' + text + '"' : text;
}

} // namespace

ErrHandler::ErrHandler(const host::Paths& paths, const host::Clock& clock,
                       const host::OperatingSystem& system)
    : paths_(paths), clock_(clock), system_(system), comfort_(&kNoComfort) {}

void ErrHandler::SaveLog(std::string_view description, int number, std::string_view module,
                         std::string_view procedure) const {
    const host::LocalTime now = clock_.localTime();
    const Identity identity = identityIn(paths_.of(host::DataItem::Settings));
    std::string line = logDate(now) + "/" + logTime(now);
    const std::string numberText = std::to_string(number);
    const std::string systemText =
        std::to_string(system_.major) + "." + std::to_string(system_.minor);
    for (const std::string_view field :
         {description, std::string_view(numberText), module, procedure,
          std::string_view(identity.version), std::string_view(identity.build),
          std::string_view(systemText)}) {
        line += ",";
        line += comfort_->quotesLog ? quoted(field) : std::string(field);
    }
    const std::string path = paths_.of(host::DataItem::ErrorLog);
    if (comfort_->cutsLog) {
        cutLog(path, kMostLogBytes, line.size());
    }
    LogFile(path).append(line);
}

} // namespace tovik::config
