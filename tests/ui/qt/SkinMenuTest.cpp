// SPDX-License-Identifier: GPL-3.0-or-later
// Menus on the screen: what they show, how they are used and painted.
#include "ui/qt/SkinMenu.h"

#include "ui/cMemDC.h"

#include "ui/qt/SkinMenuStyle.h"
#include "ui/qt/SystemColour.h"

#include <gmock/gmock.h>

#include <algorithm>

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <utility>

namespace tovik::ui {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr QRgb kHighlight = 0xFF8080C0;
constexpr QRgb kNavy = 0xFF000080;

struct ShownMenu : testing::Test {
    ShownMenu() {
        const std::vector<menus::FormMenu> form = {
            {0, "top", "Top"},   {1, "open", "&Open"},  {1, "line", "", true}, {1, "gone", "Gone"},
            {1, "deep", "Deep"}, {2, "inner", "Inner"}, {1, "save", "Save"},
        };
        model.CreateFromForm(window, form);
        model.ImageList = &images;
        model.SystemColour = systemColour;
        model.ItemVisible(at("gone"), false);
        model.onClick([this](int index) { chosen.push_back(model.ItemKey(index)); });
        model.ItemKeyAccel(at("save"), "Ctrl+S");
        model.BuildOn(facility);
    }

    ~ShownMenu() override { model.destroyMenus(); }

    ShownMenu(const ShownMenu&) = delete;
    ShownMenu& operator=(const ShownMenu&) = delete;

    [[nodiscard]] int at(std::string_view key) const { return model.IndexForKey(key); }

    [[nodiscard]] SkinMenu& menuOf(std::string_view key) {
        return *facility.menu(model.handle(at(key)));
    }

    SkinMenu& popUp() {
        model.PopUpMenu(at("top"), menus::MenuPlace{20, 30, 100, 10});
        return menuOf("top");
    }

    static std::vector<std::string> captions(const QMenu& menu) {
        std::vector<std::string> all;
        for (const QAction* const action : menu.actions()) {
            all.push_back(action->isSeparator() ? "-" : action->text().toStdString());
        }
        return all;
    }

    QAction* action(SkinMenu& menu, std::string_view key) {
        for (QAction* const one : menu.actions()) {
            if (one->data().toInt() == model.ItemID(at(key))) {
                return one;
            }
        }
        return nullptr;
    }

    void settle() { QCoreApplication::processEvents(); }

    host::Dispatcher dispatcher;
    std::vector<std::uint32_t> asked;
    MessageWindow window{[this](const WindowMessage& message) {
        asked.push_back(message.number);
        return MessageResult{0};
    }};
    MenuPictures images;
    std::vector<std::string> chosen;
    menus::cMenus model;
    SkinMenus facility{{.model = model,
                        .window = window,
                        .dispatcher = dispatcher,
                        .onScreen =
                            [](const menus::MenuPlace& place) {
                                return QRect(
                                    static_cast<int>(place.left), static_cast<int>(place.top),
                                    static_cast<int>(place.width), static_cast<int>(place.height));
                            },
                        .outside = [this] { return std::exchange(outside, std::nullopt); }}};
    std::optional<OutsidePlace> outside;
};

TEST_F(ShownMenu, appearsBelowItsPlaceWithWhatIsVisible) {
    model.ItemEnabled(at("save"), false);
    model.ItemChecked(at("open"), true);
    SkinMenu& menu = popUp();
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.pos(), QPoint(20, 40));
    EXPECT_THAT(captions(menu), ElementsAre("&Open", "-", "Deep", "Save"));
    EXPECT_TRUE(action(menu, "open")->isChecked());
    EXPECT_FALSE(action(menu, "save")->isEnabled());
    EXPECT_EQ(action(menu, "deep")->menu(), &menuOf("deep"));
    EXPECT_THAT(asked, Contains(messages::kInitMenuPopup));
}

TEST_F(ShownMenu, comesWhereTheDesktopWantsIt) {
    outside = OutsidePlace{.place = QPoint(60, 70)};
    model.PopUpMenu(at("top"), {});
    EXPECT_EQ(menuOf("top").pos(), QPoint(60, 70));
    menuOf("top").close();
    model.PopUpMenu(at("top"), {});
    EXPECT_EQ(menuOf("top").pos(), QCursor::pos()) << "the place was for one menu";
}

