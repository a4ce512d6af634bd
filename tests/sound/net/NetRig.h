// SPDX-License-Identifier: GPL-3.0-or-later
// A stream of the network without an engine: the test itself is the reader. The test's thread.
#pragma once

#include "base/Mutex.h"
#include "sound/decode/Media.h"
#include "sound/net/NetStream.h"
#include "support/sound/ScriptedServer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace tovik::sound::test {

using namespace std::chrono_literals;
using tovik::test::Peer;
using tovik::test::ScriptedServer;

/// Patience of tests; what is to happen happens long before.
inline constexpr auto kPatience = 20s;

/// What waits for nobody takes less than this, also on a busy machine; who waits takes longer.
inline constexpr auto kAtOnce = 1s;

/// Times that let nothing wait but what a test wants to see waiting.
[[nodiscard]] inline NetOptions quickOptions() {
    NetOptions options;
    options.times.resume = 1ms;
    options.times.rest = 1ms;
    options.rule.pause = 20ms;
    return options;
}

/// True once `holds` does.
template <typename Condition>
[[nodiscard]] bool soon(Condition holds) {
    const auto deadline = std::chrono::steady_clock::now() + kPatience;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

/// The bytes of a generated file as a text.
[[nodiscard]] inline std::string mediaText(const std::string& name) {
    const std::vector<std::byte> bytes = fileBytes(mediaPath(name));
    std::string text;
    for (const std::byte byte : bytes) {
        text.push_back(static_cast<char>(byte));
    }
    return text;
}

/// `body` with a block of metadata after each `interval` bytes: `titles` in turn, then empty ones.
[[nodiscard]] inline std::string withMetadata(const std::string& body, std::size_t interval,
                                              const std::vector<std::string>& titles) {
    constexpr std::size_t kUnit = 16;
    std::string out;
    std::size_t block = 0;
    for (std::size_t at = 0; at < body.size(); at += interval) {
        out += body.substr(at, interval);
        if (body.size() - at < interval) {
            break;
        }
        std::string text = block < titles.size() ? titles[block] : std::string();
        text.resize((text.size() + kUnit - 1) / kUnit * kUnit, '\0');
        out.push_back(static_cast<char>(text.size() / kUnit));
        out += text;
        ++block;
    }
    return out;
}

inline const std::string kMp3Head = "HTTP/1.0 200 OK\r\nContent-Type: audio/mpeg\r\n";

/// What the routines hear, in order: bytes as they are, metadata between "<" and ">", "." at the
/// end.
class Heard {
public:
    [[nodiscard]] DownloadRoutine download() {
        return [log = log_](std::span<const std::byte> bytes, std::uintptr_t) {
            const base::MutexLock lock(log->mutex);
            for (const std::byte byte : bytes) {
                log->text.push_back(static_cast<char>(byte));
            }
            log->ends += bytes.empty() ? 1 : 0;
        };
    }

    [[nodiscard]] MetaRoutine meta() {
        return [log = log_](std::string_view metadata, std::uintptr_t) {
            const base::MutexLock lock(log->mutex);
            log->places.push_back(log->text.size());
            log->titles.emplace_back(metadata);
        };
    }

    [[nodiscard]] std::string bytes() const {
        const base::MutexLock lock(log_->mutex);
        return log_->text;
    }

    [[nodiscard]] std::vector<std::string> titles() const {
        const base::MutexLock lock(log_->mutex);
        return log_->titles;
    }

    /// How many bytes stood before each title.
    [[nodiscard]] std::vector<std::size_t> places() const {
        const base::MutexLock lock(log_->mutex);
        return log_->places;
    }

    /// How often the end was told.
    [[nodiscard]] int ends() const {
        const base::MutexLock lock(log_->mutex);
        return log_->ends;
    }

private:
    struct Log {
        base::Mutex mutex;
        std::string text TOVIK_GUARDED_BY(mutex);
        std::vector<std::string> titles TOVIK_GUARDED_BY(mutex);
        std::vector<std::size_t> places TOVIK_GUARDED_BY(mutex);
        int ends TOVIK_GUARDED_BY(mutex) = 0;
    };

    std::shared_ptr<Log> log_ = std::make_shared<Log>();
};

/// A stream and its reader.
class NetRig {
public:
    explicit NetRig(const std::string& url, const NetOptions& options = quickOptions())
        : stream({.url = url, .titles = true, .routine = heard.download()}, options) {
        stream.setMeta(heard.meta(), 0);
    }

    /// Opens it; false when that fails.
    [[nodiscard]] bool open() {
        OpenResult result = stream.open(stop.get_token());
        decoder = std::move(result.decoder);
        return result.status == OpenStatus::opened;
    }

    /// Opens it and reads to its end, `mostFrames` at most.
    [[nodiscard]] std::vector<float> readAll(std::size_t mostFrames = 10'000'000) {
        if (!open()) {
            ADD_FAILURE() << "not opened";
            return {};
        }
        return test::readAll(*decoder, 4096, mostFrames);
    }

    /// How it stands when all that was read was heard.
    [[nodiscard]] StreamReport report(bool heardAll = true) {
        return stream.report(INT64_MAX, heardAll);
    }

    Heard heard;
    NetStream stream;
    std::stop_source stop;
    std::unique_ptr<Decoder> decoder;
};

} // namespace tovik::sound::test
