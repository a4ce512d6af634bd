// SPDX-License-Identifier: GPL-3.0-or-later
// The interfaces of the Media Player Remote Interfacing Specification 2.2 (MPRIS) as tables: what
// each property and each method is, and what it does with the player. Interface thread.
#pragma once

#include "desktop/bus/MprisValues.h"
#include "desktop/Remote.h"

#include <functional>
#include <QString>
#include <QVariant>
#include <span>
#include <string_view>
#include <variant>

namespace tovik::desktop {

inline constexpr std::string_view kRootInterface = "org.mpris.MediaPlayer2";
inline constexpr std::string_view kPlayerInterface = "org.mpris.MediaPlayer2.Player";
inline constexpr std::string_view kTracksInterface = "org.mpris.MediaPlayer2.TrackList";

/// What the remote control can do with the program as a whole.
struct RemoteProgram {
    std::function<void()> Raise;
    std::function<void()> Quit;
};

/// What the entries of the tables work on; the parts outlive it.
struct MprisTarget {
    Remote& remote;
    const RemoteProgram& program;
};

/// How a change of a property is told.
enum class Told : std::uint8_t { withValue, withoutValue, never };

struct MprisProperty {
    std::string_view interface;
    std::string_view name;
    std::string_view type; ///< its signature
    Told told = Told::withValue;
    QVariant (*get)(const MprisTarget& target, const RemoteState& state);
    bool (*set)(const MprisTarget& target, const QVariant& value) = nullptr; ///< none: read only
};

/// Why a call has no effect.
struct MprisRefusal {
    std::string_view error; ///< its name on the bus
    std::string_view why;
};

using MprisAnswer = std::variant<QVariantList, MprisRefusal>;

struct MprisMethod {
    std::string_view interface;
    std::string_view name;
    std::string_view arguments; ///< "type name" of each, parted by commas
    std::string_view result;    ///< of the one that it gives, likewise
    MprisAnswer (*call)(const MprisTarget& target, const QVariantList& arguments);
};

struct MprisSignal {
    std::string_view interface;
    std::string_view name;
    std::string_view arguments;
};

[[nodiscard]] std::span<const MprisProperty> mprisProperties() noexcept;
[[nodiscard]] std::span<const MprisMethod> mprisMethods() noexcept;
[[nodiscard]] std::span<const MprisSignal> mprisSignals() noexcept;

/// The signature of a method's arguments, such as "ox".
[[nodiscard]] QString signatureOf(std::string_view arguments);

/// All interfaces as introspection data.
[[nodiscard]] QString mprisIntrospection();
} // namespace tovik::desktop
