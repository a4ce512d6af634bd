// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/net/NetStream.h"

#include "sound/net/NetDecoder.h"
#include "sound/net/PieceReader.h"
#include "sound/net/StreamFetcher.h"

#include <pthread.h>

#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace tovik::sound {

namespace {

/// A server that is away, and comes back as a rule.
bool isPassing(StreamTrouble trouble) {
    return trouble == StreamTrouble::refused || trouble == StreamTrouble::noAnswer ||
           trouble == StreamTrouble::broken;
}

} // namespace

/// The thread that receives.
class NetStream::Thread {
public:
    explicit Thread(std::shared_ptr<Work> work)
        : work_(std::move(work)), fetcher_(work_->fetch, work_->titles, work_->state) {}

    void run();

private:
    [[nodiscard]] StreamTrouble tryAddress(const std::string& url, int depth);
    [[nodiscard]] StreamTrouble tryList(const Receiver& list, int depth);
    [[nodiscard]] StreamTrouble tryEach(const std::vector<std::string>& addresses, int depth);
    void finish(HttpEnd end, const Receiver& receiver);

    [[nodiscard]] StreamState& state() { return work_->state; }

    std::shared_ptr<Work> work_;
    StreamFetcher fetcher_;
};

void NetStream::Thread::run() {
    ::pthread_setname_np(::pthread_self(), "stream");
    const StreamTrouble trouble = tryAddress(work_->url, 0);
    if (trouble != StreamTrouble::none) {
        state().finish(StreamStage::failed, trouble);
    }
    work_->routines.bytes({});
}

/// None when sound came of it, which has ended by then.
StreamTrouble NetStream::Thread::tryAddress(const std::string& url, int depth) {
    state().connect();
    Receiver receiver(state(), work_->routines);
    const HttpEnd end = fetcher_.stream(url, receiver);
    if (receiver.kind() == AnswerKind::list && receiver.trouble() == StreamTrouble::none) {
        return tryList(receiver, depth);
    }
    if (receiver.kind() != AnswerKind::sound) {
        return troubleOf(end, receiver.trouble());
    }
    finish(fetcher_.goOn(end, receiver), receiver);
    return StreamTrouble::none;
}

StreamTrouble NetStream::Thread::tryList(const Receiver& list, int depth) {
    if (depth == kMostListDepth) {
        return StreamTrouble::emptyList;
    }
    if (!isListOfPieces(list.text())) {
        return tryEach(addressesOfList(list.text(), list.url()), depth);
    }
    if (isListOfForms(list.text())) {
        return tryEach(formsOfList(list.text(), list.url()), depth);
    }
    return PieceReader(fetcher_, state(), work_->routines).play(list.text(), list.url());
}

/// The trouble is that of an address that may open another time, else that of the last one.
StreamTrouble NetStream::Thread::tryEach(const std::vector<std::string>& addresses, int depth) {
    StreamTrouble all = StreamTrouble::emptyList;
    for (const std::string& address : addresses) {
        const StreamTrouble one =
            state().wanted() ? tryAddress(address, depth + 1) : StreamTrouble::none;
        if (one == StreamTrouble::none) {
            return one;
        }
        all = isPassing(all) ? all : one;
    }
    return all;
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