TEST_F(ShownMenu, asAWindowItEndsWithTheKeyboard) {
    SkinMenu& menu = menuOf("top");
    menu.showAsWindow();
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(menu.windowType(), Qt::Tool);
    EXPECT_THAT(captions(menu), ElementsAre("&Open", "-", "Deep", "Save"));
    // What is chosen in it and what opens from it is as ever.
    menuOf("deep").popUpAt({});
    QEvent deactivated(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&menu, &deactivated);
    EXPECT_TRUE(menu.isVisible()) << "its own menu has the keyboard";
    menuOf("deep").close();
    QCoreApplication::sendEvent(&menu, &deactivated);
    EXPECT_FALSE(menu.isVisible());
    menu.showAsWindow();
    QTest::keyClick(&menu, Qt::Key_O);
    settle();
    EXPECT_THAT(chosen, ElementsAre("open"));
    EXPECT_FALSE(menu.isVisible());
    // The next time it may be a popup again, which does not end with the keyboard.
    EXPECT_EQ(popUp().windowType(), Qt::Popup);
    QCoreApplication::sendEvent(&menu, &deactivated);
    EXPECT_TRUE(menu.isVisible());
}

TEST_F(ShownMenu, growsWhileItIsOpen) {
    facility.itemsChanged(model.handle(at("top"))); // not open yet
    SkinMenu& menu = popUp();
    const int before = menu.height();
    model.AddItem("New", "new", at("top"));
    model.BuildOn(facility);
    facility.itemsChanged(model.handle(at("top")));
    EXPECT_THAT(captions(menu), ElementsAre("&Open", "-", "Deep", "Save", "New"));
    EXPECT_GT(menu.height(), before);
    action(menu, "new")->trigger();
    settle();
    EXPECT_THAT(chosen, ElementsAre("new"));
    facility.itemsChanged(0);
}

TEST_F(ShownMenu, isFilledAnewEachTime) {
    popUp().close();
    model.ItemVisible(at("gone"), true);
    model.ItemCaption(at("open"), "Load");
    EXPECT_THAT(captions(popUp()), ElementsAre("Load", "-", "Gone", "Deep", "Save"));
}

TEST_F(ShownMenu, enterChoosesWhatTheKeysSelected) {
    SkinMenu& menu = popUp();
    QTest::keyClick(&menu, Qt::Key_Down);
    EXPECT_EQ(model.CurrentMenuIndex(), at("open"));
    QTest::keyClick(&menu, Qt::Key_Up);
    EXPECT_EQ(model.CurrentMenuIndex(), at("save"));
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_THAT(chosen, IsEmpty()) << "only when the menu is done";
    settle();
    EXPECT_THAT(chosen, ElementsAre("save"));
}

TEST_F(ShownMenu, mnemonicsAndFirstLettersChoose) {
    SkinMenu& menu = popUp();
    QTest::keyClick(&menu, Qt::Key_O);
    settle();
    EXPECT_THAT(chosen, ElementsAre("open"));
    QTest::keyClick(&popUp(), Qt::Key_S);
    EXPECT_EQ(model.CurrentMenuIndex(), at("save"));
}

TEST_F(ShownMenu, escapeChoosesNothing) {
    SkinMenu& menu = popUp();
    QTest::keyClick(&menu, Qt::Key_Down);
    QTest::keyClick(&menu, Qt::Key_Escape);
    settle();
    EXPECT_FALSE(menu.isVisible());
    EXPECT_THAT(chosen, IsEmpty());
    EXPECT_EQ(model.CurrentMenuIndex(), 0);
}

TEST_F(ShownMenu, rightOpensTheMenuBelowAndTheMouseChooses) {
    SkinMenu& menu = popUp();
    menu.setActiveAction(action(menu, "deep"));
    QTest::keyClick(&menu, Qt::Key_Right);
    SkinMenu& inner = menuOf("deep");
    EXPECT_TRUE(inner.isVisible());
    QTest::mouseClick(&inner, Qt::LeftButton, {},
                      inner.actionGeometry(action(inner, "inner")).center());
    settle();
    EXPECT_THAT(chosen, ElementsAre("inner")) << "once";
}

TEST_F(ShownMenu, isPaintedByTheModel) {
    SkinMenu& menu = popUp();
    menu.setActiveAction(action(menu, "open"));
    const QImage image = menu.grab().toImage();
    const QRect open = menu.actionGeometry(action(menu, "open"));
    const QRect save = menu.actionGeometry(action(menu, "save"));
    EXPECT_EQ(image.pixel(open.right() - 2, open.top() + 2), kHighlight);
    EXPECT_NE(image.pixel(save.right() - 2, save.top() + 2), kHighlight);
    EXPECT_EQ(image.pixel(0, 0), kNavy) << "the border";
    EXPECT_GE(open.height(), 22);
    EXPECT_EQ(menu.actionGeometry(menu.actions().at(1)).height(), 8);
    const QRgb column = image.pixel(save.left() + 3, save.bottom());
    EXPECT_EQ(qRed(column), qGreen(column));
    EXPECT_GT(qBlue(column), 120);
}

TEST_F(ShownMenu, runsFromRightToLeftWhenTheModelDoes) {
    model.RightToLeft = true;
    SkinMenu& menu = popUp();
    EXPECT_EQ(menu.layoutDirection(), Qt::RightToLeft);
    const QRect save = menu.actionGeometry(action(menu, "save"));
    EXPECT_GT(qBlue(menu.grab().toImage().pixel(save.right() - 3, save.bottom())), 120);
    menu.setActiveAction(action(menu, "deep"));
    QTest::keyClick(&menu, Qt::Key_Left);
    EXPECT_TRUE(menuOf("deep").isVisible());
}

