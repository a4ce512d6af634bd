// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/sound/FakeCdDrive.h"

#include <algorithm>
#include <array>
#include <thread>
#include <utility>

namespace tovik::test {

using sound::DiscTrouble;
using sound::kSectorBytes;
using sound::SectorRead;

class FakeCdDrive final : public sound::CdDrive {
public:
    explicit FakeCdDrive(std::shared_ptr<DriveScript> script) : script_(std::move(script)) {}

    std::string description() const override { return "Drive of a test"; }

    sound::DriveFacts facts() const override { return {.canOpen = true, .canLock = true}; }

    sound::DiscLook look() override { return script_->look(); }

    bool discChanged() override { return script_->takeChanged(); }

    SectorRead read(std::int32_t sector, std::span<std::byte> bytes) override {
        return script_->read(sector, bytes);
    }

    std::unique_ptr<sound::VerifiedReader> verified(std::int32_t first,
                                                    std::int32_t sectors) override;

    bool door(sound::DoorAction action) override { return script_->door(action); }

    const std::shared_ptr<DriveScript>& script() const { return script_; }

private:
    const std::shared_ptr<DriveScript> script_;
};

namespace {

class FakeVerifiedReader final : public sound::VerifiedReader {
public:
    FakeVerifiedReader(FakeCdDrive& drive, std::int32_t first, std::int32_t sectors)
        : drive_(drive), next_(first), end_(first + sectors) {}

    SectorRead read(std::span<std::byte> bytes) override {
        const auto left = static_cast<std::size_t>(end_ - next_);
        std::size_t wanted = std::min(bytes.size() / kSectorBytes, left);
        if (const std::size_t most = drive_.script()->facts().mostSectors; most > 0) {
            wanted = std::min(wanted, most);
        }
        SectorRead got{};
        while (got.sectors < wanted) {
            const auto place = bytes.subspan(got.sectors * kSectorBytes, kSectorBytes);
            const SectorRead one = drive_.read(next_, place);
            if (one.trouble == DiscTrouble::unreadable) {
                std::ranges::fill(place, std::byte{0});
                ++report_.lostSectors;
                report_.trouble = DiscTrouble::unreadable;
            } else if (one.trouble != DiscTrouble::none) {
                static_cast<void>(drive_.discChanged()); // which tells nobody else then
                return {.sectors = got.sectors,
                        .trouble = got.sectors > 0 ? DiscTrouble::none : one.trouble};
            }
            ++next_;
            ++got.sectors;
        }
        drive_.script()->change([](auto& facts) { ++facts.verifiedReads; });
        return got;
    }

    sound::DiscReport report() const override { return report_; }

private:
    FakeCdDrive& drive_;
    std::int32_t next_;
    std::int32_t end_;
    sound::DiscReport report_{};
};

} // namespace

std::unique_ptr<sound::VerifiedReader> FakeCdDrive::verified(std::int32_t first,
                                                             std::int32_t sectors) {
    if (script_->facts().refusesVerified) {
        return nullptr;
    }
    return std::make_unique<FakeVerifiedReader>(*this, first, sectors);
}

void DriveScript::insert(sound::DiscToc toc, std::string text) {
    change([&](Facts& facts) {
        facts.disc = {};
        if (!toc.tracks.empty()) {
            facts.disc = {.toc = std::move(toc), .text = std::move(text)};
        }
        facts.changed = true;
    });
}

std::vector<std::byte> DriveScript::sector(std::int32_t number) {
    constexpr std::uint32_t kStep = 2'654'435'761U; // spreads neighbours apart
    std::vector<std::byte> bytes(kSectorBytes);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto place =
            static_cast<std::uint32_t>(number) * static_cast<std::uint32_t>(kSectorBytes) +
            static_cast<std::uint32_t>(i);
        bytes[i] = static_cast<std::byte>((place * kStep) >> 24U);
    }
    return bytes;
}

sound::DriveOptions DriveScript::options(std::vector<std::shared_ptr<DriveScript>> drives) {
    sound::DriveOptions options;
    options.find = [drives = std::move(drives)](const auto&) {
        std::vector<sound::FoundDrive> found;
        for (const auto& script : drives) {
            if (!script->facts().gone) {
                found.push_back({.name = std::to_string(found.size()), .open = [script] {
                                     return std::make_unique<FakeCdDrive>(script);
                                 }});
            }
        }
        return found;
    };
    return options;
}

sound::DiscLook DriveScript::look() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return !facts_.hangs; });
    ++facts_.looks;
    return facts_.gone ? sound::DiscLook{} : facts_.disc;
}

bool DriveScript::takeChanged() {
    const std::lock_guard lock(mutex_);
    return std::exchange(facts_.changed, false);
}

SectorRead DriveScript::read(std::int32_t sector, std::span<std::byte> bytes) {
    const auto slow = facts().slow;
    if (slow.count() > 0) {
        std::this_thread::sleep_for(slow);
    }
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return !facts_.hangs; });
    ++facts_.reads;
    std::size_t most = bytes.size() / kSectorBytes;
    if (facts_.mostSectors > 0) {
        most = std::min(most, facts_.mostSectors);
    }
    for (std::size_t i = 0; i < most; ++i) {
        const std::int32_t number = sector + static_cast<std::int32_t>(i);
        if (number == facts_.opensAt) {
            facts_.disc = {};
            facts_.changed = true;
        }
        DiscTrouble trouble = DiscTrouble::none;
        if (facts_.gone) {
            trouble = DiscTrouble::noDrive;
        } else if (!facts_.disc.toc || number >= facts_.disc.toc->leadOut) {
            trouble = DiscTrouble::noDisc;
        } else if (facts_.unreadable.contains(number)) {
            trouble = DiscTrouble::unreadable;
        }
        if (trouble != DiscTrouble::none) {
            return {.sectors = i, .trouble = i > 0 ? DiscTrouble::none : trouble};
        }
        std::ranges::copy(DriveScript::sector(number),
                          bytes.subspan(i * kSectorBytes, kSectorBytes).begin());
    }
    return {.sectors = most};
}

bool DriveScript::door(sound::DoorAction action) {
    const std::lock_guard lock(mutex_);
    facts_.doors.push_back(action);
    return !facts_.refusesDoor;
}

} // namespace tovik::test
