// SPDX-License-Identifier: GPL-3.0-or-later
// What a station sends, taken apart into pieces that a file may begin and end with: frames of MPEG
// audio, AAC (ADTS) and FLAC, pages of Ogg. One thread at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tovik::radio {

using Bytes = std::span<const std::byte>;

/// What stands at the beginning of some bytes.
struct UnitStep {
    std::size_t skip = 0;   ///< bytes that belong to nothing
    std::size_t length = 0; ///< of the unit behind them; 0: more bytes are needed to tell
    bool head = false;      ///< each file has to begin with it
    bool fresh = false;     ///< the first one of a head: those before it are over
};

/// How a kind of stream is taken apart.
class UnitRule {
public:
    UnitRule() = default;
    virtual ~UnitRule() = default;
    UnitRule(const UnitRule&) = delete;
    UnitRule& operator=(const UnitRule&) = delete;

    /// `last`: no more bytes come. Skips and units lie within the bytes.
    [[nodiscard]] virtual UnitStep next(Bytes bytes, bool last) = 0;

    /// Of its files, with the dot.
    [[nodiscard]] virtual std::string_view ending() const = 0;

    /// MPEG audio, which may have been saved otherwise.
    [[nodiscard]] virtual bool isMpeg() const { return false; }

    /// A file has to begin with its head; else it begins anywhere, and takes ID3 tags.
    [[nodiscard]] virtual bool hasHead() const { return false; }

    /// The head as a file of that song begins with it.
    [[nodiscard]] virtual std::string headOf(std::string head, const std::string& artist,
                                             const std::string& title) const;

    /// What the head itself tells, "artist - title"; empty for nothing.
    [[nodiscard]] virtual std::string titleOf(std::string_view head) const;
};

/// Which kind bytes from somewhere in a stream are; none where they do not tell (yet).
[[nodiscard]] std::unique_ptr<UnitRule> unitRuleOf(Bytes bytes);

struct SoundUnit {
    Bytes bytes;
    std::uint64_t begin = 0; ///< counted from the stream's first byte
    bool head = false;
    bool fresh = false;
};

class SoundUnits {
public:
    /// As much as is looked through for what it is.
    static constexpr std::size_t kMostUnknown = std::size_t{256} * 1024;

    using Take = std::function<void(const SoundUnit&)>;

    /// More of the stream; empty when it ends. Whole units are handed out in their order.
    void feed(Bytes bytes, const Take& take);

    /// None until it is known.
    [[nodiscard]] const UnitRule* rule() const { return rule_.get(); }

    /// Nothing of it is known.
    [[nodiscard]] bool isUnknown() const { return rule_ == nullptr && unknown_ >= kMostUnknown; }

private:
    std::unique_ptr<UnitRule> rule_;
    std::vector<std::byte> waiting_; ///< what no unit is made of yet
    std::uint64_t begin_ = 0;        ///< of that
    std::size_t unknown_ = 0;        ///< bytes that did not tell what they are
};

} // namespace tovik::radio
