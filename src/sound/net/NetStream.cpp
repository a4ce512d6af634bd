// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/NetStream.h"

#include "sound/net/NetDecoder.h"
#include "sound/net/Receiver.h"

#include <pthread.h>

#include <algorithm>
#include <array>
#include <system_error>
#include <thread>
#include <utility>

namespace tovik::sound {
namespace {

/// A file whose server gives nothing more is asked this often before its track counts as over.
constexpr int kMostResumes = 8;
constexpr int kMostDoublings = 5;

struct Reason {
    HttpEnd end;
    StreamTrouble trouble;
};

constexpr std::array kReasons = {
    Reason{HttpEnd::complete, StreamTrouble::notAudio}, // complete, and nothing came
    Reason{HttpEnd::badAddress, StreamTrouble::badAddress},
    Reason{HttpEnd::nameNotFound, StreamTrouble::nameNotFound},
    Reason{HttpEnd::noConnection, StreamTrouble::refused},
    Reason{HttpEnd::noAnswer, StreamTrouble::noAnswer},
    Reason{HttpEnd::silence, StreamTrouble::noAnswer},
    Reason{HttpEnd::badCertificate, StreamTrouble::badCertificate},
    Reason{HttpEnd::badAnswer, StreamTrouble::badAnswer},
    Reason{HttpEnd::notAvailable, StreamTrouble::notAvailable},
};

StreamTrouble troubleOf(HttpEnd end, const Receiver& receiver) {
    if (receiver.trouble() != StreamTrouble::none) {
        return receiver.trouble();
    }
    const auto* const row = std::ranges::find(kReasons, end, &Reason::end);
    return row != kReasons.end() ? row->trouble : StreamTrouble::broken;
}

} // namespace

/// The thread that receives.
class NetStream::Thread {
public:
    explicit Thread(std::shared_ptr<Work> work) : work_(std::move(work)) {}

    void run();

private:
    [[nodiscard]] StreamTrouble tryAddress(const std::string& url, int depth);
    [[nodiscard]] StreamTrouble tryList(const Receiver& list, int depth);
    [[nodiscard]] HttpEnd fetch(const std::string& url, std::uint64_t from, Receiver& receiver);
    [[nodiscard]] HttpEnd goOn(HttpEnd end, Receiver& receiver);
    void finish(HttpEnd end, const Receiver& receiver);

    [[nodiscard]] StreamState& state() { return work_->state; }

    std::shared_ptr<Work> work_;
};

void NetStream::Thread::run() {
    ::pthread_setname_np(::pthread_self(), "stream");
    const StreamTrouble trouble = tryAddress(work_->url, 0);
    if (trouble != StreamTrouble::none) {
        state().finish(StreamStage::failed, trouble);
    }
    work_->routines.bytes({});
}

HttpEnd NetStream::Thread::fetch(const std::string& url, std::uint64_t from, Receiver& receiver) {
    if (!isHttpAddress(url)) {
        return HttpEnd::badAddress;
    }
    const NetTimes& times = state().times();
    const HttpEnd end = work_->fetch({.url = url,
                                      .from = from,
                                      .titles = work_->titles,
                                      .headerPatience = times.head,
                                      .bodyPatience = times.silence},
                                     receiver, state().givenUp());
    if (from == 0) {
        receiver.finish();
    }
    return end;
}

/// None when sound came of it, which has ended by then.
StreamTrouble NetStream::Thread::tryAddress(const std::string& url, int depth) {
    state().connect();
    Receiver receiver(state(), work_->routines);
    const HttpEnd end = fetch(url, 0, receiver);
    if (receiver.kind() == AnswerKind::list && receiver.trouble() == StreamTrouble::none) {
        return tryList(receiver, depth);
    }
    if (receiver.kind() != AnswerKind::sound) {
        return troubleOf(end, receiver);
    }
    finish(goOn(end, receiver), receiver);
    return StreamTrouble::none;
}

StreamTrouble NetStream::Thread::tryList(const Receiver& list, int depth) {
    if (isListOfPieces(list.text())) {
        return StreamTrouble::notAudio;
    }
    if (depth == kMostListDepth) {
        return StreamTrouble::emptyList;
    }
    for (const std::string& address : addressesOfList(list.text(), list.url())) {
        if (!state().wanted() || tryAddress(address, depth + 1) == StreamTrouble::none) {
            return StreamTrouble::none;
        }
    }
    return StreamTrouble::emptyList;
}

/// Asks for the rest of a file as long as there is hope.
HttpEnd NetStream::Thread::goOn(HttpEnd end, Receiver& receiver) {
    int fruitless = 0;
    while (receiver.incomplete() && state().wanted() && fruitless < kMostResumes) {
        const bool left = end == HttpEnd::refusedBySink;
        const auto pause = state().times().resume * (1 << std::min(fruitless, kMostDoublings));
        if (left ? !state().waitForRoom() : fruitless > 0 && !state().waitFor(pause)) {
            break;
        }
        const std::uint64_t had = receiver.received();
        receiver.resume();
        end = fetch(receiver.url(), had, receiver);
        fruitless = receiver.received() > had ? 0 : fruitless + 1;
        if (receiver.trouble() != StreamTrouble::none) {
            break; // it is not the same file any more
        }
    }
    return end;
}

void NetStream::Thread::finish(HttpEnd end, const Receiver& receiver) {
    const bool whole = end == HttpEnd::complete || end == HttpEnd::refusedBySink;
    const bool lost = receiver.incomplete() || !whole;
    const bool silent = end == HttpEnd::silence && receiver.headers().live();
    state().finish(silent ? StreamStage::stalled : StreamStage::ended,
                   lost && !silent ? StreamTrouble::broken : StreamTrouble::none);
}

NetStream::NetStream(Order order, const NetOptions& options)
    : work_(std::make_shared<Work>(std::move(order), options)) {
    try {
        // Never joined: it may hang in a name look-up, and ends with that.
        std::thread([work = work_] { Thread(work).run(); }).detach();
    } catch (const std::system_error&) {
        work_->state.finish(StreamStage::failed, StreamTrouble::notAvailable);
    }
}

NetStream::~NetStream() {
    close();
}

void NetStream::close() {
    work_->routines.forget();
    work_->state.close();
}

void NetStream::setMeta(MetaRoutine routine, std::uintptr_t user) {
    work_->routines.setMeta(std::move(routine), user);
}

OpenResult NetStream::open(const std::stop_token& calledOff) {
    // The state outlives the decoder's hold on this object.
    const std::shared_ptr<StreamState> state(work_, &work_->state);
    return openNetDecoder(state, calledOff);
}

} // namespace tovik::sound
