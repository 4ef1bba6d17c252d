#pragma once

#include "app/printing/StockReport.h"

#include <QtCore/QSizeF>

class QPainter;

namespace reelhouse {

enum class PageOrientation { Portrait, Landscape };

/// What stands in the middle of a page's foot.
enum class PageNumbering {
    Number, ///< "Page 2"
    NumberOfTotal, ///< "Page 2 sur 5"
};

/// A report divided into A4 pages, each with a rule and three texts at its foot. Lengths are in
/// points. A page is painted by itself: what it costs does not depend on how many there are.
class ReportTextView final {
public:
    /// `report` is measured for `contentWidth(orientation)`.
    ReportTextView(
        StockReport report, PageOrientation orientation, QString footerLeft, QString footerRight);

    /// 595 x 842, or turned.
    static QSizeF pageSize(PageOrientation orientation);
    /// The page's width less the margins.
    static qreal contentWidth(PageOrientation orientation);

    PageOrientation orientation() const { return m_orientation; }
    const QString& footerLeft() const { return m_footerLeft; }
    const QString& footerRight() const { return m_footerRight; }
    const StockReport& report() const { return m_report; }

    /// At least one.
    int pageCount() const { return int(m_pageStarts.size()); }
    /// Paints a page, from 0; one unit of the painter is a point, its origin the page's corner.
    void paintPage(QPainter& painter, int page, PageNumbering numbering) const;

private:
    void divideIntoPages();
    void paintLine(QPainter& painter, const StockReport::Line& line, qreal top) const;
    void drawPageBorder(QPainter& painter, int page, PageNumbering numbering) const;

    StockReport m_report;
    PageOrientation m_orientation;
    QString m_footerLeft;
    QString m_footerRight;
    std::vector<qsizetype> m_pageStarts; ///< The first line of each page.
};

} // namespace reelhouse
