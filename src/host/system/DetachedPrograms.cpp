// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/system/DetachedPrograms.h"

#include "host/ProgramLookup.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tovik::host {

namespace {

constexpr int kFailed = 127;

/// In the child: becomes the program, or tells the failure through the pipe. Only calls that are
/// safe between fork and exec.
[[noreturn]] void become(const char* folder, char* const* words, int failurePipe) {
    static_cast<void>(
        ::signal(SIGPIPE, SIG_DFL)); // the player may ignore it; the helper starts afresh
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    if (::chdir(folder) == 0) {
        ::execv(words[0], words);
    }
    const char failed = 1;
    const ssize_t told = ::write(failurePipe, &failed, sizeof failed);
    ::_exit(told > 0 ? kFailed : kFailed - 1);
}

/// Forks twice, so that the program becomes a child of the system's first process and its end
/// need not be waited for.
bool startDetached(const char* folder, char* const* words) {
    std::array<int, 2> failurePipe{};
    if (::pipe2(failurePipe.data(), O_CLOEXEC) != 0) {
        return false;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        ::setsid();
        const pid_t grandchild = ::fork();
        if (grandchild == 0) {
            become(folder, words, failurePipe[1]);
        }
        ::_exit(grandchild < 0 ? kFailed : 0);
    }
    ::close(failurePipe[1]);
    int status = kFailed;
    while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    // The pipe closes unwritten when the program has taken over.
    char failed = 0;
    ssize_t told = 0;
    do {
        told = ::read(failurePipe[0], &failed, sizeof failed);
    } while (told < 0 && errno == EINTR);
    ::close(failurePipe[0]);
    return child > 0 && status == 0 && told == 0;
}

} // namespace

DetachedPrograms::DetachedPrograms(const Paths& paths, std::string searchPath)
    : paths_(paths), searchPath_(std::move(searchPath)) {}

std::optional<std::string> DetachedPrograms::find(const std::string& name) const {
    return findProgram(name, paths_, searchPath_);
}

bool DetachedPrograms::start(const std::string& name, const std::vector<std::string>& arguments) {
    std::optional<std::string> program = find(name);
    if (!program) {
        return false;
    }
    std::vector<std::string> texts{*program};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> words;
    words.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        words.push_back(text.data());
    }
    words.push_back(nullptr);
    return startDetached(paths_.dataFolder().c_str(), words.data());
}

} // namespace tovik::host
