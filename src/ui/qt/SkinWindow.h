// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the elements of one window and turns mouse and keys into calls on its logic. It knows no
// element by name: every window of the program is shown by this one widget. Interface thread.
#pragma once

#include "host/Dispatcher.h"
#include "ui/ElementStore.h"
#include "ui/PictureStore.h"
#include "ui/PointerRouter.h"
#include "ui/qt/SkinScale.h"
#include "ui/WindowInput.h"

#include <map>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>
#include <string_view>

namespace tovik::ui {

/// The rearmost element gives the window its size. Records that logic writes are shown when the
/// event loop comes round, and only the rectangles of those that really changed are painted.
class SkinWindow final : public QWidget {
public:
    /// All four must outlive the window.
    SkinWindow(ElementStore& elements, const PictureStore& pictures, WindowInput& input,
               const host::Dispatcher& dispatcher);
    ~SkinWindow() override;
    SkinWindow(const SkinWindow&) = delete;
    SkinWindow& operator=(const SkinWindow&) = delete;

    /// Lets a widget stand for an element: it becomes a child of the window and follows the
    /// record's place, visibility, state, tooltip, font height and colours (text and base).
    void hostControl(ElementAddress address, QWidget* widget);

    template <typename Name>
    void hostControl(Name name, std::size_t index, QWidget* widget) {
        hostControl(addressOf(name, index), widget);
    }

    /// The text of the title bar and the task bar, as bytes.
    void setCaption(std::string_view bytes);

    /// Widget pixels for one skin pixel.
    void setScale(double factor);

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
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void fitToGround();
    void placeControl(std::size_t slot);
    void drawElement(QPainter& painter, std::size_t slot) const;
    [[nodiscard]] QRect paintedPixels(const Box& box) const;
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
    std::map<std::size_t, QPointer<QWidget>> controls_; ///< by slot
};

} // namespace tovik::ui
