// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the input for all that a server answers while a stream in pieces is played: answers one
// after the other, each with a byte for its status and its end, and a length. The stream ends, asks
// for no address but http's and hands over no more than came.
#include "sound/net/PieceReader.h"
#include "sound/net/StationLists.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace {

using namespace tovik::sound;

/// Gives answers out of the input; at its end nobody answers.
class Answers {
public:
    explicit Answers(std::string_view input) : rest_(input) {}

    HttpEnd give(const HttpRequest& request, HttpSink& sink) {
        constexpr std::array kHeads = {"HTTP/1.1 200 OK", "HTTP/1.1 206 Part", "HTTP/1.1 404 No",
                                       "HTTP/1.1 302 Found"};
        constexpr std::array kEnds = {HttpEnd::complete, HttpEnd::broken, HttpEnd::silence,
                                      HttpEnd::noConnection};
        if (!isHttpAddress(request.url) || ++asked_ > kMostAsked) {
            std::abort();
        }
        const unsigned how = byte();
        const std::size_t size = byte() + std::size_t{byte()} * kByte;
        const std::string_view body = rest_.substr(0, size);
        rest_.remove_prefix(body.size());
        const std::string range = "Content-Range: bytes " + std::to_string(request.from) + "-";
        const std::string length = "Content-Length: " + std::to_string(size);
        const bool wanted = sink.header(kHeads.at(how % kHeads.size())) &&
                            sink.header("Content-Type: audio/mpeg") && sink.header(range) &&
                            ((how & 0x40U) != 0 || sink.header(length)) && sink.header("");
        if (!wanted) {
            return HttpEnd::refusedBySink;
        }
        sink.answeredBy(request.url);
        given_ += body.size();
        if (!body.empty() && !sink.body(std::as_bytes(std::span(body)))) {
            return HttpEnd::refusedBySink;
        }
        return rest_.empty() ? HttpEnd::noConnection : kEnds.at(how / 4 % kEnds.size());
    }

    unsigned byte() {
        const unsigned value = rest_.empty() ? 0 : static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(rest_.empty() ? 0 : 1);
        return value;
    }

    [[nodiscard]] std::size_t given() const { return given_; }

private:
    static constexpr std::size_t kByte = 256;
    static constexpr int kMostAsked = 100'000;

    std::string_view rest_;
    std::size_t given_ = 0;
    int asked_ = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMostQueued = 1 << 20;
    std::string_view input(static_cast<const char*>(static_cast<const void*>(data)), size);
    const std::string_view list = input.substr(0, input.find('\0'));
    input.remove_prefix(std::min(list.size() + 1, input.size()));
    Answers answers(input);
    std::size_t handed = 0;
    StreamRoutines routines(
        [&](std::span<const std::byte> bytes, std::uintptr_t) { handed += bytes.size(); }, 0);
    NetTimes times;
    times.idle = times.resume = times.reload = times.rest = std::chrono::milliseconds(0);
    StreamState state(times, {}, kMostQueued);
    int left = 64; // a list that grows for ever is followed for ever
    StreamFetcher fetcher(
        [&](const HttpRequest& request, HttpSink& sink, const std::stop_token&) {
            if (--left == 0) {
                state.close();
            }
            return answers.give(request, sink);
        },
        true, state);
    PieceReader reader(fetcher, state, routines);
    static_cast<void>(reader.play(list, "http://host/dir/list"));
    if (handed > answers.given()) {
        std::abort();
    }
    return 0;
}
