// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/PulseServer.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <thread>
#include <vector>

namespace tovik::test {

namespace {

bool answers(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) {
        throw std::runtime_error("too long for a socket: " + path);
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool done =
        ::connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(connection);
    return done;
}

// Between fork and exec only plain system calls are allowed; `arguments` ends with null.
[[noreturn]] void becomeServer(const std::vector<const char*>& arguments, const char* log) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int file = ::open(log, O_WRONLY | O_CREAT | O_APPEND, 0600);
    ::dup2(file, STDOUT_FILENO);
    ::dup2(file, STDERR_FILENO);
    ::execvp(arguments[0], const_cast<char* const*>(arguments.data()));
    ::_exit(127);
}

} // namespace

bool PulseServer::available() {
    // NOLINTNEXTLINE(cert-env33-c): the words are fixed
    return std::system("command -v pulseaudio pactl parec >/dev/null") == 0;
}

PulseServer::PulseServer() {
    setEnvironment("PULSE_SERVER", address());
    setEnvironment("PULSE_RUNTIME_PATH", folder_.path());
    setEnvironment("PULSE_STATE_PATH", folder_.path());
    setEnvironment("PULSE_COOKIE", folder_ / "cookie");
    setEnvironment("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    start();
}

PulseServer::~PulseServer() {
    end(SIGKILL);
    for (const auto& [name, value] : environmentBefore_) {
        if (value) {
            ::setenv(name.c_str(), value->c_str(), 1);
        } else {
            ::unsetenv(name.c_str());
        }
    }
}

void PulseServer::start() {
    // Without "norewinds" the sink asks for two seconds of sound at once and then for nothing until
    // they have passed.
    const std::string sink = std::string("module-null-sink norewinds=1 format=float32le") +
                             " rate=44100 channels=2 sink_name=" + kSink +
                             " sink_properties=device.description=" + kSinkDescription;
    const std::string protocol = "module-native-protocol-unix auth-anonymous=1 socket=" + socket_;
    const std::vector<const char*> arguments = {
        "pulseaudio",          "-n",   "--daemonize=no", "--use-pid-file=no",
        "--exit-idle-time=-1", "-L",   sink.c_str(),     "-L",
        protocol.c_str(),      nullptr};
    const std::string log = folder_ / "log";
    process_ = ::fork();
    if (process_ == 0) {
        becomeServer(arguments, log.c_str());
    }
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!answers(socket_)) {
        if (std::chrono::steady_clock::now() > limit ||
            ::waitpid(process_, nullptr, WNOHANG) != 0) {
            throw std::runtime_error("no sound server: " + folder_.read("log"));
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void PulseServer::kill() {
    end(SIGKILL);
    ::unlink(socket_.c_str());
}

void PulseServer::freeze() const {
    ::kill(process_, SIGSTOP);
}

void PulseServer::thaw() const {
    ::kill(process_, SIGCONT);
}

std::string PulseServer::control(const std::string& words) const {
    struct Closer {
        void operator()(std::FILE* file) const { ::pclose(file); }
    };

    const std::string command = "LC_ALL=C pactl --server=" + address() + " " + words;
    // NOLINTNEXTLINE(cert-env33-c): the words are a test's own
    const std::unique_ptr<std::FILE, Closer> pipe(::popen(command.c_str(), "r"));
    std::string said;
    std::array<char, 4096> part{};
    while (std::fgets(part.data(), part.size(), pipe.get()) != nullptr) {
        said += part.data();
    }
    return said;
}

void PulseServer::setEnvironment(const std::string& name, const std::string& value) {
    const char* const before = std::getenv(name.c_str());
    environmentBefore_[name] =
        before == nullptr ? std::nullopt : std::optional<std::string>(before);
    ::setenv(name.c_str(), value.c_str(), 1);
}

void PulseServer::end(int signal) {
    if (process_ > 0) {
        ::kill(process_, signal);
        ::waitpid(process_, nullptr, 0);
        process_ = -1;
    }
}

} // namespace tovik::test
