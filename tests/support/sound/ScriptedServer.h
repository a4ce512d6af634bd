// SPDX-License-Identifier: GPL-3.0-or-later
// A server on the loopback interface that does what a test says, also what no sane server would.
// Each connection is served by a thread of its own. The test's thread, except where told.
#pragma once

#include "base/Mutex.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace tovik::test {

/// One connection, to its script; used by the thread that serves it.
class Peer {
public:
    Peer(int socket, int number) : socket_(socket), number_(number) {}

    /// The head of the request as it came.
    [[nodiscard]] const std::string& request() const { return request_; }

    /// What is asked for, such as "/a".
    [[nodiscard]] std::string path() const;

    /// How many connections there were before this one.
    [[nodiscard]] int number() const { return number_; }

    /// Whether a line of the request is this one.
    [[nodiscard]] bool asks(std::string_view line) const;

    /// False once the other side, or the test, is gone.
    bool send(std::string_view bytes);

    /// Waits that long; false as above.
    bool wait(std::chrono::milliseconds time);

    /// Waits until the other side, or the test, is gone.
    void hold();

    [[nodiscard]] bool readRequest();

private:
    int socket_;
    int number_;
    std::string request_;
};

class ScriptedServer {
public:
    using Script = std::function<void(Peer&)>;

    /// Listens; `script` is called on the threads of the connections.
    explicit ScriptedServer(Script script);

    /// Cuts all connections and waits for the scripts.
    ~ScriptedServer();
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    /// "http://127.0.0.1:port" and `path`.
    [[nodiscard]] std::string url(const std::string& path = "/") const;

    [[nodiscard]] int port() const { return port_; }

    /// Connections so far.
    [[nodiscard]] int connections();

    /// Those that are still served. Any thread.
    [[nodiscard]] int open();

private:
    void accept();
    void serve(int socket, int number);

    Script script_;
    int listener_ = -1;
    int port_ = 0;
    base::Mutex mutex_;
    std::vector<int> sockets_ TOVIK_GUARDED_BY(mutex_);
    std::vector<std::thread> threads_ TOVIK_GUARDED_BY(mutex_);
    int connections_ TOVIK_GUARDED_BY(mutex_) = 0;
    bool ending_ TOVIK_GUARDED_BY(mutex_) = false;
    std::thread acceptor_;
};

/// A port of the loopback interface at which nobody listens.
[[nodiscard]] int closedPort();

} // namespace tovik::test
