// SPDX-License-Identifier: GPL-3.0-or-later
#include "menus/MenuPainter.h"

#include "ui/Mnemonic.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tovik::menus {

namespace {

using ui::cMemDC;
using ui::Colour;
using ui::PixelBox;

// At a scale of 1.
constexpr int kImageSide = 16;
constexpr int kRoomAbove = 4; ///< a caption, and as much below it
constexpr int kSmallestItem = 22;
constexpr int kSeparatorHeight = 8;
constexpr int kGap = 7; ///< between column, caption and edge
constexpr int kAcceleratorGap = 22;
constexpr int kArrowColumn = 18;
constexpr int kArrowSide = 9;

constexpr unsigned kTopLevelText = 293;
constexpr unsigned kItemText = 292;
constexpr unsigned kSunken = cMemDC::kSunkenOuter;
constexpr unsigned kRaised = cMemDC::kRaisedInner;

constexpr std::int32_t kSystemShadow = -2147483632;
constexpr std::int32_t kWhite = 16777215;

constexpr Colour kPlainShadow{160, 160, 160}; ///< where the desktop tells none
constexpr Colour kPlainFace{240, 240, 240};

/// What a scale makes of sizes.
class Metrics {
public:
    explicit Metrics(double scale) : scale_(std::max(scale, 0.1)) {}

    [[nodiscard]] int operator()(int size) const {
        return std::max(1, static_cast<int>(std::lround(size * scale_)));
    }

    [[nodiscard]] ui::FontDescription font(ui::FontDescription of,
                                           const ui::TextEngine& engine) const {
        of.pixelHeight = (*this)(of.pixelHeight > 0 ? of.pixelHeight : engine.standardHeight());
        return of;
    }

private:
    double scale_;
};

Colour colourOf(const cMenus& menus, std::int32_t number, Colour unknown = {}) {
    return cMemDC::TranslateColor(number, [&](int system) -> std::optional<Colour> {
        const auto told = menus.SystemColour ? menus.SystemColour(system) : std::nullopt;
        return told ? told : unknown;
    });
}

Colour mixed(Colour one, Colour other, int percentOfOther) {
    const auto part = [&](std::uint8_t a, std::uint8_t b) {
        return static_cast<std::uint8_t>((a * (100 - percentOfOther) + b * percentOfOther) / 100);
    };
    return {part(one.red, other.red), part(one.green, other.green), part(one.blue, other.blue)};
}

/// A fixed key is not told where it is the accelerator of another item: that one wins.
std::string_view acceleratorOf(const cMenus& menus, const clsStoreMenu& item) {
    if (!item.accelerator.empty()) {
        return item.accelerator;
    }
    return menus.IndexForKeyAccel(item.fixedKey) == 0 ? item.fixedKey : std::string_view();
}

bool opensMenu(const cMenus& menus, int index) {
    const int id = menus.ItemID(index);
    for (int i = 1; i <= menus.ItemCount(); ++i) {
        if (menus.ItemParentID(i) == id) {
            return true;
        }
    }
    return false;
}

/// The widest accelerator of the menu that an item stands in.
int acceleratorColumn(const cMenus& menus, int index, const ui::TextEngine& engine,
                      const ui::FontDescription& font) {
    int widest = 0;
    for (int i = 1; i <= menus.ItemCount(); ++i) {
        const clsStoreMenu& item = menus.item(i);
        if (item.parentId == menus.ItemParentID(index) && item.visible &&
            !acceleratorOf(menus, item).empty()) {
            widest = std::max(widest, engine.measure(font, acceleratorOf(menus, item)).width);
        }
    }
    return widest;
}

/// Draws one item; boxes are told from left to right and turned round where menus run the other
/// way.
class ItemDrawing {
public:
    ItemDrawing(const cMenus& menus, const DrawItem& item)
        : menus_(menus), item_(item), surface_(*item.surface), px_(item.scale) {
        if (surface_.Engine != nullptr) {
            surface_.Font = px_.font(menus.Font, *surface_.Engine);
        }
        const Colour style = colourOf(menus, menus.DrawStyle, kPlainFace);
        const Colour column = colourOf(menus, menus.BackColor);
        surface_.Edges = {mixed(style, column, 30), mixed({0, 0, 0}, column, 45)};
    }

