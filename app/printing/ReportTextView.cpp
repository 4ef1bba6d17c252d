#include "app/printing/ReportTextView.h"

#include "app/printing/TableFitting.h"

#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qreal sideMargin = 30;
constexpr qreal verticalMargin = 40;
/// Once above the title and once below the total.
constexpr qreal textInset = 40;
/// From the page's lower edge, within the margin.
constexpr qreal footerRuleHeight = 32;
constexpr qreal footerRuleWidth = 0.5;
constexpr qreal footerTextGap = 3;
constexpr qreal footerColumnGap = 12;
const QColor ruleGray = QColor::fromRgbF(0.78F, 0.78F, 0.78F);

} // namespace

ReportTextView::ReportTextView(
    StockReport report, PageOrientation orientation, QString footerLeft, QString footerRight)
    : m_report(std::move(report))
    , m_orientation(orientation)
    , m_footerLeft(std::move(footerLeft))
    , m_footerRight(std::move(footerRight))
{
    divideIntoPages();
}

QSizeF ReportTextView::pageSize(PageOrientation orientation)
{
    constexpr QSizeF portrait(595, 842);
    return orientation == PageOrientation::Portrait ? portrait : portrait.transposed();
}

qreal ReportTextView::contentWidth(PageOrientation orientation)
{
    return pageSize(orientation).width() - 2 * sideMargin;
}

void ReportTextView::divideIntoPages()
{
    const qreal bottom = pageSize(m_orientation).height() - verticalMargin;
    const qsizetype last = m_report.lineCount() - 1;
    m_pageStarts = {0};
    qreal y = verticalMargin + textInset;
    for (qsizetype line = 0; line <= last; ++line) {
        const qreal height = m_report.fontOf(m_report.lineKind(line)).lineHeight();
        const qreal inset = line == last ? textInset : 0;
        if (y + height + inset > bottom) {
            m_pageStarts.push_back(line);
            y = verticalMargin;
        }
        y += height;
    }
}

void ReportTextView::paintPage(QPainter& painter, int page, PageNumbering numbering) const
{
    const bool isLast = page + 1 == pageCount();
    const qsizetype end = isLast ? m_report.lineCount() : m_pageStarts[size_t(page) + 1];
    qreal y = verticalMargin + (page == 0 ? textInset : 0);
    for (qsizetype index = m_pageStarts[size_t(page)]; index < end; ++index) {
        const StockReport::Line line = m_report.line(index);
        paintLine(painter, line, y);
        y += m_report.fontOf(line.kind).lineHeight();
    }
    drawPageBorder(painter, page, numbering);
}

void ReportTextView::paintLine(QPainter& painter, const StockReport::Line& line, qreal top) const
{
    const ReportFont font = m_report.fontOf(line.kind);
    painter.setPen(StockReport::colorOf(line.kind));
    const qreal baseline = top + font.baseline();
    for (qsizetype cell = 0; cell < line.cells.size(); ++cell) {
        const qreal x = sideMargin + (cell == 0 ? 0 : m_report.tabStops()[cell - 1]);
        font.draw(painter, {x, baseline}, line.cells[cell]);
    }
}

void ReportTextView::drawPageBorder(QPainter& painter, int page, PageNumbering numbering) const
{
    const QSizeF size = pageSize(m_orientation);
    const qreal left = sideMargin;
    const qreal right = size.width() - sideMargin;
    const qreal rule = size.height() - footerRuleHeight;
    painter.setPen(QPen(ruleGray, footerRuleWidth, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(QPointF(left, rule), QPointF(right, rule));

    QString middle = u"Page "_s + QString::number(page + 1);
    if (numbering == PageNumbering::NumberOfTotal)
        middle += u" sur "_s + QString::number(pageCount());
    const ReportFont font = m_report.footerFont();
    const auto widthOf = [&font](QStringView text) { return font.width(text); };
    const qreal middleWidth = font.width(middle);
    const qreal sideWidth = (right - left - middleWidth) / 2 - footerColumnGap;
    const QString leftText = TableFitting::fitted(m_footerLeft, sideWidth, widthOf);
    const QString rightText = TableFitting::fitted(m_footerRight, sideWidth, widthOf);

    const qreal baseline = rule + footerTextGap + font.baseline();
    painter.setPen(StockReport::colorOf(StockReport::LineKind::Meta));
    font.draw(painter, {left, baseline}, leftText);
    font.draw(painter, {(size.width() - middleWidth) / 2, baseline}, middle);
    font.draw(painter, {right - font.width(rightText), baseline}, rightText);
}

} // namespace reelhouse
