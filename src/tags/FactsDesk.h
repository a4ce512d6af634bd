// SPDX-License-Identifier: GPL-3.0-or-later
// Where the facts of files are asked for and come in: they are read one after the other on threads
// of its own. Interface thread.
#pragma once

#include "host/Watches.h"
#include "tags/FileFacts.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tovik::tags {

class FactsDesk {
public:
    /// Reads a file; runs on a thread of the desk's, also on two at once, throws nothing, may wait
    /// as long as it likes.
    using Read = std::function<FileFacts(const std::string& path)>;

    /// Facts that were asked for. More may be asked for in it.
    using Taker = std::function<void(const std::string& path, const FileFacts& facts)>;

    /// A taker is told for as long as this lives.
    using Taking = std::shared_ptr<const Taker>;

    /// For how long a file that does not come holds up those behind it.
    static constexpr std::chrono::milliseconds kPatience{3000};

    /// The watches outlive it. The threads begin with the first question. Where nothing is
    /// watched, as in a render, a question is answered in the call that asks it.
    explicit FactsDesk(host::Watches& watches, Read read = factsOfFile,
                       std::chrono::milliseconds patience = kPatience);

    /// Lets what is being read come to its end for a moment; a file that stalls is left alone.
    ~FactsDesk();
    FactsDesk(const FactsDesk&) = delete;
    FactsDesk& operator=(const FactsDesk&) = delete;

    enum class Urgency {
        first, ///< before all that waits, and beside what is being read
        last,  ///< behind it
    };

    /// Takers are told in the order in which they came.
    [[nodiscard]] Taking addTaker(Taker taker);

    /// Asks for the facts of a file. One that waits already is not asked for twice; asked for
    /// again as the first it goes to the front.
    void ask(const std::string& path, Urgency urgency);

    /// How many answers are still to come.
    [[nodiscard]] std::size_t waiting() const noexcept { return waiting_; }

    /// Calls once the events that wait by now were handled.
    void callLater(std::function<void()> call);

    /// What came in lately for who asked for it as the first; null where nobody did, or too long
    /// ago. Holds until the next answer.
    [[nodiscard]] const FileFacts* known(const std::string& path);

    /// The file was changed: what is known of it is out of date, and what is just being read of it.
    void forget(const std::string& path);

private:
    class Reader;

    /// How many answers are kept.
    static constexpr std::size_t kKept = 64;

    struct Answer {
        std::string path;
        FileFacts facts;
        bool urgent;
    };

    void begin();
    void takeAnswers();
    void take(const Answer& answer);
    void keep(const Answer& answer);
    void drop(const std::string& path);

    host::Watches& watches_;
    Read read_;
    std::chrono::milliseconds patience_;
    std::vector<std::weak_ptr<const Taker>> takers_;
    std::list<Answer> kept_; ///< the latest in front
    std::unordered_map<std::string, std::list<Answer>::iterator> places_;
    std::vector<std::function<void()>> later_;
    std::size_t waiting_ = 0;
    std::shared_ptr<Reader> reader_; ///< shared with its threads, which may outlive the desk
    std::unique_ptr<host::Watch> watch_;
};

} // namespace tovik::tags
