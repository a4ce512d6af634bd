// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/qt/SkinWindow.h"

#include "ui/qt/DisplayText.h"
#include "ui/qt/KeyCodes.h"
#include "ui/qt/PlainFace.h"

#include <algorithm>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QTextDocument>
#include <QToolTip>

namespace tovik::ui {

namespace {

constexpr double kWheelNotch = 120; ///< what the window system reports for one notch

/// Asks the window to look at the records that were written.
QEvent::Type changesEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

/// A picture larger than its place shows the upper left part of it.
void drawPicture(QPainter& painter, const PixelImage& image, const Box& box) {
    if (image.pixels.empty()) {
        return;
    }
    const QImage shown(reinterpret_cast<const uchar*>(image.pixels.data()), image.width,
                       image.height, QImage::Format_ARGB32_Premultiplied);
    const QSizeF size(std::min<double>(image.width, box.width),
                      std::min<double>(image.height, box.height));
    painter.drawImage(QRectF({box.left, box.top}, size), shown, QRectF({0, 0}, size));
}

} // namespace

SkinWindow::SkinWindow(ElementStore& elements, const PictureStore& pictures, WindowInput& input,
                       const host::Dispatcher& dispatcher)
    : elements_(elements), pictures_(pictures), input_(input), dispatcher_(dispatcher),
      router_(elements, input) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    fitToGround();
    elements_.forgetChanges();
    elements_.onTouched([this] { QCoreApplication::postEvent(this, new QEvent(changesEvent())); });
}

SkinWindow::~SkinWindow() {
    elements_.onTouched(nullptr);
}

void SkinWindow::hostControl(ElementAddress address, QWidget* widget) {
    const std::size_t slot = elements_.slotOf(address);
    widget->setParent(this);
    widget->installEventFilter(this);
    controls_[slot] = widget;
    placeControl(slot);
}

void SkinWindow::setCaption(std::string_view bytes) {
    // Qt takes "[*]" for the place of its mark of changed documents, unless it stands twice.
    setWindowTitle(displayString(bytes).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]")));
}

void SkinWindow::setScale(double factor) {
    scale_ = SkinScale(factor);
    fitToGround();
    for (const auto& control : controls_) {
        placeControl(control.first);
    }
    update();
}

void SkinWindow::applyChanges() {
    for (const ElementStore::Change& change : elements_.takeChanges()) {
        for (const std::optional<Box>& box : {change.before, change.after}) {
            if (box) {
                update(paintedPixels(*box));
            }
        }
        placeControl(change.slot);
        if (change.slot == 0) {
            fitToGround();
        }
    }
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
        const auto found =
            std::find_if(controls_.begin(), controls_.end(),
                         [watched](const auto& control) { return control.second == watched; });
        if (found != controls_.end()) {
            route([&] { router_.hover(found->first); });
        }
    }
    return QWidget::eventFilter(watched, event);
}

void SkinWindow::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.fillRect(event->rect(), Qt::black);
    painter.scale(scale_.factor(), scale_.factor());
    for (std::size_t slot = 0; slot < elements_.size(); ++slot) {
        const Element& element = elements_.at(slot);
        if (element.visible && event->region().intersects(paintedPixels(element.box()))) {
            drawElement(painter, slot);
        }
    }
}

void SkinWindow::drawElement(QPainter& painter, std::size_t slot) const {
    const Element& element = elements_.at(slot);
    const PixelImage* const image = pictures_.find(element.picture);
    if (image == nullptr) {
        drawPlain(painter, element, {.ground = slot == 0, .hovered = router_.hovered() == slot});
    } else {
        drawPicture(painter, *image, element.box());
    }
    if (element.kind != ElementKind::Slider) {
        return;
    }
    const PixelImage* const bar = pictures_.find(element.bar.picture);
    const Box box{element.left, element.top + element.bar.top, element.width, element.bar.height};
    if (bar == nullptr) {
        drawPlainSliderBar(painter, element, box);
    } else {
        drawPicture(painter, *bar, box);
    }
}

void SkinWindow::mousePressEvent(QMouseEvent* event) {
    route([&] { router_.pressed(pointerAt(*event), mouseButtonOf(event->button()), false); });
}

void SkinWindow::mouseDoubleClickEvent(QMouseEvent* event) {
    route([&] { router_.pressed(pointerAt(*event), mouseButtonOf(event->button()), true); });
}

void SkinWindow::mouseMoveEvent(QMouseEvent* event) {
    route([&] { router_.moved(pointerAt(*event)); });
}

void SkinWindow::mouseReleaseEvent(QMouseEvent* event) {
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

void SkinWindow::keyPressEvent(QKeyEvent* event) {
    bool used = false;
    dispatcher_.run([&] { used = input_.keyDown(keyEventOf(*event)); });
    event->setAccepted(used);
}

void SkinWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    dispatcher_.run([&] { input_.closeRequested(); });
}

bool SkinWindow::focusNextPrevChild(bool /*next*/) {
    return false;
}

void SkinWindow::fitToGround() {
    if (elements_.size() > 0) {
        const QRect ground = scale_.pixels(elements_.at(0).box());
        setFixedSize(ground.right() + 1, ground.bottom() + 1);
    }
}

void SkinWindow::placeControl(std::size_t slot) {
    const auto found = controls_.find(slot);
    if (found == controls_.end() || found->second.isNull()) {
        return;
    }
    QWidget& widget = *found->second;
    const Element& element = elements_.at(slot);
    widget.setGeometry(scale_.pixels(element.box()));
    widget.setEnabled(element.enabled);
    widget.setToolTip(displayString(element.tooltip));
    QFont font = widget.font();
    font.setPixelSize(std::max(1, qRound(element.textHeight * scale_.factor())));
    widget.setFont(font);
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Text, qtColour(element.textColour));
    if (element.backColour) {
        palette.setColor(QPalette::Base, qtColour(*element.backColour));
    }
    widget.setPalette(palette);
    widget.setVisible(element.visible);
}

QRect SkinWindow::paintedPixels(const Box& box) const {
    return scale_.pixels({box.left - kPlainOverflow, box.top - kPlainOverflow,
                          box.width + 2 * kPlainOverflow, box.height + 2 * kPlainOverflow});
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
            update(paintedPixels(elements_.at(*slot).box()));
        }
    }
}

} // namespace tovik::ui
