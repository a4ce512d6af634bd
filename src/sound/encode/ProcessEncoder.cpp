// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/encode/ProcessEncoder.h"

#include "base/Descriptor.h"
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tovik::sound {

namespace {

using base::Descriptor;

using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// How often a child that does not read is asked after.
constexpr milliseconds kLook{200};

/// How often a child that says nothing any more is asked whether it has ended.
constexpr milliseconds kNap{5};

/// Of what the child says, the end is kept.
constexpr std::size_t kMostWords = 4096;

struct Pipe {
    Descriptor read;
    Descriptor write;
};

std::optional<Pipe> makePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        return std::nullopt;
    }
    return Pipe{Descriptor(ends[0]), Descriptor(ends[1])};
}

/// The line of what a program said that tells why it failed: the last one with such a word, else
/// the last one. Carriage returns, by which programs write over a line that shows their progress,
/// end one, too.
std::string failingLine(std::string_view words) {
    constexpr std::array<std::string_view, 5> kSigns{"error", "fail", "can't", "cannot", "unable"};
    constexpr std::string_view kEnds = "\r\n";
    constexpr std::string_view kBlanks = "\r\n \t";
    std::string_view last;
    std::string_view telling;
    while (!words.empty()) {
        const std::size_t end = std::min(words.find_first_of(kEnds), words.size());
        std::string_view line = words.substr(0, end);
        words.remove_prefix(std::min(end + 1, words.size()));
        line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
        line = line.substr(0, line.find_last_not_of(kBlanks) + 1);
        if (line.empty()) {
            continue;
        }
        last = line;
        const std::string lower = base::toLowerAscii(line);
        if (std::ranges::any_of(kSigns, [&](std::string_view sign) {
                return lower.find(sign) != std::string::npos;
            })) {
            telling = line;
        }
    }
    return std::string(telling.empty() ? last : telling);
}

/// The child's end of things, prepared and torn down around the start.
class Spawning {
public:
    Spawning(int input, int words) {
        ::posix_spawn_file_actions_init(&actions_);
        ::posix_spawn_file_actions_adddup2(&actions_, input, STDIN_FILENO);
        ::posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_adddup2(&actions_, words, STDERR_FILENO);
        ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
        ::posix_spawnattr_init(&attributes_);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
        sigset_t signals;
        ::sigemptyset(&signals);
        ::posix_spawnattr_setsigmask(&attributes_, &signals);
        // The player may ignore it; a child that is no longer read from should end.
        ::sigaddset(&signals, SIGPIPE);
        ::posix_spawnattr_setsigdefault(&attributes_, &signals);
    }

    ~Spawning() {
        ::posix_spawn_file_actions_destroy(&actions_);
        ::posix_spawnattr_destroy(&attributes_);
    }

    Spawning(const Spawning&) = delete;
    Spawning& operator=(const Spawning&) = delete;

    [[nodiscard]] std::optional<pid_t> run(const EncoderCommand& command) const {
        std::vector<std::string> texts{command.program};
        texts.insert(texts.end(), command.arguments.begin(), command.arguments.end());
        std::vector<char*> words;
        words.reserve(texts.size() + 1);
        for (std::string& text : texts) {
            words.push_back(text.data());
        }
        words.push_back(nullptr);
        pid_t child = 0;
        const int failure = ::posix_spawn(&child, command.program.c_str(), &actions_, &attributes_,
                                          words.data(), environ);
        return failure == 0 ? std::optional(child) : std::nullopt;
    }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

/// A running child, as the thread that feeds it sees it.
class Child {
public:
    Child(pid_t process, Descriptor input, Descriptor words, milliseconds patience)
        : process_(process), input_(std::move(input)), words_(std::move(words)),
          patience_(patience) {
        ::fcntl(input_.get(), F_SETFL, O_NONBLOCK);
        ::fcntl(words_.get(), F_SETFL, O_NONBLOCK);
    }

