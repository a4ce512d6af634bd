// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/curl/CurlFetch.h"

#include <curl/curl.h>
#include <pthread.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <memory>
#include <optional>

namespace tovik::sound::curl {
namespace {

using Clock = std::chrono::steady_clock;

constexpr long kMostRedirects = 8;
constexpr long kFirstGood = 200;
constexpr long kFirstRedirect = 300;
constexpr long kBufferBytes = 64L * 1024; ///< what is taken from the system at once
constexpr const char* kSchemes = "http,https";
constexpr const char* kAgent = "Tovik/0.1";

template <auto release>
struct FreeBy {
    template <typename T>
    void operator()(T* object) const noexcept {
        release(object);
    }
};

using Easy = std::unique_ptr<CURL, FreeBy<curl_easy_cleanup>>;
using Multi = std::unique_ptr<CURLM, FreeBy<curl_multi_cleanup>>;
using Lines = std::unique_ptr<curl_slist, FreeBy<curl_slist_free_all>>;

/// A connection that was closed may raise SIGPIPE where the TLS library writes to it.
void keepPipesQuiet() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

struct Ending {
    CURLcode code;
    HttpEnd inHead;
    HttpEnd inBody;
};

/// Errors that are not listed: the answer is no http in its head, the connection broke in its body.
constexpr std::array kEndings = {
    Ending{CURLE_OK, HttpEnd::complete, HttpEnd::complete},
    Ending{CURLE_UNSUPPORTED_PROTOCOL, HttpEnd::badAnswer, HttpEnd::badAnswer},
    Ending{CURLE_URL_MALFORMAT, HttpEnd::badAddress, HttpEnd::badAddress},
    Ending{CURLE_COULDNT_RESOLVE_HOST, HttpEnd::nameNotFound, HttpEnd::nameNotFound},
    Ending{CURLE_COULDNT_RESOLVE_PROXY, HttpEnd::noConnection, HttpEnd::noConnection},
    Ending{CURLE_COULDNT_CONNECT, HttpEnd::noConnection, HttpEnd::noConnection},
    Ending{CURLE_GOT_NOTHING, HttpEnd::broken, HttpEnd::broken},
    Ending{CURLE_RECV_ERROR, HttpEnd::broken, HttpEnd::broken},
    Ending{CURLE_SEND_ERROR, HttpEnd::broken, HttpEnd::broken},
    Ending{CURLE_OPERATION_TIMEDOUT, HttpEnd::noAnswer, HttpEnd::silence},
    Ending{CURLE_PEER_FAILED_VERIFICATION, HttpEnd::badCertificate, HttpEnd::badCertificate},
    Ending{CURLE_SSL_CACERT_BADFILE, HttpEnd::badCertificate, HttpEnd::badCertificate},
    Ending{CURLE_SSL_ISSUER_ERROR, HttpEnd::badCertificate, HttpEnd::badCertificate},
};

/// One transfer, driven step by step so that a stop gets through at any time.
class Transfer {
public:
    Transfer(const HttpRequest& request, HttpSink& sink) : request_(request), sink_(sink) {}

