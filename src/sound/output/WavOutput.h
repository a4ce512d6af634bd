// SPDX-License-Identifier: GPL-3.0-or-later
// The device of a render: the mix goes into a WAV file as fast as it can be made. Stepped by hand;
// the mix is taken on the thread that steps it. Members may be called on any thread.
#pragma once

#include "base/Mutex.h"
#include "sound/output/OutputDevice.h"
#include "sound/output/WavWriter.h"

#include <memory>
#include <string>

namespace tovik::sound {

class WavOutput final : public OutputDevice {
public:
    /// The file is created by `open` and finished by `close`.
    explicit WavOutput(std::string path) : path_(std::move(path)) {}

    /// Takes `frames` from the source in blocks of at most 1024, each time after it was decoded,
    /// and appends them to the file. When the file cannot be written the mix goes on unheard.
    /// Nothing happens while the device is closed or paused.
    void advance(std::size_t frames);

    /// False once creating, writing or finishing the file failed; final after `close`.
    [[nodiscard]] bool ok() const;

    /// What failed, in words with the file name; empty while `ok`.
    [[nodiscard]] std::string error() const;

    /// False when the file cannot be created. Opening again begins the file anew.
    bool open(MixSource& source) override;
    void close() override;
    void setPaused(bool paused) override;

    [[nodiscard]] int latencyFrames() const noexcept override { return 0; }

    [[nodiscard]] bool restsWhenIdle() const noexcept override { return false; }

    /// A file is never lost and never arrives: the routines are not called.
    void onLost(std::function<void()> /*routine*/) override {}

    void onArrival(std::function<void()> /*routine*/) override {}

private:
    const std::string path_;
    mutable base::Mutex mutex_;
    std::unique_ptr<WavWriter> writer_ TOVIK_GUARDED_BY(mutex_); // kept after `close` for its error
    MixSource* source_ TOVIK_GUARDED_BY(mutex_) = nullptr;       // not null while open
    bool paused_ TOVIK_GUARDED_BY(mutex_) = false;
};

} // namespace tovik::sound
