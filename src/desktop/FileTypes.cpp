// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/FileTypes.h"

#include "base/Text.h"

namespace tovik::desktop {

namespace {

std::string quoted(std::string_view text) {
    return std::string("\"").append(text).append("\"");
}

void writeDefault(KeyStore& store, const std::string& key, std::string_view text) {
    store.WriteDefault(kClassesRoot, key, {}, std::string(text));
}

} // namespace

void RegisterExtension(KeyStore& store, std::string_view extension, std::string_view programPath,
                       std::string_view progId, std::string_view description,
                       std::string_view iconSpec) {
    const std::string id(progId);
    writeDefault(store, std::string(".").append(extension), progId);
    writeDefault(store, id, description);
    if (!iconSpec.empty()) {
        writeDefault(store, id + "\\DefaultIcon", iconSpec);
    }
    writeDefault(store, id + R"(\shell\open\command)", quoted(programPath) + " %1");
}

std::string verbKey(std::string_view extension, std::string_view verbCaption) {
    return "file\\Shell\\" + base::replaceAll(extension, ".", "") + std::string(verbCaption);
}

void AddShellVerb(KeyStore& store, std::string_view extension, std::string_view programPath,
                  std::string_view verbCaption, std::string_view word) {
    const std::string key = verbKey(extension, verbCaption);
    writeDefault(store, key, {});
    writeDefault(store, key + "\\command",
                 quoted(programPath).append(" ").append(word).append(" ") + quoted("%1"));
}

void associate(KeyStore& store, std::span<const std::string> extensions,
               std::string_view programPath, std::string_view iconSpec) {
    for (const std::string& extension : extensions) {
        for (const ShellVerb& verb : kShellVerbs) {
            AddShellVerb(store, extension, programPath, verb.caption, verb.word);
        }
        RegisterExtension(store, extension, programPath, kProgId, kTypeDescription, iconSpec);
    }
}

} // namespace tovik::desktop
