// SPDX-License-Identifier: GPL-3.0-or-later
// The engine behind the sound library: decoders, readers that decode ahead, a mixer that runs in
// the device's callback, and a keeper that opens and closes the device. This class only joins them.
// Interface thread only.
#pragma once

#include "sound/engine/ChannelCalls.h"
#include "sound/engine/DeviceCalls.h"
#include "sound/engine/DiscCalls.h"
#include "sound/engine/EffectCalls.h"
#include "sound/engine/EncodeCalls.h"
#include "sound/engine/EngineCore.h"
#include "sound/engine/EngineOptions.h"
#include "sound/engine/NetworkCalls.h"
#include "sound/engine/RecordCalls.h"
#include "sound/engine/StreamCalls.h"
#include "sound/engine/VisualCalls.h"
#include "sound/SoundLibrary.h"

#include <memory>
#include <utility>

namespace tovik::sound {

/// Owns the core before the families that use it are made.
struct EngineCoreHolder {
    EngineCoreHolder(std::unique_ptr<OutputDevice> device, const EngineOptions& options)
        : core(std::move(device), options) {}

    EngineCore core;
};

class Engine final : private EngineCoreHolder,
                     public SoundLibrary,
                     private DeviceCalls,
                     private StreamCalls,
                     private ChannelCalls,
                     private EffectCalls,
                     private RecordCalls,
                     private NetworkCalls,
                     private EncodeCalls,
                     private DiscCalls,
                     private VisualCalls {
public:
    explicit Engine(std::unique_ptr<OutputDevice> device, const EngineOptions& options = {});

    /// Begins to open the device in the background, so that BASS_Init only waits for the rest.
    void warmUp() { core.warmUp(); }
};

} // namespace tovik::sound
