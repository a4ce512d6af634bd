// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/ScriptedServer.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace tovik::test {
namespace {

constexpr int kBacklog = 16;

/// A socket bound to a free port of the loopback interface, and that port.
std::pair<int, int> boundSocket() {
    const int bound = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const place = static_cast<sockaddr*>(static_cast<void*>(&address));
    if (bound < 0 || ::bind(bound, place, size) != 0 || ::getsockname(bound, place, &size) != 0) {
        throw std::runtime_error("no socket");
    }
    return {bound, ntohs(address.sin_port)};
}

} // namespace

int closedPort() {
    const auto [bound, port] = boundSocket();
    ::close(bound);
    return port;
}

std::string Peer::path() const {
    const std::size_t begin = std::min(request_.find(' '), request_.size() - 1) + 1;
    return request_.substr(begin, request_.find(' ', begin) - begin);
}

bool Peer::asks(std::string_view line) const {
    return request_.find("\r\n" + std::string(line) + "\r\n") != std::string::npos;
}

bool Peer::readRequest() {
    std::array<char, 4096> buffer{};
    while (!request_.ends_with("\r\n\r\n")) {
        const ssize_t got = ::recv(socket_, buffer.data(), buffer.size(), 0);
        if (got <= 0) {
            return false;
        }
        request_.append(buffer.data(), static_cast<std::size_t>(got));
    }
    return true;
}

bool Peer::send(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

bool Peer::wait(std::chrono::milliseconds time) {
    pollfd peer{.fd = socket_, .events = POLLIN | POLLRDHUP, .revents = 0};
    return ::poll(&peer, 1, static_cast<int>(time.count())) == 0;
}

void Peer::hold() {
    while (wait(std::chrono::milliseconds(1000))) {
    }
}

ScriptedServer::ScriptedServer(Script script) : script_(std::move(script)) {
    std::tie(listener_, port_) = boundSocket();
    if (::listen(listener_, kBacklog) != 0) {
        throw std::runtime_error("cannot listen");
    }
    acceptor_ = std::thread([this] { accept(); });
}

ScriptedServer::~ScriptedServer() {
    std::vector<std::thread> threads;
    {
        const base::MutexLock lock(mutex_);
        ending_ = true;
        for (const int socket : sockets_) {
            ::shutdown(socket, SHUT_RDWR);
        }
    }
    ::shutdown(listener_, SHUT_RDWR);
    acceptor_.join();
    {
        const base::MutexLock lock(mutex_);
        threads = std::move(threads_);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    ::close(listener_);
}

std::string ScriptedServer::url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
}

int ScriptedServer::connections() {
    const base::MutexLock lock(mutex_);
    return connections_;
}

int ScriptedServer::open() {
    const base::MutexLock lock(mutex_);
    return static_cast<int>(sockets_.size());
}

void ScriptedServer::accept() {
    for (;;) {
        const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        const base::MutexLock lock(mutex_);
        if (socket < 0 || ending_) {
            if (socket >= 0) {
                ::close(socket);
            }
            return;
        }
        sockets_.push_back(socket);
        threads_.emplace_back([this, socket, number = connections_] { serve(socket, number); });
        ++connections_;
    }
}

void ScriptedServer::serve(int socket, int number) {
    Peer peer(socket, number);
    if (peer.readRequest()) {
        script_(peer);
    }
    const base::MutexLock lock(mutex_);
    std::erase(sockets_, socket);
    ::close(socket);
}

} // namespace tovik::test
