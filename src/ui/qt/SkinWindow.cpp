// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SkinWindow.h"

#include "ui/qt/DisplayText.h"
#include "ui/qt/KeyCodes.h"
#include "ui/qt/WindowAccess.h"

#include <cmath>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QTextDocument>
#include <QToolTip>
#include <QWindow>

namespace tovik::ui {

namespace {

constexpr double kWheelNotch = 120;   ///< what the window system reports for one notch
constexpr double kPlaceTolerance = 3; ///< pixels; a fractional scale rounds

/// Asks the window to look at the records that were written.
QEvent::Type changesEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

} // namespace

SkinWindow::SkinWindow(ElementStore& elements, const PictureStore& pictures, WindowInput& input,
                       const host::Dispatcher& dispatcher)
    : elements_(elements), pictures_(pictures), input_(input), dispatcher_(dispatcher),
      router_(elements, input), image_(elements, pictures), controls_(*this, elements),
      front_(new FrontLayer(*this, elements, image_)) {
    setWindowFlag(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    WindowAccess::install();
    fitToGround();
    elements_.forgetChanges();
    elements_.onTouched([this] { QCoreApplication::postEvent(this, new QEvent(changesEvent())); });
}

SkinWindow::~SkinWindow() {
    elements_.onTouched(nullptr);
}

void SkinWindow::hostControl(ElementAddress address, QWidget* widget) {
    controls_.host(elements_.slotOf(address), widget, scale_);
    front_->refresh(scale_);
}

void SkinWindow::setCaption(std::string_view bytes) {
    // Qt takes "[*]" for the place of its mark of changed documents, unless it stands twice.
    QString title = displayString(bytes);
    if (windowHandle() != nullptr && titled_ == windowHandle()) {
        // Past the widget, which would tell screen readers each time that its name is another.
        if (!quietTitle_.set(*windowHandle(), title)) {
            windowHandle()->setTitle(title);
        }
        return;
    }
    setWindowTitle(title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
    titled_ = windowHandle();
}

void SkinWindow::setScale(double factor) {
    scale_ = SkinScale(factor);
    fitToGround();
    applyRegion();
    controls_.placeAll(scale_);
    front_->refresh(scale_);
    update();
}

void SkinWindow::applyChanges() {
    bool inFront = false;
    for (const ElementStore::Change& change : elements_.takeChanges()) {
        const Element& element = elements_.at(change.slot);
        inFront |= !element.takesMouse || element.kind == ElementKind::Control;
        for (const std::optional<Box>& box : {change.before, change.after}) {
            if (box) {
                redraw(*box);
                controls_.makeWay(*box, scale_);
            }
        }
        controls_.place(change.slot, scale_);
        if (change.slot == 0) {
            fitToGround();
        }
    }
    if (inFront) {
        front_->refresh(scale_);
    }
    showRing();
    announce(false);
}

bool SkinWindow::event(QEvent* event) {
    if (event->type() == changesEvent()) {
        applyChanges();
        return true;
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        showToolTip(help->pos(), help->globalPos());
        return true;
    }
    return QWidget::event(event);
}

bool SkinWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter) {
        if (const auto slot = controls_.slotOf(watched)) {
            route([&] { router_.hover(slot); });
        }
    }
    followFocus(watched, event->type());
    return QWidget::eventFilter(watched, event);
}

bool SkinWindow::outside(const PointerState& pointer) const {
    return region_ && !region_->contains(static_cast<std::int32_t>(std::floor(pointer.x)),
                                         static_cast<std::int32_t>(std::floor(pointer.y)));
}

void SkinWindow::beginDrag() {
    // Asked again, window managers take the button for held when it is up: the window would stay
    // with the pointer.
    if (dragging_) {
        return;
    }
    dragging_ = true;
    if (!untold_.isNull() || windowHandle() == nullptr || !windowHandle()->startSystemMove()) {
        draggedBy_ = pressedAt_;
    }
}

void SkinWindow::mousePressEvent(QMouseEvent* event) {
    press(*event, false);
}

void SkinWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    press(*event, true);
}

