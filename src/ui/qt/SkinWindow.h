// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the elements of one window and turns mouse and keys into calls on its logic. It knows no
// element by name: every window of the program is shown by this one widget. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "ui/cDIBSectionRegion.h"
#include "ui/ElementStore.h"
#include "ui/PictureStore.h"
#include "ui/PointerRouter.h"
#include "ui/qt/ElementFocus.h"
#include "ui/qt/FrontLayer.h"
#include "ui/qt/HostedControls.h"
#include "ui/qt/QuietTitle.h"
#include "ui/qt/SkinScale.h"
#include "ui/qt/WindowImage.h"
#include "ui/WindowInput.h"

#include <memory>
#include <optional>
#include <QMouseEvent>
#include <QWidget>
#include <string_view>
#include <vector>

namespace tovik::ui {

/// A borderless window: the rearmost element gives it its size, a region its outline. Records that
/// logic writes are shown when the event loop comes round, and only the rectangles of those that
/// really changed are painted. At a screen scale that is no whole number the window is composed at
/// the next whole one and made smaller in one go.
class SkinWindow final : public QWidget, public RegionWindow {
public:
    /// All four must outlive the window.
    SkinWindow(ElementStore& elements, const PictureStore& pictures, WindowInput& input,
               const host::Dispatcher& dispatcher);
    ~SkinWindow() override;
    SkinWindow(const SkinWindow&) = delete;
    SkinWindow& operator=(const SkinWindow&) = delete;

    /// Lets a widget stand for an element: it becomes a child of the window and follows the
    /// record, see `HostedControls`.
    void hostControl(ElementAddress address, QWidget* widget);

    template <typename Name>
    void hostControl(Name name, std::size_t index, QWidget* widget) {
        hostControl(addressOf(name, index), widget);
    }

    /// The text of the title bar and the task bar, as bytes.
    void setCaption(std::string_view bytes);

    /// Makes elements known to the keyboard; the one that has it is ringed in that colour. Without
    /// this call none ever has it. Once, when all controls are hosted; the input outlives the
    /// window.
    void setAccess(std::vector<AccessPlace> places, AccessInput& input, Colour ring);

    /// Null before `setAccess`.
    [[nodiscard]] ElementFocus* elementFocus() const { return focus_.get(); }

    /// Where a box in skin pixels is on the screen.
    [[nodiscard]] QRect onScreen(const Box& box) const;

    /// Widget pixels for one skin pixel. What the screen's density adds comes on top.
    void setScale(double factor);

    /// How many pixels along a side the window is composed with for one skin pixel; the screen that
    /// it is on decides.
    [[nodiscard]] int density() const;

    /// The window's outline in skin pixels; it takes no mouse outside. The window keeps a copy.
    void setRegion(const Region* region) override;

    /// Lets the window follow the pointer until the button that is held goes up; for the handler
    /// of a mouse move. The window system does it where it can. Further calls in the same press do
    /// nothing.
    void beginDrag();

    /// Shows what logic wrote without waiting for the event loop to come round; painting itself
    /// still waits for it.
    void applyChanges();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    /// What the outline was made for that the window system has.
    struct Shaped {
        WId window = 0;
        double scale = 0; ///< pixels of the device for one of the skin
        bool blended = true;
    };

    void fitToGround();
    void redraw(const Box& box);
    void showRing();
    /// Tells screen readers, if there are any, what changed.
    void announce(bool focusMoved);
    void followFocus(const QObject* control, QEvent::Type change);
    void press(QMouseEvent& event, bool twice);
    void applyRegion();
    /// Cuts the window along its picture, where that can be done finer than along the skin.
    void followScreen(bool allIsPainted);
    /// X11 leaves a window its size in pixels when it comes to a screen of another density.
    void keepSize();
    [[nodiscard]] bool outside(const PointerState& pointer) const;
    [[nodiscard]] PointerState pointerAt(const QSinglePointEvent& event) const;
    void showToolTip(QPoint place, QPoint onScreen);
    /// Runs a call on the logic and shows the hover of plain buttons afterwards.
    void route(const std::function<void()>& call);

    ElementStore& elements_;
    const PictureStore& pictures_;
    WindowInput& input_;
    const host::Dispatcher& dispatcher_;
    PointerRouter router_;
    SkinScale scale_;
    WindowImage image_;
    std::optional<Region> region_;
    double sizedFor_ = 0; ///< at which density of the screen the window was last made to fit
    std::optional<Shaped> shaped_; ///< none where windows are cut by Qt's mask alone
    QPoint untold_; ///< how far the window was from where Qt takes it to be, at the last press
    bool dragging_ = false;           ///< a drag was begun since the press
    const QWindow* titled_ = nullptr; ///< which got its title through the widget
    QuietTitle quietTitle_;
    QPoint pressedAt_;                ///< where the pointer last went down, seen from the window
    std::optional<QPoint> draggedBy_; ///< likewise, while the window moves itself
    HostedControls controls_;
    FrontLayer* front_;                   ///< a child, which the object tree owns
    std::unique_ptr<ElementFocus> focus_; ///< none until `setAccess`
    std::optional<Box> ring_;             ///< as it was last drawn
    Colour ringColour_;
};

} // namespace tovik::ui