    void face() {
        const PixelBox box = item_.box;
        if (menus_.BackGroundPicture) {
            surface_.TileBlt(box, *menus_.BackGroundPicture, box.left, box.top - item_.menuTop);
        } else {
            gradient(box, colourOf(menus_, menus_.FaceColor),
                     colourOf(menus_, menus_.LowerFaceColor));
        }
        const Colour column = colourOf(menus_, menus_.BackColor);
        gradient(mirrored(columnBox()), mixed(column, {255, 255, 255}, 12), column);
    }

    void separator() {
        const int middle = (item_.box.top + item_.box.bottom) / 2;
        PixelBox line{item_.box.left + px_(kImageColumn) + px_(kGap), middle - px_(1),
                      item_.box.right - px_(2), middle};
        line = mirrored(line);
        fill(line, colourOf(menus_, kSystemShadow, kPlainShadow));
        fill({line.left, middle, line.right, middle + px_(1)}, colourOf(menus_, kWhite));
    }

    void item(int index) {
        const clsStoreMenu& of = menus_.item(index);
        const bool selected = item_.selected;
        if (selected && of.enabled) {
            fill(mirrored({item_.box.left + px_(kImageColumn), item_.box.top, item_.box.right,
                           item_.box.bottom}),
                 colourOf(menus_, menus_.HighlightColor));
        }
        imageColumn(of);
        surface_.ForeColor = colourOf(menus_, !of.enabled ? menus_.DisabledForeColor
                                              : selected  ? menus_.HighlightForeColor
                                                          : menus_.ForeColor);
        const int accelerators =
            surface_.Engine != nullptr
                ? acceleratorColumn(menus_, index, *surface_.Engine, surface_.Font)
                : 0;
        const int arrows = item_.box.right - px_(kArrowColumn);
        text(of.caption,
             {item_.box.left + px_(kImageColumn) + px_(kGap), item_.box.top, arrows,
              item_.box.bottom},
             0);
        text(acceleratorOf(menus_, of),
             {arrows - accelerators, item_.box.top, arrows, item_.box.bottom},
             cMemDC::kTextNoPrefix);
        if (opensMenu(menus_, index)) {
            arrow();
        }
    }

    void topLevel(int index) {
        fill(item_.box, colourOf(menus_, menus_.FaceColor));
        surface_.ForeColor = colourOf(menus_, menus_.ForeColor);
        surface_.DrawText(menus_.ItemCaption(index), item_.box, kTopLevelText);
    }

private:
    [[nodiscard]] PixelBox columnBox() const {
        return {item_.box.left, item_.box.top, item_.box.left + px_(kImageColumn),
                item_.box.bottom};
    }

    [[nodiscard]] PixelBox mirrored(const PixelBox& box) const {
        if (!menus_.RightToLeft) {
            return box;
        }
        const int sum = item_.box.left + item_.box.right;
        return {sum - box.right, box.top, sum - box.left, box.bottom};
    }

    void fill(const PixelBox& box, Colour colour) {
        surface_.FillRect(box.left, box.top, box.right, box.bottom, colour);
    }

    /// The part of a run of colours down the whole menu that lies in the box.
    void gradient(const PixelBox& box, Colour upper, Colour lower) {
        const int top = item_.box.top - item_.menuTop;
        surface_.SetClipRect(item_.box);
        surface_.FillGradient({box.left, top, box.right, top + std::max(item_.menuHeight, 1)},
                              upper, lower);
        surface_.SetClipRect(std::nullopt);
    }

    void text(std::string_view words, const PixelBox& box, unsigned flags) {
        flags |= kItemText;
        if (menus_.RightToLeft) {
            flags |= cMemDC::kTextRight | cMemDC::kTextRightToLeft;
        }
        surface_.DrawText(words, mirrored(box), flags);
    }