void SkinWindow::press(QMouseEvent& event, bool twice) {
    const PointerState pointer = pointerAt(event);
    // Not every window system keeps the mouse away from what is cut out.
    if (outside(pointer)) {
        event.ignore();
        return;
    }
    if (event.buttons() == event.button()) {
        dragging_ = false;
    }
    pressedAt_ = event.position().toPoint();
    // A window manager may move the window before it tells: a system move would then begin at the
    // wrong place, and the window would jump.
    const QPointF origin = event.globalPosition() - event.position() - mapToGlobal(QPointF());
    untold_ = origin.manhattanLength() < kPlaceTolerance ? QPoint() : origin.toPoint();
    if (const auto slot = elements_.topmostAt(pointer.x, pointer.y); slot && focus_) {
        focus_->pressed(*slot);
    }
    route([&] { router_.pressed(pointer, mouseButtonOf(event.button()), twice); });
}

void SkinWindow::mouseMoveEvent(QMouseEvent* event) {
    const PointerState pointer = pointerAt(*event);
    if (draggedBy_ && pointer.anyHeld) {
        move(event->globalPosition().toPoint() - *draggedBy_);
        return;
    }
    draggedBy_.reset();
    if (outside(pointer) && !pointer.anyHeld) {
        route([&] { router_.hover(std::nullopt); });
        return;
    }
    route([&] { router_.moved(pointer); });
}

void SkinWindow::mouseReleaseEvent(QMouseEvent* event) {
    draggedBy_.reset();
    route([&] { router_.released(pointerAt(*event), mouseButtonOf(event->button())); });
}

void SkinWindow::leaveEvent(QEvent* /*event*/) {
    route([&] { router_.hover(std::nullopt); });
}

void SkinWindow::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / kWheelNotch;
    route([&] { router_.turned(pointerAt(*event), notches); });
    event->accept();
}

void SkinWindow::moveEvent(QMoveEvent* /*event*/) {
    untold_ = {};
    keepSize();
    dispatcher_.run([&] { input_.windowMoved(); });
}

void SkinWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    dispatcher_.run([&] { input_.closeRequested(); });
}

void SkinWindow::fitToGround() {
    if (elements_.size() > 0) {
        const QRect ground = scale_.pixels(elements_.at(0).box());
        setFixedSize(ground.right() + 1, ground.bottom() + 1);
    }
}

PointerState SkinWindow::pointerAt(const QSinglePointEvent& event) const {
    const QPointF place = scale_.toSkin(event.position());
    return {.x = place.x(),
            .y = place.y(),
            .leftHeld = event.buttons().testFlag(Qt::LeftButton),
            .rightHeld = event.buttons().testFlag(Qt::RightButton),
            .anyHeld = event.buttons() != Qt::NoButton,
            .modifiers = modifiersOf(event.modifiers())};
}

void SkinWindow::showToolTip(QPoint place, QPoint onScreen) {
    const QPointF skin = scale_.toSkin(place);
    const auto slot = elements_.topmostAt(skin.x(), skin.y());
    const QString text = slot ? displayString(elements_.at(*slot).tooltip) : QString();
    // The words are plain text, whatever characters they hold.
    QToolTip::showText(onScreen, Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text, this,
                       slot ? scale_.pixels(elements_.at(*slot).box()) : QRect());
}

void SkinWindow::route(const std::function<void()>& call) {
    const std::optional<std::size_t> before = router_.hovered();
    dispatcher_.run(call);
    const std::optional<std::size_t> after = router_.hovered();
    if (before == after) {
        return;
    }
    for (const std::optional<std::size_t>& slot : {before, after}) {
        if (slot && elements_.at(*slot).kind == ElementKind::Button &&
            !elements_.at(*slot).picture) {
            redraw(elements_.at(*slot).box());
        }
    }
}

} // namespace tovik::ui
