// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/bus/Mpris.h"

#include "desktop/bus/CoverSearch.h"
#include "desktop/bus/SessionBus.h"
#include "desktop/TrackListChange.h"

#include <algorithm>
#include <optional>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QTimer>
#include <set>
#include <utility>
#include <variant>
#include <vector>

namespace tovik::desktop {

namespace {

const QString kPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString kName = QStringLiteral("org.mpris.MediaPlayer2.tovik");
const QString kIntrospectable = QStringLiteral("org.freedesktop.DBus.Introspectable");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");

/// Of the bus: a name that is taken is not waited for; the answer that it is ours.
constexpr uint kDoNotQueue = 4;
constexpr uint kPrimaryOwner = 1;

bool is(std::string_view text, const QString& other) {
    return textOf(text) == other;
}

} // namespace

class Mpris::Service final : public QDBusVirtualObject {
public:
    Service(Remote& remote, RemoteProgram program, host::Dispatcher& dispatcher, std::string covers)
        : remote_(remote), program_(std::move(program)), dispatcher_(dispatcher),
          covers_(std::move(covers)) {
        qDBusRegisterMetaType<QList<QVariantMap>>();
        // Many changes at once are told as one.
        soon_.setSingleShot(true);
        connect(&soon_, &QTimer::timeout, this, [this] { tellChanges(); });
    }

    ~Service() override {
        remote_.changed = {};
        remote_.seeked = {};
        remote_.started = {};
        remote_.rows.changed = {};
        remote_.rows.wordsChanged = {};
    }

    void begin() {
        connectToSessionBus(*this, [this](const QDBusConnection& bus) { arrive(bus); });
    }

    [[nodiscard]] QString introspect(const QString& /*path*/) const override {
        return mprisIntrospection();
    }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.interface() == kIntrospectable) {
            return false; // the library answers it with `introspect`
        }
        // What it does may fail as if a button had been pressed: it is told, and the bus answered.
        QDBusMessage answer = message.createReply();
        dispatcher_.run([&] {
            answer = message.interface() == kProperties ? property(message) : method(message);
        });
        if (message.isReplyRequired()) {
            bus.send(answer);
        }
        return true;
    }