TEST_F(ShownMenu, itemsThatTheModelDoesNotDrawLookAsOnTheDesktop) {
    model.ItemOwnerDrawAll = false;
    SkinMenu& menu = popUp();
    menu.setActiveAction(action(menu, "open"));
    const QRect open = menu.actionGeometry(action(menu, "open"));
    EXPECT_GT(open.height(), 8);
    EXPECT_NE(menu.grab().toImage().pixel(open.right() - 2, open.top() + 2), kHighlight);
}

TEST_F(ShownMenu, tellsScreenReadersItsItems) {
    model.ItemChecked(at("open"), true);
    SkinMenu& menu = popUp();
    QAccessibleInterface* const access = QAccessible::queryAccessibleInterface(&menu);
    ASSERT_NE(access, nullptr);
    EXPECT_EQ(access->role(), QAccessible::PopupMenu);
    EXPECT_EQ(access->text(QAccessible::Name), "Top");
    ASSERT_EQ(access->childCount(), 4);
    EXPECT_EQ(access->child(0)->text(QAccessible::Name), "Open");
    EXPECT_TRUE(access->child(0)->state().checked);
    EXPECT_FALSE(access->child(2)->state().checkable);
    EXPECT_EQ(access->child(1)->role(), QAccessible::Separator);
    EXPECT_EQ(access->child(2)->childCount(), 1) << "the menu that it opens";
}

TEST_F(ShownMenu, tellsScreenReadersThatAnItemCouldBeChecked) {
    model.ItemCheckable(at("save"), true);
    SkinMenu& menu = popUp();
    QAccessibleInterface* const save = QAccessible::queryAccessibleInterface(&menu)->child(3);
    EXPECT_TRUE(save->state().checkable);
    EXPECT_FALSE(save->state().checked);
}

TEST_F(ShownMenu, aHundredOpeningsLeaveNothingBehind) {
    popUp().close();
    settle();
    const qsizetype before = menuOf("top").findChildren<QObject*>().size();
    for (int i = 0; i < 100; ++i) {
        popUp().close();
        settle();
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(menuOf("top").findChildren<QObject*>().size(), before);
}

TEST(MenuPicturesOf, everyImageAndMarkIsDrawnInAnySize) {
    const MenuPictures pictures;
    for (const char* const key :
         {"help", "main", "play", "eq", "Playlist", "Rip", "radio", "Pre", "options", "delete",
          "ViewOpen", "Folder", "location", "playback", "cdaudio"}) {
        const int index = pictures.indexOf(key);
        ASSERT_GE(index, 0) << key;
        for (const int side : {16, 20, 48}) {
            const PixelImage image = pictures.image(index, side, {10, 200, 30});
            ASSERT_EQ(image.pixels.size(), static_cast<std::size_t>(side * side));
            const auto drawn = std::ranges::count_if(
                image.pixels, [](std::uint32_t pixel) { return !isTransparent(pixel); });
            EXPECT_GT(drawn, side * side / 12) << key;
            EXPECT_LT(drawn, side * side) << key;
        }
    }
    EXPECT_EQ(pictures.indexOf("none"), -1);
    EXPECT_TRUE(pictures.image(-1, 16, {}).pixels.empty());
    EXPECT_TRUE(pictures.image(99, 16, {}).pixels.empty());
    for (const auto mark : {menus::MenuMark::Check, menus::MenuMark::Radio, menus::MenuMark::Arrow,
                            menus::MenuMark::ArrowLeftward}) {
        EXPECT_THAT(pictures.mark(mark, 16, {1, 2, 3}).pixels, Contains(0xFF010203U));
    }
}

TEST(MenuText, isMeasuredAndDrawnAsTheDesktopDoes) {
    const QtText text;
    EXPECT_GT(text.standardHeight(), 0);
    const FontDescription font{.family = {}, .pixelHeight = 20};
    const PictureSize size = text.measure(font, "Menu");
    EXPECT_GT(size.width, 20);
    EXPECT_GE(size.height, 20);
    cMemDC surface;
    surface.Init(size.width + 20, size.height);
    surface.Engine = &text;
    surface.Font = font;
    surface.ForeColor = {1, 2, 3};
    surface.DrawText("&Menu", {10, 0, size.width + 10, size.height}, 292);
    EXPECT_THAT(surface.Image().pixels, Contains(0xFF010203U));
    for (int y = 0; y < size.height; ++y) {
        EXPECT_TRUE(isTransparent(surface.Image().pixels[pixelPlace(surface.Image(), 2, y)]));
    }
}

} // namespace
} // namespace tovik::ui
