#include "app/ui/Sheet.h"

#include "app/ui/ButtonLook.h"
#include "app/ui/ColorMath.h"
#include "app/ui/Compositing.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Scrim.h"
#include "app/ui/Theme.h"

#include <QtCore/QEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QShortcut>
#include <QtGui/QWindow>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace reelhouse {

namespace {

constexpr int usualPadding = 20;
constexpr int buttonGap = 8;
constexpr int rowGap = 20;
constexpr int shadowMargin = 28;
constexpr int shadowDrop = 6;
constexpr qreal roundedCorner = 14;
constexpr qreal shadowStrength = 0.30;
constexpr int windowMargin = 48;
constexpr qreal designedPointSize = 10;

/// A soft shadow: rounded rectangles laid over one another, each a little smaller.
void paintShadow(QPainter& painter, const QRectF& panel)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(faded(Qt::black, shadowStrength * 2 / (shadowMargin * shadowMargin) * 8));
    for (int spread = shadowMargin - shadowDrop; spread > 0; --spread) {
        const QRectF layer
            = panel.adjusted(-spread, -spread, spread, spread).translated(0, shadowDrop);
        painter.drawRoundedRect(layer, roundedCorner + spread, roundedCorner + spread);
    }
    painter.restore();
}

/// How many times larger than in the design the texts are.
qreal textGrowth(const QWidget& widget)
{
    return std::max(1.0, widget.fontInfo().pointSizeF() / designedPointSize);
}

/// What the way to the screen's own pixels and back may take from the length of a window: 297 were
/// left of 298 at 150 %, and the sheet had to scroll for that one.
int lostInRounding(const QWidget& widget)
{
    const qreal ratio = widget.devicePixelRatioF();
    return ratio == std::floor(ratio) ? 0 : 2;
}

/// The window that a sheet lies over, below all other sheets; the sheet itself when there is none.
const QWidget* outermostWindow(const QWidget& sheet)
{
    const QWidget* window = &sheet;
    while (window->parentWidget() != nullptr)
        window = window->parentWidget()->window();
    return window;
}

} // namespace

Sheet::Sheet(const QString& title, int width, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
    , m_isTranslucent(windowsAreComposited())
    , m_body(nullptr)
    , m_buttonRow(new QHBoxLayout)
    , m_scrollArea(new QScrollArea(this))
    , m_panelWidth(width)
{
    setWindowTitle(title);
    setAttribute(Qt::WA_TranslucentBackground, m_isTranslucent);

    auto* content = new QWidget(m_scrollArea);
    m_body = new QVBoxLayout(content);
    m_body->setContentsMargins(0, 0, 0, 0);
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setFocusPolicy(Qt::NoFocus);
    m_scrollArea->setWidget(content);
    // The panel is painted behind both.
    content->setAutoFillBackground(false);
    m_scrollArea->viewport()->setAutoFillBackground(false);

    m_buttonRow->setSpacing(buttonGap);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(rowGap);
    column->addWidget(m_scrollArea, 1);
    column->addLayout(m_buttonRow);
    setPadding(usualPadding);

    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Escape), this), &QShortcut::activated,
        this, &QDialog::reject);
}

Sheet::~Sheet()
{
    removeScrim();
}

void Sheet::setPadding(int padding)
{
    const int margin = padding + (m_isTranslucent ? shadowMargin : 0);
    layout()->setContentsMargins(margin, margin, margin, margin);
}

