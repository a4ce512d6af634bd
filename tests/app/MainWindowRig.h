// SPDX-License-Identifier: GPL-3.0-or-later
// The whole player with its real window, three rows in the list.
#pragma once

#include "app/AppRig.h"
#include "app/MainWindow.h"

#include <memory>
#include <QTest>
#include <stdexcept>

namespace tovik::test {

class MainWindowRig : public AppRig {
protected:
    std::unique_ptr<app::MainWindow> shown_ = std::make_unique<app::MainWindow>(host_.host());
    std::unique_ptr<app::frmPlayer> real_ = std::make_unique<app::frmPlayer>(
        host_.host(), sound_, *shown_, windows_, news_, app::StartOptions{});

    void SetUp() override {
        for (const char* name : {"a.mp3", "b.mp3", "c.mp3"}) {
            const std::string path = track(name);
            real_->stdSS().AddItem("", path, name, "01:05", 65);
        }
        shown_->attach(*real_);
        real_->Form_Initialize();
        real_->Form_Load();
        shown_->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown_->widget()));
    }

    void TearDown() override {
        // The window's widgets look at the player.
        shown_->detach();
        real_.reset();
    }

    template <typename Widget>
    [[nodiscard]] Widget& control(const char* name) {
        auto* const found = shown_->widget().findChild<Widget*>(QLatin1StringView(name));
        if (found == nullptr) {
            throw std::runtime_error(name);
        }
        return *found;
    }

    void switchTo(const char* mask) {
        real_->view().panels.Switch_Win(mask);
        settle();
    }

    void tick() {
        advance(100);
        settle();
    }

    static void settle() {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
};

} // namespace tovik::test
