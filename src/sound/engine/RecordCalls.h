// SPDX-License-Identifier: GPL-3.0-or-later
// The recording operations. Interface thread only.
#pragma once

#include "sound/api/RecordOperations.h"
#include "sound/engine/EngineCore.h"
#include "sound/engine/Recorder.h"

#include <memory>

namespace tovik::sound {

class RecordCalls : public virtual RecordOperations {
public:
    explicit RecordCalls(EngineCore& core) : core_(core) {}

    ~RecordCalls() override { endRecording(); }

    RecordCalls(const RecordCalls&) = delete;
    RecordCalls& operator=(const RecordCalls&) = delete;

    bool BASS_RecordInit(int device) override;
    std::optional<std::string> BASS_RecordGetInputName(int index) override;
    bool BASS_RecordSetInput(std::uint32_t setting) override;
    Handle BASS_RecordStart(std::uint32_t freq, std::uint32_t channels, RecordRoutine routine,
                            std::uintptr_t user) override;
    bool BASS_RecordFree() override;

private:
    void applyInput();
    void endRecording();

    EngineCore& core_;
    bool initialized_ = false;
    bool inputOn_ = true;
    std::unique_ptr<Recorder> recorder_;
};

} // namespace tovik::sound
