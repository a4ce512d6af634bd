// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/engine/Engine.h"

#include <utility>

namespace tovik::sound {

Engine::Engine(std::unique_ptr<OutputDevice> device, const EngineOptions& options)
    : EngineCoreHolder(std::move(device), options), DeviceCalls(core), StreamCalls(core),
      ChannelCalls(core), EffectCalls(core), RecordCalls(core), NetworkCalls(core),
      EncodeCalls(core), DiscCalls(core), VisualCalls(core, options.visualHost) {}

} // namespace tovik::sound
