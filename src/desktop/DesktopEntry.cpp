// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/DesktopEntry.h"

#include "base/Text.h"
#include "desktop/FileTypes.h"
#include "desktop/MimeTypes.h"

#include <algorithm>
#include <array>

namespace tovik::desktop {

namespace {

constexpr std::array<std::string_view, kShellVerbs.size()> kActions = {"play", "add"};

/// A word of a command line: quoted, with what is special inside quotes behind a backslash, each
/// backslash doubled again as in any text of an entry, and the sign of codes doubled.
std::string quotedWord(std::string_view word) {
    std::string text = "\"";
    for (const char c : word) {
        switch (c) {
        case '\\':
            text += R"(\\\\)";
            break;
        case '"':
        case '`':
        case '$':
            text.append(R"(\\)").append(1, c);
            break;
        case '%':
            text += "%%";
            break;
        default:
            text += c;
        }
    }
    return text + "\"";
}

std::string commandOf(const KeyStore& store, const std::string& key) {
    return store.value(key + "\\command");
}

} // namespace

std::vector<std::string> claimedExtensions(const KeyStore& store) {
    std::vector<std::string> extensions;
    for (const auto& [key, values] : store.keys()) {
        if (key.starts_with('.') && store.value(key) == kProgId) {
            extensions.push_back(key.substr(1));
        }
    }
    return extensions;
}

std::vector<std::string> claimedTypes(const KeyStore& store) {
    std::vector<std::string> types;
    for (const std::string& extension : claimedExtensions(store)) {
        for (const std::string_view type : mimeTypesOf(extension)) {
            if (std::ranges::find(types, type) == types.end()) {
                types.emplace_back(type);
            }
        }
    }
    return types;
}

std::string execOf(std::string_view command) {
    std::string text;
    if (command.starts_with('"')) {
        command.remove_prefix(1);
        const std::size_t end = command.find('"');
        text = quotedWord(command.substr(0, end));
        command.remove_prefix(end == std::string_view::npos ? command.size() : end + 1);
    }
    return text + base::replaceAll(base::replaceAll(command, "\"%1\"", "%f"), "%1", "%f");
}

std::string desktopEntry(const KeyStore& store) {
    const std::string id(kProgId);
    std::string text = "[Desktop Entry]\n"
                       "Type=Application\n"
                       "Version=1.4\n"
                       "Name=Tovik\n"
                       "GenericName=Audio Player\n"
                       "GenericName[sl]=Predvajalnik zvoka\n"
                       "Icon=tovik\n"
                       "Terminal=false\n"
                       "StartupNotify=true\n"
                       "Categories=AudioVideo;Audio;Player;\n";
    text.append("Comment=").append(store.value(id)).append("\n");
    text.append("Exec=").append(execOf(store.value(id + R"(\shell\open\command)"))).append("\n");
    text.append("MimeType=");
    for (const std::string& type : claimedTypes(store)) {
        text.append(type).append(";");
    }
    text.append("\n").append(kOwnEntryMark).append("\n");

    std::string names;
    std::string actions;
    const std::vector<std::string> extensions = claimedExtensions(store);
    for (std::size_t i = 0; i < kShellVerbs.size(); ++i) {
        const ShellVerb& verb = kShellVerbs.at(i);
        const auto first = std::ranges::find_if(extensions, [&](const std::string& extension) {
            return store.has(verbKey(extension, verb.caption));
        });
        if (first != extensions.end()) {
            const std::string exec = execOf(commandOf(store, verbKey(*first, verb.caption)));
            names.append(kActions.at(i)).append(";");
            actions.append("\n[Desktop Action ").append(kActions.at(i)).append("]\n");
            actions.append("Name=").append(verb.caption).append("\n");
            actions.append("Exec=").append(exec).append("\n");
        }
    }
    return names.empty() ? text : text + "Actions=" + names + "\n" + actions;
}

} // namespace tovik::desktop
