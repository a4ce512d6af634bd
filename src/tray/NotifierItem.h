// SPDX-License-Identifier: GPL-3.0-or-later
// The icon as an object on the desktop's bus, by the published interface of StatusNotifierItem. A
// menu of ours comes up by ContextMenu. Interface thread.
#pragma once

#include "tray/NotifierTypes.h"
#include "tray/TrayEvents.h"
#include "window/ScreenPlace.h"

#include <optional>
#include <QDBusAbstractAdaptor>
#include <QDBusObjectPath>
#include <QString>

namespace tovik::tray {

/// Where the object stands.
inline constexpr const char* kNotifierPath = "/StatusNotifierItem";

class NotifierItem final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Status READ status)
    Q_PROPERTY(int WindowId READ windowId)
    Q_PROPERTY(QString IconName READ none)
    Q_PROPERTY(tovik::tray::NotifierPixmaps IconPixmap READ icon)
    Q_PROPERTY(QString OverlayIconName READ none)
    Q_PROPERTY(tovik::tray::NotifierPixmaps OverlayIconPixmap READ noIcon)
    Q_PROPERTY(QString AttentionIconName READ none)
    Q_PROPERTY(tovik::tray::NotifierPixmaps AttentionIconPixmap READ noIcon)
    Q_PROPERTY(QString AttentionMovieName READ none)
    Q_PROPERTY(tovik::tray::NotifierToolTip ToolTip READ toolTip)
    Q_PROPERTY(bool ItemIsMenu READ itemIsMenu)
    Q_PROPERTY(QDBusObjectPath Menu READ menu)

public:
    /// `object` is what stands at the path, and owns the adaptor.
    NotifierItem(QObject& object, TrayClicks clicks);

    /// Tells the host of what changed.
    void setLook(const TrayLook& look);

    /// What the host brought along for the next window that is shown; once.
    [[nodiscard]] std::string takeToken();

    /// Where it wants the menu that it asked for; once. Hosts that know no place tell the corner of
    /// the screen.
    [[nodiscard]] std::optional<window::ScreenPlace> takePlace();

    // What is published of an item is asked of the object.
    // NOLINTBEGIN(readability-convert-member-functions-to-static)
    [[nodiscard]] QString category() const { return QStringLiteral("ApplicationStatus"); }

    [[nodiscard]] QString id() const { return QStringLiteral("tovik"); }

    [[nodiscard]] QString title() const { return QStringLiteral("Tovik"); }

    [[nodiscard]] QString status() const { return QStringLiteral("Active"); }

    [[nodiscard]] int windowId() const { return 0; }

    [[nodiscard]] QString none() const { return {}; }

    [[nodiscard]] NotifierPixmaps icon() const { return icon_; }

    [[nodiscard]] NotifierPixmaps noIcon() const { return {}; }

    [[nodiscard]] NotifierToolTip toolTip() const;

    [[nodiscard]] bool itemIsMenu() const { return false; }

    /// The published way to say that there is none on the bus.
    [[nodiscard]] QDBusObjectPath menu() const {
        return QDBusObjectPath(QStringLiteral("/NO_DBUSMENU"));
    }

    // NOLINTEND(readability-convert-member-functions-to-static)

public slots: // NOLINT(readability-redundant-access-specifiers)
    void Activate(int x, int y) const;
    void SecondaryActivate(int x, int y) const;
    void ContextMenu(int x, int y);
    void Scroll(int delta, const QString& orientation) const;
    void ProvideXdgActivationToken(const QString& token);

signals:
    void NewTitle();
    void NewIcon();
    void NewAttentionIcon();
    void NewOverlayIcon();
    void NewToolTip();
    void NewStatus(const QString& status);

private:
    TrayClicks clicks_;
    int style_ = 0;
    NotifierPixmaps icon_;
    QString words_;
    QString token_;
    std::optional<window::ScreenPlace> place_;
};

/// The notches of a turn as hosts tell it: 120 for each, or single ones.
[[nodiscard]] double notchesOf(int delta);

} // namespace tovik::tray
