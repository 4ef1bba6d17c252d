#pragma once

#include "app/printing/PrintColumn.h"
#include "app/printing/ReportTypeface.h"

#include <QtCore/QDate>
#include <QtCore/QStringList>
#include <QtGui/QColor>

#include <memory>
#include <span>
#include <vector>

namespace reelhouse {

class Filament;

/// The three typefaces of a report, in the system's font.
struct ReportTypefaces {
    ReportTypefaces();

    ReportTypeface regular;
    ReportTypeface semibold;
    ReportTypeface bold;
};

/// What is said of the stock, as lines of text, before it is divided into pages. It keeps the texts
/// of the filaments and none of the filaments themselves.
class StockReport final {
public:
    /// What a line is; says its font and colour.
    enum class LineKind { Title, Meta, Filter, Header, Row, Total };

    struct Line {
        LineKind kind;
        QStringList cells; ///< One, or one for each column; none on an empty line.

        bool operator==(const Line&) const = default;
    };

    /// `columns` are those printed, `contentWidth` is in points, an empty `filterDescription` is
    /// none; one that is wider than the page goes on in lines of its own.
    StockReport(std::span<const Filament* const> filaments, const QList<PrintColumn::Kind>& columns,
        qreal contentWidth, const QString& filterDescription, QDate today);

    qsizetype lineCount() const { return m_head.size() + m_rowCount + m_foot.size(); }
    LineKind lineKind(qsizetype index) const;
    /// Texts of the table are cut to their columns, each on one line.
    Line line(qsizetype index) const;

    ReportFont fontOf(LineKind kind) const;
    /// The small font at the foot of the pages.
    ReportFont footerFont() const { return {&m_typefaces->regular, 9}; }
    static QColor colorOf(LineKind kind);

    /// How the table's fonts are made smaller: from 0.9 to 1.
    qreal scale() const { return m_scale; }
    const QList<qreal>& columnWidths() const { return m_columnWidths; }
    /// Where each column after the first begins, in points.
    const QList<qreal>& tabStops() const { return m_tabStops; }

private:
    void measureColumns(const QList<PrintColumn::Kind>& columns, qreal contentWidth);
    QStringList fittedCells(std::span<const QString> cells, const ReportFont& font) const;

    std::shared_ptr<const ReportTypefaces> m_typefaces;
    QList<Line> m_head; ///< Down to the titles of the columns.
    qsizetype m_rowCount;
    std::vector<QString> m_cells; ///< Row after row, each with a text for every column.
    QList<Line> m_foot; ///< Below the table.
    qreal m_scale = 1;
    QList<qreal> m_columnWidths;
    QList<qreal> m_tabStops;
};

/// `text` on one line: line breaks, tabs and other control characters become spaces.
QString onOneLine(const QString& text);

} // namespace reelhouse
