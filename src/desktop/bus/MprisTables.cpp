// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bus/MprisTables.h"

#include "desktop/MimeTypes.h"
#include "playlist/AudioExtensions.h"

#include <array>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QStringList>
#include <span>

namespace tovik::desktop {

namespace {

using T = const MprisTarget&;
using S = const RemoteState&;
using Arguments = const QVariantList&;
using Answer = MprisAnswer;

std::string pathIn(const QVariant& value) {
    return value.value<QDBusObjectPath>().path().toStdString();
}

QStringList mimeTypes() {
    QStringList types;
    // A list of files is no track.
    for (const std::string_view extension :
         std::span(playlist::AudioExtensions).first<playlist::kScannedExtensions>()) {
        for (const std::string_view type : mimeTypesOf(extension)) {
            types.append(textOf(type));
        }
    }
    types.removeDuplicates();
    return types;
}

Answer done() {
    return QVariantList();
}

/// A value that never changes.
template <auto Value>
QVariant fixed(T, S) {
    return Value;
}

constexpr auto kProperties = std::to_array<MprisProperty>({
    {kRootInterface, "CanQuit", "b", Told::withValue, fixed<true>},
    {kRootInterface, "CanRaise", "b", Told::withValue, fixed<true>},
    {kRootInterface, "HasTrackList", "b", Told::withValue, fixed<true>},
    {kRootInterface, "Identity", "s", Told::withValue,
     [](T, S) -> QVariant { return QStringLiteral("Tovik"); }},
    {kRootInterface, "DesktopEntry", "s", Told::withValue,
     [](T, S) -> QVariant { return QStringLiteral("tovik"); }},
    {kRootInterface, "SupportedUriSchemes", "as", Told::withValue,
     [](T, S) -> QVariant {
         return QStringList{QStringLiteral("file"), QStringLiteral("http"),
                            QStringLiteral("https")};
     }},
    {kRootInterface, "SupportedMimeTypes", "as", Told::withValue,
     [](T, S) -> QVariant { return mimeTypes(); }},
    {kPlayerInterface, "PlaybackStatus", "s", Told::withValue,
     [](T, S state) -> QVariant { return textOf(state.PlaybackStatus); }},
    {kPlayerInterface, "LoopStatus", "s", Told::withValue,
     [](T, S state) -> QVariant { return textOf(state.LoopStatus); },
     [](T target, const QVariant& value) {
         return target.remote.setLoopStatus(value.toString().toStdString());
     }},
    {kPlayerInterface, "Rate", "d", Told::withValue, [](T, S) -> QVariant { return 1.0; },
     [](T target, const QVariant& value) {
         // There is one speed; 0 is to be taken as a pause.
         if (value.toDouble() == 0) {
             target.remote.Pause();
         }
         return true;
     }},
    {kPlayerInterface, "Shuffle", "b", Told::withValue,
     [](T, S state) -> QVariant { return state.Shuffle; },
     [](T target, const QVariant& value) {
         target.remote.setShuffle(value.toBool());
         return true;
     }},
    {kPlayerInterface, "Metadata", "a{sv}", Told::withValue,
     [](T, S state) -> QVariant { return metadataOf(state.Metadata); }},
    {kPlayerInterface, "Volume", "d", Told::withValue,
     [](T, S state) -> QVariant { return state.Volume; },
     [](T target, const QVariant& value) {
         target.remote.setVolume(value.toDouble());
         return true;
     }},
    {kPlayerInterface, "Position", "x", Told::never,
     [](T target, S) -> QVariant { return static_cast<qlonglong>(target.remote.Position()); }},
    {kPlayerInterface, "MinimumRate", "d", Told::withValue, [](T, S) -> QVariant { return 1.0; }},
    {kPlayerInterface, "MaximumRate", "d", Told::withValue, [](T, S) -> QVariant { return 1.0; }},
    {kPlayerInterface, "CanGoNext", "b", Told::withValue,
     [](T, S state) -> QVariant { return state.CanGoNext; }},
    {kPlayerInterface, "CanGoPrevious", "b", Told::withValue,
     [](T, S state) -> QVariant { return state.CanGoPrevious; }},
    {kPlayerInterface, "CanPlay", "b", Told::withValue,
     [](T, S state) -> QVariant { return state.CanPlay; }},
    {kPlayerInterface, "CanPause", "b", Told::withValue,
     [](T, S state) -> QVariant { return state.CanPause; }},
    {kPlayerInterface, "CanSeek", "b", Told::withValue,
     [](T, S state) -> QVariant { return state.CanSeek; }},
    {kPlayerInterface, "CanControl", "b", Told::never, fixed<true>},
    {kTracksInterface, "Tracks", "ao", Told::withoutValue,
     [](T target, S) -> QVariant { return tracksValue(target.remote.Tracks()); }},
    {kTracksInterface, "CanEditTracks", "b", Told::withValue, fixed<false>},
});

/// A method without arguments that only does something.
template <void (Remote::*Method)()>
Answer plain(T target, Arguments) {
    (target.remote.*Method)();
    return done();
}

/// The list is not edited from outside; a call that tries it is to have no effect.
Answer nothing(T, Arguments) {
    return done();
}

constexpr auto kMethods = std::to_array<MprisMethod>({
    {kRootInterface, "Raise", "", "",
     [](T target, Arguments) {
         target.program.Raise();
         return done();
     }},
    {kRootInterface, "Quit", "", "",
     [](T target, Arguments) {
         target.program.Quit();
         return done();
     }},
    {kPlayerInterface, "Next", "", "", plain<&Remote::Next>},
    {kPlayerInterface, "Previous", "", "", plain<&Remote::Previous>},
    {kPlayerInterface, "Pause", "", "", plain<&Remote::Pause>},
    {kPlayerInterface, "PlayPause", "", "",
     [](T target, Arguments) -> Answer {
         if (!target.remote.PlayPause()) {
             return MprisRefusal{"org.freedesktop.DBus.Error.NotSupported", "there is no track"};
         }
         return done();
     }},
    {kPlayerInterface, "Stop", "", "", plain<&Remote::Stop>},
    {kPlayerInterface, "Play", "", "", plain<&Remote::Play>},
    {kPlayerInterface, "Seek", "x Offset", "",
     [](T target, Arguments arguments) {
         target.remote.Seek(arguments.at(0).toLongLong());
         return done();
     }},
    {kPlayerInterface, "SetPosition", "o TrackId,x Position", "",
     [](T target, Arguments arguments) {
         target.remote.SetPosition(pathIn(arguments.at(0)), arguments.at(1).toLongLong());
         return done();
     }},
    {kPlayerInterface, "OpenUri", "s Uri", "",
     [](T target, Arguments arguments) -> Answer {
         if (target.remote.opening()) {
             return MprisRefusal{"org.freedesktop.DBus.Error.LimitsExceeded",
                                 "another one is being opened"};
         }
         if (!target.remote.OpenUri(arguments.at(0).toString().toStdString())) {
             return MprisRefusal{"org.freedesktop.DBus.Error.InvalidArgs", "this cannot be opened"};
         }
         return done();
     }},
    {kTracksInterface, "GetTracksMetadata", "ao TrackIds", "aa{sv} Metadata",
     [](T target, Arguments arguments) -> Answer {
         QList<QVariantMap> tracks;
         for (const auto& path : qdbus_cast<QList<QDBusObjectPath>>(arguments.at(0))) {
             if (const RemoteTrack track = target.remote.trackOf(path.path().toStdString());
                 !track.trackId.empty()) {
                 tracks.append(metadataOf(track));
             }
         }
         return QVariantList{QVariant::fromValue(tracks)};
     }},
    {kTracksInterface, "AddTrack", "s Uri,o AfterTrack,b SetAsCurrent", "", nothing},
    {kTracksInterface, "RemoveTrack", "o TrackId", "", nothing},
    {kTracksInterface, "GoTo", "o TrackId", "",
     [](T target, Arguments arguments) {
         target.remote.GoTo(pathIn(arguments.at(0)));
         return done();
     }},
});

constexpr auto kSignals = std::to_array<MprisSignal>({
    {kPlayerInterface, "Seeked", "x Position"},
    {kTracksInterface, "TrackListReplaced", "ao Tracks,o CurrentTrack"},
    {kTracksInterface, "TrackAdded", "a{sv} Metadata,o AfterTrack"},
    {kTracksInterface, "TrackRemoved", "o TrackId"},
    {kTracksInterface, "TrackMetadataChanged", "o TrackId,a{sv} Metadata"},
});

/// "type name" of each argument, as pairs.
std::vector<std::pair<QString, QString>> partsOf(std::string_view arguments) {
    std::vector<std::pair<QString, QString>> parts;
    for (const QString& part : textOf(arguments).split(u',', Qt::SkipEmptyParts)) {
        parts.emplace_back(part.section(u' ', 0, 0), part.section(u' ', 1, 1));
    }
    return parts;
}

QString argumentsXml(std::string_view arguments, const QString& direction) {
    QString xml;
    for (const auto& [type, name] : partsOf(arguments)) {
        xml += QStringLiteral("<arg name=\"%1\" type=\"%2\"%3/>").arg(name, type, direction);
    }
    return xml;
}

QString propertyXml(const MprisProperty& property) {
    static constexpr std::array kTold = {"true", "invalidates", "false"};
    return QStringLiteral("<property name=\"%1\" type=\"%2\" access=\"%3\"><annotation "
                          "name=\"org.freedesktop.DBus.Property.EmitsChangedSignal\" "
                          "value=\"%4\"/></property>")
        .arg(textOf(property.name), textOf(property.type),
             property.set == nullptr ? QStringLiteral("read") : QStringLiteral("readwrite"),
             QLatin1StringView(kTold.at(static_cast<std::size_t>(property.told))));
}

} // namespace

std::span<const MprisProperty> mprisProperties() noexcept {
    return kProperties;
}

std::span<const MprisMethod> mprisMethods() noexcept {
    return kMethods;
}

std::span<const MprisSignal> mprisSignals() noexcept {
    return kSignals;
}

QString signatureOf(std::string_view arguments) {
    QString signature;
    for (const auto& [type, name] : partsOf(arguments)) {
        signature += type;
    }
    return signature;
}

QString mprisIntrospection() {
    QString xml;
    for (const std::string_view interface : {kRootInterface, kPlayerInterface, kTracksInterface}) {
        xml += QStringLiteral("<interface name=\"%1\">").arg(textOf(interface));
        for (const MprisMethod& method : kMethods) {
            if (method.interface == interface) {
                xml += QStringLiteral("<method name=\"%1\">").arg(textOf(method.name)) +
                       argumentsXml(method.arguments, QStringLiteral(" direction=\"in\"")) +
                       argumentsXml(method.result, QStringLiteral(" direction=\"out\"")) +
                       QStringLiteral("</method>");
            }
        }
        for (const MprisSignal& signal : kSignals) {
            if (signal.interface == interface) {
                xml += QStringLiteral("<signal name=\"%1\">").arg(textOf(signal.name)) +
                       argumentsXml(signal.arguments, QString()) + QStringLiteral("</signal>");
            }
        }
        for (const MprisProperty& property : kProperties) {
            if (property.interface == interface) {
                xml += propertyXml(property);
            }
        }
        xml += QStringLiteral("</interface>");
    }
    return xml;
}

} // namespace tovik::desktop
