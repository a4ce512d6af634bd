// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PlatformChoice.h"

#include <QDir>
#include <QLibraryInfo>

namespace tovik::app {

namespace {

constexpr const char* kChosen = "QT_QPA_PLATFORM";

} // namespace

WindowSystems WindowSystems::current() {
    const QDir parts(QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms"));
    return {.chosen = qgetenv(kChosen).toStdString(),
            .x11 = qgetenv("DISPLAY").toStdString(),
            .wayland = qgetenv("WAYLAND_DISPLAY").toStdString(),
            .session = qgetenv("XDG_SESSION_TYPE").toStdString(),
            .speaksWayland =
                !parts.entryList({QStringLiteral("libqwayland*.so")}, QDir::Files).isEmpty()};
}

std::optional<std::string> platformFor(const WindowSystems& systems) {
    if (!systems.chosen.empty() || systems.x11.empty()) {
        return std::nullopt;
    }
    const bool native =
        !systems.wayland.empty() && systems.session != "x11" && systems.speaksWayland;
    return native ? "wayland;xcb" : "xcb";
}

void choosePlatform() {
    if (const auto platform = platformFor(WindowSystems::current())) {
        qputenv(kChosen, QByteArray::fromStdString(*platform));
    }
}

} // namespace tovik::app
