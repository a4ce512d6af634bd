// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/helper/Listing.h"

#include "sound/visual/helper/Confinement.h"
#include "sound/visual/helper/Plugin.h"
#include "sound/visual/helper/Talk.h"
#include "sound/visual/NameCache.h"
#include "sound/visual/PluginName.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace tovik::visual {

namespace fs = std::filesystem;

namespace {

constexpr std::array<std::string_view, 2> kEndings = {".svp", ".uvs"};
constexpr int kPatienceMs = 2000;
constexpr std::int64_t kNanoseconds = 1'000'000'000;

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

std::optional<sound::FileStamp> stampOf(const std::string& path) {
    struct stat facts {};

    if (::stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        return std::nullopt;
    }
    return sound::FileStamp{.size = facts.st_size,
                            .time = facts.st_mtim.tv_sec * kNanoseconds + facts.st_mtim.tv_nsec};
}

/// In a process of its own, so that one that does not come to an end harms no other.
[[noreturn]] void askAndEnd(pid_t player, const std::string& path, int answer) {
    confine(player);
    const Plugin plugin(path.c_str());
    const std::string name = plugin.name();
    const ssize_t told = ::write(answer, name.data(), name.size());
    std::_Exit(told == static_cast<ssize_t>(name.size()) ? EXIT_SUCCESS : EXIT_FAILURE);
}

/// What a plug-in calls itself; empty where it is none or ends before it has said so. Nothing where
/// that is not known: there was no time, or no process.
std::optional<std::string> ask(pid_t player, const std::string& path) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) {
        return std::nullopt;
    }
    const pid_t self = ::getpid();
    const pid_t child = ::fork();
    if (child == 0) {
        tieTo(self, std::max(pipe[0], pipe[1]) + 1);
        ::close(sound::kHelperSocket);
        ::close(pipe[0]);
        askAndEnd(player, path, pipe[1]);
    }
    ::close(pipe[1]);
    std::array<char, 256> name{};
    pollfd wait{.fd = pipe[0], .events = POLLIN, .revents = 0};
    const bool answered = child > 0 && ::poll(&wait, 1, kPatienceMs) > 0;
    const ssize_t size = answered ? ::read(pipe[0], name.data(), name.size()) : 0;
    ::close(pipe[0]);
    int status = 0;
    if (child > 0) {
        ::kill(child, SIGKILL);
        ::waitpid(child, &status, 0);
    }
    const bool unasked = WIFEXITED(status) && WEXITSTATUS(status) == kUnconfined;
    const bool killed = WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
    if (!answered || (size <= 0 && (unasked || killed))) {
        return std::nullopt;
    }
    return sound::pluginName({name.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))});
}

std::string readKnown(const std::string& path) {
    std::string bytes;
    if (std::FILE* const file = std::fopen(path.c_str(), "rbe"); file != nullptr) {
        bytes.resize(sound::NameCache::kMostBytes);
        bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file));
        static_cast<void>(std::fclose(file)); // it was only read
    }
    return bytes;
}

/// Beside it and renamed over it. Where that fails the plug-ins are asked again the next time.
void writeKnown(const std::string& path, const std::string& bytes) {
    const std::string beside = path + ".new";
    std::FILE* const file = std::fopen(beside.c_str(), "wbe");
    if (file == nullptr) {
        return;
    }
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    std::error_code failure;
    if (std::fclose(file) == 0 && written) {
        fs::rename(beside, path, failure);
    }
    if (!written || failure) {
        fs::remove(beside, failure);
    }
}

} // namespace

std::vector<std::string> pluginFiles(const std::string& folder) {
    std::array<std::vector<std::string>, kEndings.size()> found;
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure)) {
        const std::string ending = lowerCase(entry->path().extension().native());
        const auto* const known = std::ranges::find(kEndings, ending);
        if (known != kEndings.end()) {
            found.at(static_cast<std::size_t>(known - kEndings.begin()))
                .push_back(entry->path().native());
        }
    }
    std::vector<std::string> files;
    for (std::vector<std::string>& some : found) {
        std::ranges::sort(some);
        std::ranges::copy(some, std::back_inserter(files));
    }
    return files;
}

void list(pid_t player, const std::string& knownNames, std::span<const std::string_view> folders) {
    const std::string bytes = readKnown(knownNames);
    const sound::NameCache known(bytes);
    sound::NameCache now;
    for (const std::string_view folder : folders) {
        for (const std::string& path : pluginFiles(std::string(folder))) {
            const auto stamp = stampOf(path);
            if (!stamp) {
                continue;
            }
            const auto kept = known.find(path, *stamp);
            const auto name = kept ? kept : ask(player, path);
            if (name) {
                now.add(path, *stamp, *name);
            }
            std::string text = path;
            text += '\0';
            if (!tell({.kind = sound::HelperAnswerKind::listed}, text + name.value_or(""))) {
                return;
            }
        }
    }
    tell({.kind = sound::HelperAnswerKind::done});
    if (now.bytes() != bytes) {
        writeKnown(knownNames, now.bytes());
    }
}

} // namespace tovik::visual
