#include "app/printing/OrientationPicker.h"

#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QStyleOptionButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int choiceHeight = 32;
constexpr int choicePadding = 16;
constexpr int pageOutlineGap = 9;
constexpr int orientationTrackPadding = 2;
constexpr qreal orientationTrackRadius = 8;
constexpr qreal choiceRadius = 7;
constexpr qreal pageOutlineRadius = 2;
constexpr QSizeF portraitOutline(10, 14);
constexpr int outlineRoom = 14; ///< The longer side, for both.

} // namespace

OrientationButton::OrientationButton(PageOrientation orientation, QWidget* parent)
    : QPushButton(orientation == PageOrientation::Portrait ? u"Portrait"_s : u"Paysage"_s, parent)
    , m_orientation(orientation)
{
    setCheckable(true);
    setAutoExclusive(true);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize OrientationButton::sizeHint() const
{
    const QFontMetrics metrics(fontOf(TextStyle::Count));
    return {outlineRoom + pageOutlineGap + metrics.horizontalAdvance(text()) + 2 * choicePadding,
        std::max(choiceHeight, metrics.height() + 12)};
}

void OrientationButton::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const Theme& theme = currentTheme();
    const QRectF body = rect();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    if (isChecked()) {
        paintRoundedPanel(painter, body, choiceRadius, faded(Qt::black, 0.16));
        paintRoundedPanel(painter, body.adjusted(0.5, 0, -0.5, -1), choiceRadius, theme.raised);
    } else if (isEnabled() && (option.state & QStyle::State_MouseOver) != 0) {
        paintRoundedPanel(painter, body, choiceRadius, theme.hover);
    }
    if (showsFocusRing(option))
        paintFocusRing(painter, body, choiceRadius, theme);

    const QFont textFont = fontOf(isChecked() ? TextStyle::Count : TextStyle::Body);
    const int textWidth = QFontMetrics(textFont).horizontalAdvance(text());
    const qreal contentLeft = (width() - outlineRoom - pageOutlineGap - textWidth) / 2.0;
    const QColor color = isChecked() ? theme.textPrimary : theme.textSecondary;

    QRectF page(QPointF(), portraitOutline);
    if (m_orientation == PageOrientation::Landscape)
        page.setSize(portraitOutline.transposed());
    page.moveCenter({contentLeft + outlineRoom / 2.0, body.center().y()});
    painter.setPen(QPen(color, 1.2));
    painter.drawRoundedRect(page, pageOutlineRadius, pageOutlineRadius);

    painter.setFont(textFont);
    painter.setPen(color);
    const QRectF textRect(contentLeft + outlineRoom + pageOutlineGap, 0, textWidth + 1, height());
    painter.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter, text());
}

OrientationPicker::OrientationPicker(QWidget* parent)
    : QWidget(parent)
    , m_portrait(new OrientationButton(PageOrientation::Portrait, this))
    , m_landscape(new OrientationButton(PageOrientation::Landscape, this))
{
    m_portrait->setChecked(true);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(orientationTrackPadding, orientationTrackPadding,
        orientationTrackPadding, orientationTrackPadding);
    row->setSpacing(0);
    row->addWidget(m_portrait, 1);
    row->addWidget(m_landscape, 1);
    connect(m_portrait, &QPushButton::toggled, this, &OrientationPicker::keepOneTabStop);
    keepOneTabStop();
}

PageOrientation OrientationPicker::orientation() const
{
    return m_portrait->isChecked() ? PageOrientation::Portrait : PageOrientation::Landscape;
}

void OrientationPicker::keepOneTabStop()
{
    const bool isPortrait = m_portrait->isChecked();
    m_portrait->setFocusPolicy(isPortrait ? Qt::StrongFocus : Qt::ClickFocus);
    m_landscape->setFocusPolicy(isPortrait ? Qt::ClickFocus : Qt::StrongFocus);
}

void OrientationPicker::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintRoundedPanel(painter, rect(), orientationTrackRadius, currentTheme().sunken);
}

} // namespace reelhouse
