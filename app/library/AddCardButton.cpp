#include "app/library/AddCardButton.h"

#include "app/editing/CommandTexts.h"
#include "app/library/CardLayout.h"
#include "app/ui/FocusRing.h"
#include "app/ui/Symbol.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int addSymbolSide = 22;
constexpr int addSymbolGap = 10;

} // namespace

AddCardButton::AddCardButton(QWidget* parent)
    : QPushButton(addFilamentText(), parent)
{
    setAutoDefault(false);
}

QSize AddCardButton::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    int widest = 0;
    for (const QString& word : text().split(u' '))
        widest = std::max(widest, metrics.horizontalAdvance(word) + 1);
    const QRect room(0, 0, widest, QWIDGETSIZE_MAX);
    const int textHeight = metrics.boundingRect(room, Qt::TextWordWrap, text()).height();
    return {widest + 2 * CardLayout::padding, addSymbolSide + addSymbolGap + textHeight};
}

void AddCardButton::focusInEvent(QFocusEvent* event)
{
    QPushButton::focusInEvent(event);
    // Scrolled away from under a mouse button, it would not be clicked.
    if (event->reason() != Qt::MouseFocusReason)
        emit focused();
}

void AddCardButton::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const Theme& theme = currentTheme();
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QRectF frame = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (showsFocusRing(option)) {
        paintFocusRing(painter, rect(), CardLayout::radius, theme);
        frame.adjust(focusRingInset, focusRingInset, -focusRingInset, -focusRingInset);
    }
    painter.setPen(QPen(theme.control, 1.5, Qt::DashLine));
    painter.setBrush(option.state.testFlag(QStyle::State_Sunken) ? QBrush(theme.sunken)
            : isHovered                                          ? QBrush(theme.hover)
                                                                 : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(frame, CardLayout::radius, CardLayout::radius);

    const QColor ink = isHovered ? theme.textPrimary : theme.textSecondary;
    const QRect textRoom(0, 0, width() - 2 * CardLayout::padding, height());
    const int textHeight = fontMetrics().boundingRect(textRoom, Qt::TextWordWrap, text()).height();
    const int top = (height() - addSymbolSide - addSymbolGap - textHeight) / 2;
    paintSymbol(painter, QRectF((width() - addSymbolSide) / 2.0, top, addSymbolSide, addSymbolSide),
        u"plus"_s, ink);
    painter.setPen(ink);
    const QRect textRect(
        CardLayout::padding, top + addSymbolSide + addSymbolGap, textRoom.width(), textHeight);
    painter.drawText(textRect, Qt::AlignCenter | Qt::TextWordWrap, text());
}

} // namespace reelhouse
