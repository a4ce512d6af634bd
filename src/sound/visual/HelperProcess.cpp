// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/visual/HelperProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tovik::sound {

namespace {

constexpr int kGraceMs = 500;

/// What of the environment a plug-in may know.
constexpr std::array kVariables = {"HOME", "LANG", "LC_ALL", "LC_CTYPE", "PATH"};

std::vector<std::string> environmentOfHelper() {
    std::vector<std::string> variables;
    for (const char* const name : kVariables) {
        if (const char* const value = std::getenv(name); value != nullptr) {
            variables.push_back(std::string(name) + '=' + value);
        }
    }
    return variables;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// How the program is to begin: its end of the socket, no streams, a group and signals of its own.
class Beginning {
public:
    explicit Beginning(int socket) {
        ::posix_spawn_file_actions_init(&files_);
        ::posix_spawnattr_init(&attributes_);
        // In this order: the socket may have the number of a stream.
        ::posix_spawn_file_actions_adddup2(&files_, socket, kHelperSocket);
        ::posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        ::posix_spawn_file_actions_addopen(&files_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        ::posix_spawn_file_actions_addopen(&files_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        sigset_t none;
        ::sigemptyset(&none);
        ::posix_spawnattr_setsigmask(&attributes_, &none);
        sigset_t all;
        ::sigfillset(&all);
        ::posix_spawnattr_setsigdefault(&attributes_, &all);
        ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK |
                                                     POSIX_SPAWN_SETSIGDEF);
    }

    ~Beginning() {
        ::posix_spawn_file_actions_destroy(&files_);
        ::posix_spawnattr_destroy(&attributes_);
    }

    Beginning(const Beginning&) = delete;
    Beginning& operator=(const Beginning&) = delete;

    [[nodiscard]] pid_t start(const std::string& program, std::vector<std::string> words) const {
        std::vector<std::string> variables = environmentOfHelper();
        pid_t process = -1;
        return ::posix_spawn(&process, program.c_str(), &files_, &attributes_,
                             pointersTo(words).data(), pointersTo(variables).data()) == 0
                   ? process
                   : -1;
    }

private:
    posix_spawn_file_actions_t files_{};
    posix_spawnattr_t attributes_{};
};

/// Waits for the end of a process and helps it to come. The number stays its own until then.
void seeOff(pid_t process) {
    const auto handle = static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
    if (handle >= 0) {
        pollfd ended{.fd = handle, .events = POLLIN, .revents = 0};
        static_cast<void>(::poll(&ended, 1, kGraceMs));
        ::close(handle);
    }
    ::kill(-process, SIGKILL); // with whatever it may have started
    ::kill(process, SIGKILL);
    while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
    }
}

} // namespace

HelperProcess::HelperProcess(const std::string& program, const std::string& task,
                             const std::vector<std::string>& words) {
    std::array<int, 2> ends{-1, -1};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        return;
    }
    socket_ = ends[0];
    std::vector<std::string> line = {program, task, std::to_string(::getpid())};
    line.insert(line.end(), words.begin(), words.end());
    process_ = Beginning(ends[1]).start(program, std::move(line));
    ::close(ends[1]);
}

bool HelperProcess::send(const HelperOrder& order, int descriptor) {
    iovec place{const_cast<HelperOrder*>(&order),
                order.kind == HelperOrderKind::render ? sizeof order : kShortOrder};
    alignas(cmsghdr) std::array<char, CMSG_SPACE(sizeof(int))> room{};
    msghdr message{};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    if (descriptor >= 0) {
        message.msg_control = room.data();
        message.msg_controllen = room.size();
        cmsghdr* const head = CMSG_FIRSTHDR(&message);
        head->cmsg_level = SOL_SOCKET;
        head->cmsg_type = SCM_RIGHTS;
        head->cmsg_len = CMSG_LEN(sizeof descriptor);
        std::memcpy(CMSG_DATA(head), &descriptor, sizeof descriptor);
    }
    return process_ > 0 && ::sendmsg(socket_, &message, MSG_NOSIGNAL | MSG_DONTWAIT) >= 0;
}

HelperProcess::Got HelperProcess::receive(HelperAnswer& answer, std::size_t& length) const {
    std::array<iovec, 2> places = {iovec{&answer.head, sizeof answer.head},
                                   iovec{answer.text.data(), answer.text.size()}};
    msghdr message{};
    message.msg_iov = places.data();
    message.msg_iovlen = places.size();
    const ssize_t size = process_ > 0 ? ::recvmsg(socket_, &message, MSG_DONTWAIT) : 0;
    if (size < 0 && (errno == EAGAIN || errno == EINTR)) {
        return Got::nothing;
    }
    if (size < static_cast<ssize_t>(sizeof answer.head)) {
        return Got::end;
    }
    length = static_cast<std::size_t>(size) - sizeof answer.head;
    return Got::answer;
}

void HelperProcess::end() {
    if (const int socket = std::exchange(socket_, -1); socket >= 0) {
        ::close(socket);
    }
    if (const pid_t process = std::exchange(process_, -1); process > 0) {
        try {
            std::thread(seeOff, process).detach();
        } catch (const std::system_error&) {
            ::kill(process, SIGKILL); // nobody is left to wait for it
        }
    }
}

} // namespace tovik::sound
