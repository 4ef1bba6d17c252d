#include "app/ui/CapsuleButton.h"

#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/PlainToolTip.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Symbol.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyleOptionButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int capsuleHeight = 30;
constexpr int bareWidth = 34;
constexpr int leftPadding = 11;
constexpr int rightPadding = 10;
constexpr int iconSide = 14;
constexpr int gap = 6;
constexpr int chevronSide = 10;
constexpr int longestValue = 112;
constexpr qreal hoverDarkening = 0.04;

} // namespace

CapsuleButton::CapsuleButton(const QString& symbol, const QString& field, const QString& unsetValue,
    CapsuleTint Theme::*tint, QWidget* parent)
    : QPushButton(parent)
    , m_symbol(symbol)
    , m_field(field)
    , m_unsetValue(unsetValue)
    , m_tint(tint)
{
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setAccessibleName(field);
    setAccessibleDescription(unsetValue);
}

CapsuleButton::CapsuleButton(const QString& symbol, const QString& field, QWidget* parent)
    : CapsuleButton(symbol, field, QString(), nullptr, parent)
{
    setToolTip(field);
}

void CapsuleButton::setValue(const QString& value)
{
    if (value == m_value)
        return;
    m_value = value;
    setAccessibleDescription(value.isEmpty() ? m_unsetValue : value);
    updateToolTip();
    updateGeometry();
    update();
}

void CapsuleButton::setSymbol(const QString& symbol, bool isActive)
{
    if (symbol == m_symbol && isActive == m_isActive)
        return;
    m_symbol = symbol;
    m_isActive = isActive;
    update();
}

QFont CapsuleButton::textFont() const
{
    QFont font = this->font();
    font.setWeight(isSet() ? QFont::DemiBold : QFont::Normal);
    return font;
}

QString CapsuleButton::shownText() const
{
    return m_value.isEmpty()
        ? m_field
        : QFontMetrics(textFont()).elidedText(m_value, Qt::ElideRight, longestValue);
}

void CapsuleButton::updateToolTip()
{
    if (showsText())
        setToolTip(shownText() == m_value ? QString() : plainToolTip(m_value));
}

QSize CapsuleButton::sizeHint() const
{
    const QFontMetrics metrics(textFont());
    const int height = std::max(capsuleHeight, metrics.height() + 12);
    if (!showsText())
        return {std::max(bareWidth, height), height};
    return {leftPadding + iconSide + gap + metrics.horizontalAdvance(shownText()) + gap
            + chevronSide + rightPadding,
        height};
}

void CapsuleButton::changeEvent(QEvent* event)
{
    QPushButton::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        updateToolTip();
        updateGeometry();
    }
}

void CapsuleButton::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const Theme& theme = currentTheme();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);

    QRectF body = rect();
    if (showsFocusRing(option)) {
        paintFocusRing(painter, body, body.height() / 2, theme);
        body.adjust(focusRingInset, focusRingInset, -focusRingInset, -focusRingInset);
    }

    const bool isHeld = (option.state & QStyle::State_Sunken) != 0;
    const bool isHovered = isEnabled() && (option.state & QStyle::State_MouseOver) != 0;
    QColor ground = isHeld ? theme.sunken
        : isHovered        ? blended(theme.hover, theme.surface)
                           : theme.surface;
    QColor ink = theme.textPrimary;
    QColor iconInk = theme.textSecondary;
    if (isSet()) {
        ground = showsText() ? (theme.*m_tint).ground : theme.selectionSide;
        ink = iconInk = showsText() ? (theme.*m_tint).text : theme.textPrimary;
        if (isHeld || isHovered)
            ground
                = blended(faded(Qt::black, isHeld ? 2 * hoverDarkening : hoverDarkening), ground);
    }
    paintRoundedPanel(
        painter, body, body.height() / 2, ground, isSet() ? QColor() : theme.hairline);

    const qreal middle = height() / 2.0;
    if (!showsText()) {
        const QRectF icon((width() - iconSide) / 2.0, middle - iconSide / 2.0, iconSide, iconSide);
        paintSymbol(painter, icon, m_symbol, iconInk);
        return;
    }
    paintSymbol(painter, QRectF(leftPadding, middle - iconSide / 2.0, iconSide, iconSide), m_symbol,
        iconInk);
    painter.setFont(textFont());
    painter.setPen(ink);
    const int textLeft = leftPadding + iconSide + gap;
    painter.drawText(QRect(textLeft, 0, width() - textLeft, height()),
        Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shownText());
    const QRectF chevron(
        width() - rightPadding - chevronSide, middle - chevronSide / 2.0, chevronSide, chevronSide);
    paintSymbol(painter, chevron, u"chevron.down"_s, isSet() ? ink : theme.textTertiary);
}

} // namespace reelhouse
