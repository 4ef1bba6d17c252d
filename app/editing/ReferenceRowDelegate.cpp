#include "app/editing/ReferenceRowDelegate.h"

#include "app/editing/ReferenceListModel.h"
#include "app/editing/ReferenceUsageLabel.h"
#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/PlainToolTip.h"
#include "app/ui/Swatch.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"

#include <QtGui/QHelpEvent>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int lowestRow = 52;
constexpr int entryPadding = 16;
constexpr int entrySymbolWidth = 24;
constexpr int entrySymbolSide = 20;
constexpr int entryTextStart = 54;
constexpr int chipSide = 16;
constexpr int chipStep = 11;
constexpr qreal chipEdge = 1.5;
constexpr int chipsGap = 12;
constexpr int moreGap = 8;
constexpr int entryLineGap = 2;
constexpr qreal ringRadius = 9;

const ReferenceListModel& modelOf(const QModelIndex& index)
{
    return *static_cast<const ReferenceListModel*>(index.model());
}

/// "+4" where more filaments use the entry than are shown.
QString moreText(const ReferenceUsage& usage)
{
    const qint64 more = usage.filamentCount - ReferenceUsage::mostColors;
    return more > 0 ? u'+' + QString::number(more) : QString();
}

/// The right part of a row: the chips, then how many filaments are not shown.
struct ChipLine {
    ChipLine(const ReferenceUsage& usage, const QRect& row)
        : more(moreText(usage))
    {
        const int right = row.right() + 1 - entryPadding;
        const int moreWidth = more.isEmpty()
            ? 0
            : QFontMetrics(fontOf(TextStyle::Caption)).horizontalAdvance(more) + moreGap;
        moreRect = QRect(right - moreWidth, row.top(), moreWidth, row.height());
        const int chips = int(usage.oldestColors.size());
        const int width = chips > 0 ? chipSide + (chips - 1) * chipStep : 0;
        left = right - moreWidth - width;
    }

    QString more;
    QRect moreRect;
    int left;
};

QRect nameRect(const ReferenceUsage& usage, const QRect& row)
{
    const int nameHeight = QFontMetrics(fontOf(TextStyle::Name)).height();
    const int top = row.top()
        + (row.height() - nameHeight - entryLineGap - ReferenceUsageLabel::height()) / 2;
    const int left = row.left() + entryTextStart;
    return {left, top, ChipLine(usage, row).left - chipsGap - left, nameHeight};
}

void paintChips(
    QPainter& painter, const ReferenceUsage& usage, const QRect& row, const QColor& ground)
{
    const ChipLine line(usage, row);
    qreal left = line.left;
    for (const QString& code : usage.oldestColors) {
        const QRectF chip(left, row.top() + (row.height() - chipSide) / 2.0, chipSide, chipSide);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawEllipse(chip.adjusted(-chipEdge, -chipEdge, chipEdge, chipEdge));
        paintChip(painter, chip, colorFromHex(code), ground);
        left += chipStep;
    }
    painter.setFont(fontOf(TextStyle::Caption));
    painter.setPen(currentTheme().textSecondary);
    painter.drawText(line.moreRect, Qt::AlignRight | Qt::AlignVCenter, line.more);
}

QColor groundOf(const QStyleOptionViewItem& option)
{
    const Theme& theme = currentTheme();
    // A sheet over the window leaves the list its colour: the sheet is about that row.
    const bool isFocused = option.widget->window()->focusWidget() == option.widget;
    if (option.state.testFlag(QStyle::State_Selected))
        return isFocused ? theme.selection : theme.track;
    if (option.state.testFlag(QStyle::State_MouseOver))
        return blended(theme.hover, theme.surface);
    return theme.surface;
}

} // namespace

int ReferenceRowDelegate::rowHeight()
{
    const int texts
        = QFontMetrics(fontOf(TextStyle::Name)).height() + ReferenceUsageLabel::height();
    return std::max(lowestRow, texts + 14);
}

QSize ReferenceRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {0, rowHeight()};
}

void ReferenceRowDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const ReferenceListModel& model = modelOf(index);
    const FilamentContainer* entry = model.entryAt(index.row());
    if (!entry)
        return;
    const ReferenceUsage& usage = model.usageAt(index.row());
    const Theme& theme = currentTheme();
    const auto* view = static_cast<const QAbstractItemView*>(option.widget);
    const QColor ground = groundOf(option);
    const QRect& row = option.rect;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    QPainterPath panel;
    panel.addRoundedRect(view->viewport()->rect(), panelRadius - 1, panelRadius - 1);
    painter->setClipPath(panel, Qt::IntersectClip);
    painter->fillRect(row, ground);
    if (index.row() + 1 < index.model()->rowCount())
        painter->fillRect(QRect(row.left(), row.bottom(), row.width(), 1), theme.hairline);

    QRect symbolRect(row.left() + entryPadding, row.top(), entrySymbolWidth, row.height());
    symbolRect = QRect(symbolRect.left() + (entrySymbolWidth - entrySymbolSide) / 2,
        row.top() + (row.height() - entrySymbolSide) / 2, entrySymbolSide, entrySymbolSide);
    paintSymbol(*painter, symbolRect, model.list().symbol(*entry), theme.textSecondary);

    const QRect name = nameRect(usage, row);
    painter->setFont(fontOf(TextStyle::Name));
    painter->setPen(theme.textPrimary);
    painter->drawText(name, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
        painter->fontMetrics().elidedText(entry->name(), Qt::ElideRight, name.width()));
    ReferenceUsageLabel::paint(*painter,
        QRect(name.left(), name.bottom() + 1 + entryLineGap, name.width(),
            ReferenceUsageLabel::height()),
        usage.filamentCount, usage.spoolCount);
    paintChips(*painter, usage, row, ground);

    if (option.state.testFlag(QStyle::State_HasFocus)
        && view->window()->testAttribute(Qt::WA_KeyboardFocusChange))
        paintFocusRing(*painter, row.adjusted(0, 0, 0, -1), ringRadius, theme);
    painter->restore();
}

bool ReferenceRowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view,
    const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const FilamentContainer* entry
        = index.isValid() ? modelOf(index).entryAt(index.row()) : nullptr;
    QString cutName;
    if (entry
        && QFontMetrics(fontOf(TextStyle::Name)).horizontalAdvance(entry->name())
            > nameRect(modelOf(index).usageAt(index.row()), option.rect).width())
        cutName = entry->name();
    QToolTip::showText(event->globalPos(), plainToolTip(cutName), view->viewport(), option.rect);
    return true;
}

} // namespace reelhouse