    /// An edge as thick as the scale asks.
    void edge(PixelBox box, unsigned kind) {
        for (int i = 0; i < px_(1); ++i) {
            surface_.DrawEdge(box, kind, cMemDC::kWholeEdge);
            box = {box.left + 1, box.top + 1, box.right - 1, box.bottom - 1};
        }
    }

    void imageColumn(const clsStoreMenu& of) {
        const PixelBox column = mirrored(columnBox());
        if (of.checked) {
            fill(column, mixed(colourOf(menus_, menus_.BackColor), {255, 255, 255}, 25));
            edge(column, kSunken);
        } else if (item_.selected && of.enabled) {
            edge(column, kRaised);
        }
        if (menus_.ImageList == nullptr) {
            return;
        }
        const Colour ink = colourOf(menus_, menus_.ImageColor);
        const int side = px_(kImageSide);
        const ui::PixelImage picture =
            of.image >= 0 ? menus_.ImageList->image(of.image, side, ink)
            : of.checked
                ? menus_.ImageList->mark(of.checkedStyle == CheckedStyle::Radio ? MenuMark::Radio
                                                                                : MenuMark::Check,
                                         side, ink)
                : ui::PixelImage{};
        const int left = column.left + (column.width() - picture.width) / 2;
        const int top = column.top + (column.height() - picture.height) / 2;
        if (of.enabled) {
            surface_.TransBlt(left, top, picture.width, picture.height, picture);
        } else {
            const cMemDC::EdgeColours before = surface_.Edges;
            const Colour back = colourOf(menus_, menus_.BackColor);
            surface_.Edges = {mixed(back, {0, 0, 0}, 50), mixed(back, ink, 45)};
            surface_.DisabledBlt(left, top, picture.width, picture.height, picture);
            surface_.Edges = before;
        }
    }

    void arrow() {
        if (menus_.ImageList == nullptr) {
            return;
        }
        const ui::PixelImage picture =
            menus_.ImageList->mark(menus_.RightToLeft ? MenuMark::ArrowLeftward : MenuMark::Arrow,
                                   px_(kArrowSide), surface_.ForeColor);
        const int right = item_.box.right - (px_(kArrowColumn) - picture.width) / 2;
        const PixelBox place = mirrored({right - picture.width, item_.box.top, right, 0});
        surface_.TransBlt(place.left, (item_.box.top + item_.box.bottom - picture.height) / 2,
                          picture.width, picture.height, picture);
    }

    const cMenus& menus_;
    const DrawItem& item_;
    cMemDC& surface_;
    Metrics px_;
};

} // namespace

void measureItem(const cMenus& menus, int index, MeasureItem& item) {
    const Metrics px(item.scale);
    const clsStoreMenu& of = menus.item(index);
    item.width = px(kImageColumn) + px(kGap) + px(kArrowColumn);
    item.height = px(of.separator ? kSeparatorHeight : kSmallestItem);
    if (of.separator || item.engine == nullptr) {
        return;
    }
    const ui::FontDescription font = px.font(menus.Font, *item.engine);
    const ui::PictureSize caption = item.engine->measure(font, ui::mnemonicOf(of.caption).text);
    const int accelerators = acceleratorColumn(menus, index, *item.engine, font);
    item.width += caption.width;
    item.width += accelerators > 0 ? px(kAcceleratorGap) + accelerators : 0;
    item.height = std::max(item.height, caption.height + 2 * px(kRoomAbove));
}

void drawFace(const cMenus& menus, const DrawItem& item) {
    ItemDrawing(menus, item).face();
}

void drawItem(const cMenus& menus, int index, const DrawItem& item) {
    ItemDrawing drawing(menus, item);
    if (menus.ItemTopMenu(index)) {
        drawing.topLevel(index);
        return;
    }
    drawing.face();
    if (menus.ItemSeparator(index)) {
        drawing.separator();
    } else {
        drawing.item(index);
    }
}

} // namespace tovik::menus