private:
    [[nodiscard]] MprisTarget target() const { return {remote_, program_}; }

    void arrive(const QDBusConnection& bus) {
        bus_ = bus;
        bus_->registerVirtualObject(kPath, this);
        told_ = values();
        remote_.changed = [this] { soon_.start(0); };
        tracks_ = remote_.Tracks();
        remote_.rows.changed = [this] { soon_.start(0); };
        remote_.rows.wordsChanged = [this](RowIds::Id row) {
            // More than these are told as a new list.
            if (reworded_.size() < TrackListChange::kMany) {
                reworded_.insert(Remote::pathOf(row));
            }
            soon_.start(0);
        };
        remote_.seeked = [this](std::int64_t position) {
            tellChanges();
            signal(kPlayerInterface, "Seeked", {static_cast<qlonglong>(position)});
        };
        covers_.found = [this](const std::string& track, const std::string& url) {
            remote_.setArt(track, url);
        };
        remote_.started = [this](const std::string& track) { lookForCover(track); };
        lookForCover(remote_.path());
        requestName(kName);
    }

    void lookForCover(const std::string& track) {
        covers_.tags = remote_.coverTags();
        covers_.look(track);
    }

    void requestName(const QString& name) {
        QDBusMessage request = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"));
        request << name << kDoNotQueue;
        auto* const watcher = new QDBusPendingCallWatcher(bus_->asyncCall(request), this);
        connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, name, watcher] {
            const QDBusPendingReply<uint> reply = *watcher;
            watcher->deleteLater();
            if (!reply.isError() && reply.value() != kPrimaryOwner && name == kName) {
                // Another instance has it.
                requestName(kName +
                            QStringLiteral(".instance%1").arg(QCoreApplication::applicationPid()));
            }
        });
    }

    QDBusMessage method(const QDBusMessage& message) {
        const auto methods = mprisMethods();
        // Without an interface the first of the name is meant.
        const auto found = std::ranges::find_if(methods, [&](const MprisMethod& method) {
            return is(method.name, message.member()) &&
                   (message.interface().isEmpty() || is(method.interface, message.interface()));
        });
        if (found == methods.end()) {
            return message.createErrorReply(QDBusError::UnknownMethod,
                                            QStringLiteral("no such method"));
        }
        if (message.signature() != signatureOf(found->arguments)) {
            return message.createErrorReply(QDBusError::InvalidArgs,
                                            QStringLiteral("other arguments are needed"));
        }
        const MprisAnswer answer = found->call(target(), message.arguments());
        const auto* const refusal = std::get_if<MprisRefusal>(&answer);
        return refusal == nullptr
                   ? message.createReply(std::get<QVariantList>(answer))
                   : message.createErrorReply(textOf(refusal->error), textOf(refusal->why));
    }

    QDBusMessage property(const QDBusMessage& message) {
        const QVariantList arguments = message.arguments();
        const QString interface = arguments.value(0).toString();
        if (message.member() == u"GetAll" && message.signature() == u"s") {
            return getAll(message, interface);
        }
        const bool get = message.member() == u"Get" && message.signature() == u"ss";
        if (!get && (message.member() != u"Set" || message.signature() != u"ssv")) {
            return message.createErrorReply(QDBusError::UnknownMethod,
                                            QStringLiteral("no such method"));
        }
        const auto properties = mprisProperties();
        const auto found = std::ranges::find_if(properties, [&](const MprisProperty& property) {
            return is(property.interface, interface) &&
                   is(property.name, arguments.at(1).toString());
        });
        if (found == properties.end()) {
            return message.createErrorReply(QDBusError::UnknownProperty,
                                            QStringLiteral("no such property"));
        }
        if (get) {
            const QVariant value = found->get(target(), remote_.state());
            return message.createReply(QVariant::fromValue(QDBusVariant(value)));
        }
        return set(message, *found, arguments.at(2).value<QDBusVariant>().variant());
    }

    QDBusMessage getAll(const QDBusMessage& message, const QString& interface) {
        const RemoteState state = remote_.state();
        QVariantMap map;
        for (const MprisProperty& property : mprisProperties()) {
            if (is(property.interface, interface)) {
                map.insert(textOf(property.name), property.get(target(), state));
            }
        }
        return map.isEmpty() ? message.createErrorReply(QDBusError::UnknownInterface,
                                                        QStringLiteral("no such interface"))
                             : message.createReply(QVariant(map));
    }

    QDBusMessage set(const QDBusMessage& message, const MprisProperty& property,
                     const QVariant& value) {
        if (property.set == nullptr) {
            return message.createErrorReply(QDBusError::PropertyReadOnly,
                                            QStringLiteral("it is only read"));
        }
        const char* const type = QDBusMetaType::typeToSignature(value.metaType());
        if (type == nullptr || property.type != type || !property.set(target(), value)) {
            return message.createErrorReply(QDBusError::InvalidArgs,
                                            QStringLiteral("it cannot be that"));
        }
        return message.createReply();
    }

    void signal(std::string_view interface, std::string_view name, const QVariantList& arguments) {
        QDBusMessage message = QDBusMessage::createSignal(kPath, textOf(interface), textOf(name));
        message.setArguments(arguments);
        bus_->send(message);
    }

    /// The values of all properties that are told of, in the order of the table.
    [[nodiscard]] std::vector<QVariant> values() const {
        const RemoteState state = remote_.state();
        std::vector<QVariant> all;
        for (const MprisProperty& property : mprisProperties()) {
            all.push_back(property.told == Told::withValue ? property.get(target(), state)
                                                           : QVariant());
        }
        return all;
    }

    void tellChanges() {
        soon_.stop();
        std::vector<QVariant> now = values();
        const auto properties = mprisProperties();
        for (const std::string_view interface : {kRootInterface, kPlayerInterface}) {
            QVariantMap changes;
            for (std::size_t i = 0; i < now.size(); ++i) {
                const bool other = properties[i].told == Told::withValue &&
                                   properties[i].interface == interface &&
                                   !sameValue(now.at(i), told_.at(i));
                if (other) {
                    changes.insert(textOf(properties[i].name), now.at(i));
                }
            }
            if (!changes.isEmpty()) {
                signal(kProperties.toStdString(), "PropertiesChanged",
                       {textOf(interface), changes, QStringList()});
            }
        }
        told_ = std::move(now);
        tellList();
    }

    void tellList() {
        using Kind = TrackListChange::Kind;
        const std::vector<std::string> before = std::exchange(tracks_, remote_.Tracks());
        const TrackListChange change = trackListChange(before, tracks_);
        if (change.kind != Kind::none) {
            signal(
                kProperties.toStdString(), "PropertiesChanged",
                {textOf(kTracksInterface), QVariantMap(), QStringList{QStringLiteral("Tracks")}});
        }
        const std::set<std::string> reworded = std::exchange(reworded_, {});
        if (change.kind == Kind::replaced || reworded.size() >= TrackListChange::kMany) {
            signal(kTracksInterface, "TrackListReplaced",
                   {tracksValue(tracks_), trackValue(remote_.currentTrack())});
            return;
        }
        for (const std::size_t place : change.places) {
            if (change.kind == Kind::removed) {
                signal(kTracksInterface, "TrackRemoved", {trackValue(before.at(place))});
            } else {
                signal(kTracksInterface, "TrackAdded",
                       {metadataOf(remote_.trackOf(tracks_.at(place))),
                        trackValue(place == 0 ? kNoTrack : tracks_.at(place - 1))});
            }
        }
        for (const std::string& track : reworded) {
            if (std::ranges::find(before, track) != before.end() &&
                std::ranges::find(tracks_, track) != tracks_.end()) {
                signal(kTracksInterface, "TrackMetadataChanged",
                       {trackValue(track), metadataOf(remote_.trackOf(track))});
            }
        }
    }

    Remote& remote_;
    const RemoteProgram program_;
    host::Dispatcher& dispatcher_;
    std::optional<QDBusConnection> bus_;
    std::vector<QVariant> told_;      ///< what the bus was told last
    std::vector<std::string> tracks_; ///< likewise
    std::set<std::string> reworded_;  ///< tracks whose words changed since
    CoverSearch covers_;
    QTimer soon_;
};

Mpris::Mpris(Remote& remote, RemoteProgram program, host::Dispatcher& dispatcher,
             std::string covers)
    : service_(
          std::make_unique<Service>(remote, std::move(program), dispatcher, std::move(covers))) {}

Mpris::~Mpris() = default;

void Mpris::begin() {
    service_->begin();
}

} // namespace tovik::desktop
