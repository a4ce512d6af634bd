// SPDX-License-Identifier: GPL-3.0-or-later
// The sound library as the player sees it. Code takes the small family that it needs; only the
// place that builds the player knows the whole. All operations belong to the interface thread.
#pragma once

#include "sound/api/ChannelOperations.h"
#include "sound/api/DeviceOperations.h"
#include "sound/api/DiscOperations.h"
#include "sound/api/EffectOperations.h"
#include "sound/api/EncodeOperations.h"
#include "sound/api/NetworkOperations.h"
#include "sound/api/RecordOperations.h"
#include "sound/api/StreamOperations.h"
#include "sound/api/VisualOperations.h"

namespace tovik::sound {

class SoundLibrary : public virtual DeviceOperations,
                     public virtual StreamOperations,
                     public virtual ChannelOperations,
                     public virtual EffectOperations,
                     public virtual RecordOperations,
                     public virtual DiscOperations,
                     public virtual NetworkOperations,
                     public virtual EncodeOperations,
                     public virtual VisualOperations {};

} // namespace tovik::sound
