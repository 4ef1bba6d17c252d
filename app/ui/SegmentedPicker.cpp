#include "app/ui/SegmentedPicker.h"

#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Symbol.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QStyleOptionButton>

namespace reelhouse {

namespace {

constexpr QSize segmentSize(40, 28);
constexpr int segmentIconSide = 16;
constexpr int trackPadding = 2;
constexpr qreal trackRadius = 8;
constexpr qreal segmentRadius = 7;

} // namespace

SegmentButton::SegmentButton(const Segment& segment, QWidget* parent)
    : QPushButton(parent)
    , m_symbol(segment.symbol)
{
    setCheckable(true);
    setAutoExclusive(true);
    setAutoDefault(false);
    setToolTip(segment.label);
    setAccessibleName(segment.label);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SegmentButton::sizeHint() const
{
    return segmentSize;
}

void SegmentButton::keyPressEvent(QKeyEvent* event)
{
    // Buttons in one row have no neighbour above or below: these keys mean before and after.
    const int key = event->key() == Qt::Key_Up ? Qt::Key_Left
        : event->key() == Qt::Key_Down         ? Qt::Key_Right
                                               : event->key();
    QKeyEvent sideways(event->type(), key, event->modifiers(), event->text());
    QPushButton::keyPressEvent(&sideways);
    event->setAccepted(sideways.isAccepted());
}

void SegmentButton::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const Theme& theme = currentTheme();
    const QRectF body = rect();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);

    const bool isChosen = (option.state & QStyle::State_On) != 0;
    if (isChosen) {
        paintRoundedPanel(painter, body, segmentRadius, faded(Qt::black, 0.16));
        paintRoundedPanel(painter, body.adjusted(0.5, 0, -0.5, -1), segmentRadius, theme.raised);
    } else if (isEnabled() && (option.state & QStyle::State_MouseOver) != 0) {
        paintRoundedPanel(painter, body, segmentRadius, theme.hover);
    }
    if (showsFocusRing(option))
        paintFocusRing(painter, body, segmentRadius, theme);

    QRectF icon(0, 0, segmentIconSide, segmentIconSide);
    icon.moveCenter(body.center());
    paintSymbol(painter, icon, m_symbol, isChosen ? theme.chosenIcon : theme.textSecondary);
}

SegmentedPicker::SegmentedPicker(const QList<Segment>& segments, QWidget* parent)
    : QWidget(parent)
{
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(trackPadding, trackPadding, trackPadding, trackPadding);
    row->setSpacing(0);
    for (const Segment& segment : segments) {
        auto* button = new SegmentButton(segment, this);
        const int index = static_cast<int>(m_buttons.size());
        connect(button, &QPushButton::clicked, this, [this, index] { choose(index); });
        row->addWidget(button);
        m_buttons.append(button);
    }
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setSelection(0);
}

void SegmentedPicker::setSelection(int index)
{
    if (index < 0 || index >= m_buttons.size())
        return;
    m_shown = index;
    m_buttons.at(index)->setChecked(true);
    for (SegmentButton* button : m_buttons)
        button->setFocusPolicy(button->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

void SegmentedPicker::choose(int index)
{
    if (index == m_shown)
        return;
    m_shown = index;
    emit selectionChosen(index);
}

void SegmentedPicker::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintRoundedPanel(painter, rect(), trackRadius, currentTheme().sunken);
}

} // namespace reelhouse
