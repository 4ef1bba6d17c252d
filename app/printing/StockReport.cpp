#include "app/printing/StockReport.h"

#include "app/printing/TableFitting.h"
#include "app/ui/Swatch.h"
#include "core/model/Filament.h"

#include <QtCore/QLocale>
#include <QtCore/QTextBoundaryFinder>
#include <QtGui/QGuiApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qreal tableFontSize = 11;

QFont systemFont(QFont::Weight weight)
{
    QFont font = QGuiApplication::font();
    font.setWeight(weight);
    return font;
}

QColor grayLevel(double level)
{
    return QColor::fromRgbF(float(level), float(level), float(level));
}

/// "15 novembre 2026".
QString longFrenchDate(QDate date)
{
    return QLocale(QLocale::French, QLocale::France).toString(date, u"d MMMM yyyy"_s);
}

/// `text` in lines of at most `width` points: broken between words, and inside a word that is
/// wider.
QStringList wrapped(const QString& text, qreal width, const ReportFont& font)
{
    QTextBoundaryFinder words(QTextBoundaryFinder::Line, text);
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    const auto fits = [&](qsizetype from, qsizetype to) {
        return font.width(QStringView(text).mid(from, to - from)) <= width;
    };
    const auto lastThatFits = [&](QTextBoundaryFinder& finder, qsizetype from) {
        finder.setPosition(from);
        qsizetype end = from;
        for (qsizetype next = finder.toNextBoundary(); next > 0 && fits(from, next);
             next = finder.toNextBoundary())
            end = next;
        return end;
    };

    QStringList lines;
    for (qsizetype from = 0; from < text.size();) {
        qsizetype end = lastThatFits(words, from);
        if (end == from)
            end = std::max(lastThatFits(characters, from), from + 1);
        lines << text.mid(from, end - from);
        from = end;
    }
    return lines;
}

bool breaksTheLine(QChar unit)
{
    switch (unit.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

} // namespace

QString onOneLine(const QString& text)
{
    if (std::ranges::none_of(text, breaksTheLine))
        return text;
    QString line;
    for (qsizetype index = 0; index < text.size(); ++index) {
        const bool isSecondOfTwo = text[index] == u'\n' && index > 0 && text[index - 1] == u'\r';
        if (!isSecondOfTwo)
            line += breaksTheLine(text[index]) ? QChar(u' ') : text[index];
    }
    return line;
}

ReportTypefaces::ReportTypefaces()
    : regular(systemFont(QFont::Normal))
    , semibold(systemFont(QFont::DemiBold))
    , bold(systemFont(QFont::Bold))
{
}

StockReport::StockReport(std::span<const Filament* const> filaments,
    const QList<PrintColumn::Kind>& columns, qreal contentWidth, const QString& filterDescription,
    QDate today)
    : m_typefaces(std::make_shared<const ReportTypefaces>())
    , m_rowCount(qsizetype(filaments.size()))
{
    qint64 spools = 0;
    qint64 openedSpools = 0;
    m_cells.reserve(filaments.size() * size_t(columns.size()));
    for (const Filament* filament : filaments) {
        for (const PrintColumn::Kind kind : columns)
            m_cells.push_back(onOneLine(printColumnCell(kind, *filament)));
        spools += filament->spoolsCount();
        openedSpools += filament->openedSpoolsCount();
    }
    measureColumns(columns, contentWidth);

    std::vector<QString> titles;
    for (const PrintColumn::Kind kind : columns)
        titles.push_back(printColumnTitle(kind));
    m_head << Line{LineKind::Title, {u"Stock de filaments"_s}}
           << Line{LineKind::Meta, {u"Imprimé le "_s + longFrenchDate(today)}};
    if (!filterDescription.isEmpty()) {
        const QString text = u"Filtres actifs : "_s + onOneLine(filterDescription);
        for (const QString& part : wrapped(text, contentWidth, fontOf(LineKind::Filter)))
            m_head << Line{LineKind::Filter, {part}};
    }
    m_head << Line{LineKind::Meta, {}}
           << Line{LineKind::Header, fittedCells(titles, fontOf(LineKind::Header))};
    m_foot = {{LineKind::Total, {}},
        {LineKind::Total,
            {u"Total : "_s + QString::number(m_rowCount) + u" filament(s) — "_s
                + QString::number(spools) + u" bobine(s) ("_s + QString::number(openedSpools)
                + u" entamée(s))"_s}}};
}

void StockReport::measureColumns(const QList<PrintColumn::Kind>& columns, qreal contentWidth)
{
    const ReportFont header{&m_typefaces->semibold, tableFontSize};
    const ReportFont row{&m_typefaces->regular, tableFontSize};
    QList<TableFitting::ColumnNeed> needs;
    for (const PrintColumn::Kind kind : columns)
        needs.append({header.width(printColumnTitle(kind)), kind == PrintColumn::Kind::Notes});
    for (size_t cell = 0; cell < m_cells.size(); ++cell) {
        qreal& widest = needs[qsizetype(cell) % needs.size()].naturalWidth;
        widest = std::max(widest, row.width(m_cells[cell]));
    }

    m_scale = TableFitting::fittingScale(needs, contentWidth);
    // Outlines without hinting grow with their size, so nothing has to be measured again.
    for (TableFitting::ColumnNeed& need : needs)
        need.naturalWidth *= m_scale;
    m_columnWidths = TableFitting::columnWidths(needs, contentWidth);
    m_tabStops = TableFitting::tabStops(m_columnWidths);
}

StockReport::LineKind StockReport::lineKind(qsizetype index) const
{
    if (index < m_head.size())
        return m_head[index].kind;
    return index < m_head.size() + m_rowCount ? LineKind::Row : LineKind::Total;
}

StockReport::Line StockReport::line(qsizetype index) const
{
    if (index < m_head.size())
        return m_head[index];
    const qsizetype row = index - m_head.size();
    if (row >= m_rowCount)
        return m_foot[row - m_rowCount];
    const auto columns = size_t(m_columnWidths.size());
    return {LineKind::Row,
        fittedCells(
            std::span(m_cells).subspan(size_t(row) * columns, columns), fontOf(LineKind::Row))};
}

QStringList StockReport::fittedCells(std::span<const QString> cells, const ReportFont& font) const
{
    const auto widthOf = [&font](QStringView text) { return font.width(text); };
    QStringList result;
    for (size_t column = 0; column < cells.size(); ++column)
        result << TableFitting::fitted(cells[column], m_columnWidths[qsizetype(column)], widthOf);
    return result;
}

ReportFont StockReport::fontOf(LineKind kind) const
{
    switch (kind) {
    case LineKind::Title:
        return {&m_typefaces->bold, 20};
    case LineKind::Meta:
    case LineKind::Filter:
        return {&m_typefaces->regular, 11};
    case LineKind::Header:
        return {&m_typefaces->semibold, tableFontSize * m_scale};
    case LineKind::Row:
        return {&m_typefaces->regular, tableFontSize * m_scale};
    case LineKind::Total:
        return {&m_typefaces->semibold, 12};
    }
    Q_UNREACHABLE();
}

QColor StockReport::colorOf(LineKind kind)
{
    switch (kind) {
    case LineKind::Title:
    case LineKind::Row:
    case LineKind::Total:
        return grayLevel(0.12);
    case LineKind::Meta:
        return grayLevel(0.42);
    case LineKind::Filter:
    case LineKind::Header:
        return colorFromHex(u"#667eea"_s);
    }
    Q_UNREACHABLE();
}

} // namespace reelhouse
