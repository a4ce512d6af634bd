// SPDX-License-Identifier: GPL-3.0-or-later
// The whole screen is the one of the window in use. Runs where there are two: tovik_two_screens.
#include "app/MainWindowRig.h"

#include <QApplication>
#include <QScreen>

namespace tovik::test {
namespace {

class TwoScreens : public MainWindowRig {
protected:
    void SetUp() override {
        if (QGuiApplication::screens().size() < 2) {
            GTEST_SKIP() << "there is one screen";
        }
        MainWindowRig::SetUp();
        EXPECT_TRUE(real_->commands().run(commands::CommandId::visualisationSpectrum));
    }

    void TearDown() override {
        if (real_ && shown_ && QGuiApplication::screens().size() > 1) {
            MainWindowRig::TearDown();
        }
    }

    /// Where the picture is that covers a screen.
    static QRect covered() {
        settle();
        for (const QWidget* const widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && widget->windowRole() == QStringLiteral("visualisation")) {
                return widget->geometry();
            }
        }
        return {};
    }

    static QRect screen(qsizetype number) {
        return QGuiApplication::screens().at(number)->geometry();
    }

    void turnWholeScreen() {
        real_->visuals().doubleClickVisual();
        settle();
    }
};

TEST_F(TwoScreens, theWholeScreenIsThatOfTheWindowInUse) {
    shown_->moveTo(10, 10);
    settle();
    turnWholeScreen();
    EXPECT_EQ(covered(), screen(0));
    turnWholeScreen();
    EXPECT_TRUE(covered().isNull());
    EXPECT_TRUE(real_->commands().run(commands::CommandId::miniMode));
    shown_->mini().moveTo(screen(1).x() + 20, 20);
    settle();
    turnWholeScreen();
    EXPECT_EQ(covered(), screen(1));
    turnWholeScreen();
    EXPECT_TRUE(real_->commands().run(commands::CommandId::miniMode));
    turnWholeScreen();
    EXPECT_EQ(covered(), screen(0));
    turnWholeScreen();
}

} // namespace
} // namespace tovik::test