void Sheet::hideScrollBar()
{
    m_scrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void Sheet::setConfirmButton(QPushButton* button, ConfirmKey key)
{
    m_confirmKey = key;
    setButtonLook(button, ButtonLook::Default);
    button->setDefault(key == ConfirmKey::AnyReturn);
    for (const Qt::Key returnKey : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* shortcut = new QShortcut(QKeySequence(Qt::CTRL | returnKey), this);
        connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
    }
}

void Sheet::setPanelSize(int width, int height)
{
    m_panelWidth = width;
    m_panelHeight = height;
    if (isVisible())
        fitIntoWindow();
}

QRect Sheet::panelRect() const
{
    const int margin = m_isTranslucent ? shadowMargin : 0;
    return rect().adjusted(margin, margin, -margin, -margin);
}

qreal Sheet::panelRadius() const
{
    return m_isTranslucent ? roundedCorner : 0;
}

void Sheet::fitIntoWindow()
{
    const int shadow = m_isTranslucent ? 2 * shadowMargin : 0;
    const QMargins margins = layout()->contentsMargins();
    const qreal growth = textGrowth(*this);
    int width = qRound(growth * m_panelWidth) + shadow;
    const QWidget* window = outermostWindow(*this);
    if (window != this)
        width = std::min(width, window->width() - windowMargin + shadow);
    const int contentWidth = width - margins.left() - margins.right();
    QLayout* content = m_scrollArea->widget()->layout();
    content->activate();
    const int contentHeight = content->hasHeightForWidth()
        ? content->totalHeightForWidth(contentWidth)
        : content->totalSizeHint().height();
    const int rowHeight = m_buttonRow->isEmpty() ? 0 : rowGap + m_buttonRow->sizeHint().height();

    int height = contentHeight + rowHeight + margins.top() + margins.bottom();
    if (m_panelHeight > 0)
        height = qRound(growth * m_panelHeight) + shadow;
    if (window != this)
        height = std::min(height, window->height() - windowMargin + shadow);
    setFixedSize(width + lostInRounding(*this), height + lostInRounding(*this));
    // A scroll bar that was needed takes the width without which texts wrap into more lines, and
    // would stay for ever.
    layout()->activate();
    const Qt::ScrollBarPolicy wanted = m_scrollArea->verticalScrollBarPolicy();
    m_scrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setVerticalScrollBarPolicy(wanted);

    if (window != this) {
        QRect place(QPoint(), size());
        place.moveCenter(window->geometry().center());
        move(place.topLeft());
    }
}

void Sheet::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    // Placed before it was shown, its window may not have been told where the window manager put
    // it, and lists would open elsewhere. By now the manager is done and answers when asked.
    QWindow* window = windowHandle();
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && window != nullptr
        && window->position() != pos())
        window->setPosition(pos());
}

void Sheet::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    // A dialog would press the first button that it finds.
    if (isReturn && m_confirmKey == ConfirmKey::ControlReturn)
        return;
    // What does not fit into the window can be read without a mouse.
    if (event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown) {
        m_scrollArea->verticalScrollBar()->triggerAction(event->key() == Qt::Key_PageUp
                ? QAbstractSlider::SliderPageStepSub
                : QAbstractSlider::SliderPageStepAdd);
        return;
    }
    QDialog::keyPressEvent(event);
}

void Sheet::paintEvent(QPaintEvent*)
{
    const Theme& theme = currentTheme();
    QPainter painter(this);
    const QRectF panel = panelRect();
    if (m_isTranslucent) {
        paintShadow(painter, panel);
        paintRoundedPanel(painter, panel, roundedCorner, theme.canvas, theme.hairline);
    } else {
        painter.fillRect(rect(), theme.canvas);
        paintRoundedPanel(painter, panel, 0, theme.canvas, theme.line);
    }
}

void Sheet::showEvent(QShowEvent* event)
{
    fitIntoWindow();
    if (parentWidget() != nullptr && m_scrim == nullptr) {
        m_scrim = new Scrim(parentWidget()->window());
        parentWidget()->window()->installEventFilter(this);
    }
    QDialog::showEvent(event);
}

void Sheet::hideEvent(QHideEvent* event)
{
    removeScrim();
    QDialog::hideEvent(event);
}

void Sheet::removeScrim()
{
    if (m_scrim == nullptr)
        return;
    m_scrim->parentWidget()->removeEventFilter(this);
    m_scrim->hide();
    m_scrim->deleteLater();
    m_scrim.clear();
}

bool Sheet::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        fitIntoWindow();
    return QDialog::eventFilter(watched, event);
}

} // namespace reelhouse