    [[nodiscard]] HttpEnd run(const std::stop_token& calledOff);

private:
    [[nodiscard]] bool prepare();
    [[nodiscard]] bool prepareHead();
    [[nodiscard]] HttpEnd drive(const std::stop_token& calledOff);
    [[nodiscard]] std::optional<HttpEnd> finished();
    [[nodiscard]] Clock::time_point deadline() const;
    void headEnds();
    static std::size_t onHeader(char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t onBody(char* data, std::size_t size, std::size_t count, void* self);

    template <typename Value>
    [[nodiscard]] bool set(CURLoption option, Value value) {
        return curl_easy_setopt(easy_.get(), option, value) == CURLE_OK;
    }

    const HttpRequest& request_;
    HttpSink& sink_;
    Lines headers_;
    Lines aliases_;
    Easy easy_;
    Multi multi_;           ///< before the transfer, which it lets go
    bool answered_ = false; ///< the head has ended that belongs to the body
    bool inBody_ = false;
    bool refused_ = false;
    /// When it began; then when the head ended; then when bytes of the body came.
    Clock::time_point last_ = Clock::now();
};

void Transfer::headEnds() {
    long status = 0;
    curl_easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &status);
    if (status >= kFirstGood && status < kFirstRedirect) {
        answered_ = true;
        last_ = Clock::now();
    }
}

std::size_t Transfer::onHeader(char* data, std::size_t size, std::size_t count, void* self) {
    auto& transfer = *static_cast<Transfer*>(self);
    std::string_view line(data, size * count);
    while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) {
        line.remove_suffix(1);
    }
    if (line.empty()) {
        transfer.headEnds();
    }
    transfer.refused_ = !transfer.sink_.header(line);
    return transfer.refused_ ? 0 : size * count;
}

std::size_t Transfer::onBody(char* data, std::size_t size, std::size_t count, void* self) {
    auto& transfer = *static_cast<Transfer*>(self);
    if (!transfer.inBody_) {
        transfer.inBody_ = true;
        const char* url = nullptr;
        curl_easy_getinfo(transfer.easy_.get(), CURLINFO_EFFECTIVE_URL, &url);
        transfer.sink_.answeredBy(url != nullptr ? url : "");
    }
    transfer.refused_ = !transfer.sink_.body(std::as_bytes(std::span(data, size * count)));
    transfer.last_ = Clock::now(); // the sink may have waited
    return transfer.refused_ ? 0 : size * count;
}

bool Transfer::prepareHead() {
    // What old servers begin with instead of a status line of http.
    aliases_.reset(curl_slist_append(nullptr, "ICY 200 OK"));
    if (request_.titles) {
        headers_.reset(curl_slist_append(nullptr, "Icy-MetaData: 1"));
    }
    std::string range = std::to_string(request_.from) + "-";
    if (request_.to > 0) {
        range += std::to_string(request_.to);
    }
    return set(CURLOPT_HTTP200ALIASES, aliases_.get()) && set(CURLOPT_HTTPHEADER, headers_.get()) &&
           set(CURLOPT_USERAGENT, kAgent) &&
           ((request_.from == 0 && request_.to == 0) || set(CURLOPT_RANGE, range.c_str()));
}

bool Transfer::prepare() {
    easy_.reset(curl_easy_init());
    multi_.reset(curl_multi_init());
    const auto patience = static_cast<long>(request_.headerPatience.count());
    return easy_ && multi_ && set(CURLOPT_URL, request_.url.c_str()) && prepareHead() &&
           set(CURLOPT_NOSIGNAL, 1L) && set(CURLOPT_PROTOCOLS_STR, kSchemes) &&
           set(CURLOPT_REDIR_PROTOCOLS_STR, kSchemes) && set(CURLOPT_FOLLOWLOCATION, 1L) &&
           set(CURLOPT_MAXREDIRS, kMostRedirects) && set(CURLOPT_CONNECTTIMEOUT_MS, patience) &&
           (request_.authorities.empty() || set(CURLOPT_CAINFO, request_.authorities.c_str())) &&
           set(CURLOPT_HTTP_VERSION, CURL_HTTP_VERSION_1_1) &&
           set(CURLOPT_BUFFERSIZE, kBufferBytes) &&
           // A name look-up that hangs is left behind and not waited for.
           set(CURLOPT_QUICK_EXIT, 1L) && set(CURLOPT_HEADERFUNCTION, &onHeader) &&
           set(CURLOPT_HEADERDATA, this) && set(CURLOPT_WRITEFUNCTION, &onBody) &&
           set(CURLOPT_WRITEDATA, this) &&
           curl_multi_add_handle(multi_.get(), easy_.get()) == CURLM_OK;
}

Clock::time_point Transfer::deadline() const {
    return last_ + (answered_ ? request_.bodyPatience : request_.headerPatience);
}

std::optional<HttpEnd> Transfer::finished() {
    int left = 0;
    const CURLMsg* const message = curl_multi_info_read(multi_.get(), &left);
    if (message == nullptr || message->msg != CURLMSG_DONE) {
        return std::nullopt;
    }
    if (refused_) {
        return HttpEnd::refusedBySink;
    }
    const CURLcode code = message->data.result;
    const auto* const row = std::ranges::find(kEndings, code, &Ending::code);
    if (row != kEndings.end()) {
        return inBody_ ? row->inBody : row->inHead;
    }
    return inBody_ ? HttpEnd::broken : HttpEnd::badAnswer;
}

HttpEnd Transfer::drive(const std::stop_token& calledOff) {
    int running = 1;
    while (!calledOff.stop_requested()) {
        if (curl_multi_perform(multi_.get(), &running) != CURLM_OK) {
            return HttpEnd::badAnswer;
        }
        if (const auto end = finished()) {
            return calledOff.stop_requested() ? HttpEnd::calledOff : *end;
        }
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline() - Clock::now());
        if (left.count() <= 0) {
            return answered_ ? HttpEnd::silence : HttpEnd::noAnswer;
        }
        // It sets the time of its own timers against this one.
        curl_multi_poll(multi_.get(), nullptr, 0, static_cast<int>(left.count()) + 1, nullptr);
    }
    return HttpEnd::calledOff;
}

HttpEnd Transfer::run(const std::stop_token& calledOff) {
    if (!prepare()) {
        return HttpEnd::badAddress;
    }
    HttpEnd end = HttpEnd::calledOff;
    {
        const std::stop_callback wake(calledOff, [this] { curl_multi_wakeup(multi_.get()); });
        end = drive(calledOff);
    }
    curl_multi_remove_handle(multi_.get(), easy_.get());
    return end;
}

} // namespace

HttpEnd fetch(const HttpRequest& request, HttpSink& sink, const std::stop_token& calledOff) {
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (started != CURLE_OK) {
        return HttpEnd::notAvailable;
    }
    keepPipesQuiet();
    return Transfer(request, sink).run(calledOff);
}

} // namespace tovik::sound::curl