    /// False when the child reads no more. Once the queue is closed it is waited for
    /// with patience only.
    bool write(std::span<const std::byte> bytes, const base::BlockQueue& queue) {
        while (!bytes.empty()) {
            if (!queue.closed()) {
                deadline_ = steady_clock::now() + patience_;
            } else if (steady_clock::now() >= deadline_) {
                return false;
            }
            std::array<pollfd, 2> both{pollfd{input_.get(), POLLOUT, 0},
                                       pollfd{words_.get(), POLLIN, 0}};
            const int ready = ::poll(both.data(), listening_ ? 2 : 1, kLook.count());
            if (ready < 0 && errno != EINTR) {
                return false;
            }
            if (listening_ && both[1].revents != 0) {
                listen();
            }
            if (both[0].revents == 0) {
                continue;
            }
            const ssize_t count = ::write(input_.get(), bytes.data(), bytes.size());
            if (count > 0) {
                bytes = bytes.subspan(static_cast<std::size_t>(count));
            } else if (errno != EAGAIN && errno != EINTR) {
                return false;
            }
        }
        return true;
    }

    /// Gives it no more and waits for its end. Its exit status; -1 when it did not end by itself.
    int end() {
        input_.reset();
        const auto deadline = steady_clock::now() + patience_;
        while (listening_) {
            const auto left =
                std::chrono::duration_cast<milliseconds>(deadline - steady_clock::now());
            pollfd words{words_.get(), POLLIN, 0};
            if (left.count() <= 0 || ::poll(&words, 1, static_cast<int>(left.count())) == 0) {
                break;
            }
            listen();
        }
        // That it says nothing any more does not mean that it has ended.
        std::optional<int> status = statusOf(WNOHANG);
        while (!status && steady_clock::now() < deadline) {
            std::this_thread::sleep_for(kNap);
            status = statusOf(WNOHANG);
        }
        if (!status) {
            ::kill(process_, SIGKILL);
            status = statusOf(0);
        }
        return status && WIFEXITED(*status) ? WEXITSTATUS(*status) : -1;
    }

    [[nodiscard]] std::string lastWords() const { return failingLine(heard_); }

private:
    /// What the child ended with; nothing while it runs.
    [[nodiscard]] std::optional<int> statusOf(int options) const {
        int status = 0;
        pid_t ended = -1;
        do {
            ended = ::waitpid(process_, &status, options);
        } while (ended < 0 && errno == EINTR);
        return ended == process_ ? std::optional(status) : std::nullopt;
    }

    void listen() {
        std::array<char, 1024> some{};
        const ssize_t count = ::read(words_.get(), some.data(), some.size());
        if (count > 0) {
            heard_.append(some.data(), static_cast<std::size_t>(count));
            if (heard_.size() > kMostWords) {
                heard_.erase(0, heard_.size() - kMostWords);
            }
        } else if (count == 0 || (errno != EAGAIN && errno != EINTR)) {
            listening_ = false;
        }
    }

    pid_t process_;
    Descriptor input_;
    Descriptor words_;
    milliseconds patience_;
    steady_clock::time_point deadline_ = steady_clock::now() + patience_;
    bool listening_ = true;
    std::string heard_;
};

void serve(const std::shared_ptr<EncoderState>& state, Child child) {
    // A pipe that nobody reads is an error of the write here, and no signal for the player.
    sigset_t pipe;
    ::sigemptyset(&pipe);
    ::sigaddset(&pipe, SIGPIPE);
    ::pthread_sigmask(SIG_BLOCK, &pipe, nullptr);

    bool allRead = true;
    while (allRead) {
        const auto block = state->queue.take();
        if (!block) {
            break;
        }
        allRead = child.write(*block, state->queue);
    }
    state->enter(EncodeStage::ending);
    const int status = child.end();
    if (status == 0 && allRead) {
        state->enter(EncodeStage::finished);
    } else {
        state->fail(child.lastWords());
    }
}

} // namespace

std::unique_ptr<ProcessEncoder> ProcessEncoder::start(const EncoderCommand& command,
                                                      milliseconds patience) {
    auto input = makePipe();
    auto words = makePipe();
    if (!input || !words) {
        return nullptr;
    }
    const auto process = Spawning(input->read.get(), words->write.get()).run(command);
    if (!process) {
        return nullptr;
    }
    if (command.niceness != 0) {
        ::setpriority(PRIO_PROCESS, static_cast<id_t>(*process), command.niceness);
    }
    auto state = std::make_shared<EncoderState>();
    state->enter(EncodeStage::running);
    std::thread([state, child = Child(*process, std::move(input->write), std::move(words->read),
                                      patience)]() mutable {
        serve(state, std::move(child));
    }).detach();
    return std::unique_ptr<ProcessEncoder>(new ProcessEncoder(std::move(state)));
}

} // namespace tovik::sound
