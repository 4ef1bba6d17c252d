#include "app/printing/StockReport.h"

#include "tests/app/printing/PrintedStock.h"
#include "tests/support/TestMain.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

using Kind = PrintColumn::Kind;
using Line = StockReport::Line;
using enum StockReport::LineKind;

class StockReportTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void linesOfAReport();
    void aFilterHasItsLine();
    void aLongFilterGoesOnInLinesOfItsOwn();
    void anEmptyStockHasItsTotal();
    void oneColumnKeepsItsSize();
    void manyWideColumnsShrinkByATenthAndAreCut();
    void columnsStandAtTheirTabStops();
    void fontsAndColoursOfLines();
    void nothingIsKeptOfTheFilamentsButTexts();
    void textsOnOneLine_data();
    void textsOnOneLine();
};

namespace {

constexpr qreal pageContent = 535;
const QDate dayOfPrinting(2026, 11, 15);

QList<Line> linesOf(const StockReport& report)
{
    QList<Line> lines;
    for (qsizetype index = 0; index < report.lineCount(); ++index) {
        lines << report.line(index);
        if (lines.last().kind != report.lineKind(index))
            QTest::qFail("the kind of a line is not the one told before", __FILE__, __LINE__);
    }
    return lines;
}

PrintedStock makeWideStock()
{
    PrintedStock stock;
    const QString wide(60, u'W');
    stock.add(wide, wide, wide, wide, 1, 0, wide, wide);
    return stock;
}

QList<Kind> allKinds()
{
    return {Kind::Type, Kind::Brand, Kind::Range, Kind::Spools, Kind::ColorName, Kind::Location,
        Kind::Notes};
}

} // namespace

void StockReportTest::initTestCase()
{
    QGuiApplication::setFont(QFont(u"Inter"_s));
}

void StockReportTest::linesOfAReport()
{
    PrintedStock stock;
    stock.add(u"PLA"_s, u"Écofil"_s, {}, {}, 4, 1, u"Noir"_s, u"Sécher\n4 h"_s);
    stock.add({}, {}, {}, {}, 3, 2, {}, {});
    const StockReport report(stock.filaments(),
        {Kind::Type, Kind::Brand, Kind::Spools, Kind::Notes}, pageContent, {}, dayOfPrinting);

    const QList<Line> expected{
        {Title, {u"Stock de filaments"_s}},
        {Meta, {u"Imprimé le 15 novembre 2026"_s}},
        {Meta, {}},
        {Header, {u"Type"_s, u"Marque"_s, u"Bobines"_s, u"Notes"_s}},
        {Row, {u"PLA"_s, u"Écofil"_s, u"4 (1 ent.)"_s, u"Sécher 4 h"_s}},
        {Row, {u"—"_s, u"—"_s, u"3 (2 ent.)"_s, QString()}},
        {Total, {}},
        {Total, {u"Total : 2 filament(s) — 7 bobine(s) (3 entamée(s))"_s}},
    };
    QCOMPARE(linesOf(report), expected);
}

void StockReportTest::aFilterHasItsLine()
{
    const PrintedStock stock = makeWorkshop();
    const StockReport report(stock.filaments(), {Kind::Type}, pageContent,
        u"Type : PLA — Recherche : « a\nb »"_s, QDate(2026, 8, 1));

    QCOMPARE(report.line(1), (Line{Meta, {u"Imprimé le 1 août 2026"_s}}));
    QCOMPARE(
        report.line(2), (Line{Filter, {u"Filtres actifs : Type : PLA — Recherche : « a b »"_s}}));
    QCOMPARE(report.line(3), (Line{Meta, {}}));
}

void StockReportTest::aLongFilterGoesOnInLinesOfItsOwn()
{
    const QString description
        = u"Recherche : « "_s + u"bobine rouge "_s.repeated(20) + QString(200, u'm') + u" »"_s;
    const PrintedStock stock = makeWorkshop();
    const StockReport report(
        stock.filaments(), {Kind::Type}, pageContent, description, dayOfPrinting);

    QString whole;
    int lines = 0;
    for (const Line& line : linesOf(report)) {
        if (line.kind != Filter)
            continue;
        ++lines;
        whole += line.cells.front();
        QVERIFY(report.fontOf(Filter).width(line.cells.front()) <= pageContent);
    }
    QVERIFY2(lines >= 4, qPrintable(QString::number(lines)));
    QCOMPARE(whole, u"Filtres actifs : "_s + description);
}

void StockReportTest::anEmptyStockHasItsTotal()
{
    const StockReport report({}, {Kind::Type}, pageContent, {}, dayOfPrinting);
    QCOMPARE(report.lineCount(), 6);
    QCOMPARE(
        report.line(5), (Line{Total, {u"Total : 0 filament(s) — 0 bobine(s) (0 entamée(s))"_s}}));
}

void StockReportTest::oneColumnKeepsItsSize()
{
    const PrintedStock stock = makeWideStock();
    const StockReport report(stock.filaments(), {Kind::Notes}, pageContent, {}, dayOfPrinting);

    QCOMPARE(report.scale(), 1.0);
    QCOMPARE(report.fontOf(Header).size, 11.0);
    QCOMPARE(report.fontOf(Row).size, 11.0);
    QCOMPARE(report.columnWidths(), QList<qreal>{pageContent});
    QVERIFY(report.tabStops().isEmpty());
}

void StockReportTest::manyWideColumnsShrinkByATenthAndAreCut()
{
    const PrintedStock stock = makeWideStock();
    const StockReport report(stock.filaments(), allKinds(), pageContent, {}, dayOfPrinting);

    QCOMPARE(report.scale(), 0.9);
    QCOMPARE(report.fontOf(Row).size, 9.9);
    const Line row = report.line(4);
    QCOMPARE(row.cells[3], u"1"_s);
    for (const qsizetype column : {0, 1, 2, 4, 5, 6}) {
        QVERIFY2(row.cells[column].endsWith(u"W…"_s), qPrintable(row.cells[column]));
        QVERIFY(report.fontOf(Row).width(row.cells[column]) <= report.columnWidths()[column]);
    }
}

void StockReportTest::columnsStandAtTheirTabStops()
{
    const PrintedStock stock = makeWorkshop();
    const StockReport report(
        stock.filaments(), {Kind::Type, Kind::Spools, Kind::Notes}, pageContent, {}, dayOfPrinting);

    const QList<qreal>& widths = report.columnWidths();
    QCOMPARE(report.scale(), 1.0);
    // There is room: each column is as wide as its widest text, the last one takes the rest.
    QCOMPARE(widths[0], report.fontOf(Row).width(u"Polycarbonate"_s));
    QCOMPARE(widths[1], report.fontOf(Row).width(u"12 (3 ent.)"_s));
    QCOMPARE(widths[0] + widths[1] + widths[2] + 16, pageContent);
    QCOMPARE(report.tabStops(), (QList<qreal>{widths[0] + 8, widths[0] + widths[1] + 16}));
}

void StockReportTest::fontsAndColoursOfLines()
{
    const StockReport report({}, {Kind::Type}, pageContent, {}, dayOfPrinting);

    const QColor ink(31, 31, 31);
    const QColor mutedInk(107, 107, 107);
    const QColor accent(0x66, 0x7e, 0xea);
    const QList<std::tuple<StockReport::LineKind, qreal, QColor>> expected{{Title, 20, ink},
        {Meta, 11, mutedInk}, {Filter, 11, accent}, {Header, 11, accent}, {Row, 11, ink},
        {Total, 12, ink}};
    for (const auto& [kind, size, color] : expected) {
        QCOMPARE(report.fontOf(kind).size, size);
        QCOMPARE(StockReport::colorOf(kind).rgb(), color.rgb());
    }
    QCOMPARE(report.footerFont().size, 9.0);
    QVERIFY(report.fontOf(Title).face != report.fontOf(Header).face);
    QCOMPARE(report.fontOf(Total).face, report.fontOf(Header).face);
    QCOMPARE(report.fontOf(Row).face, report.fontOf(Meta).face);
}

void StockReportTest::nothingIsKeptOfTheFilamentsButTexts()
{
    auto stock = std::make_unique<PrintedStock>(makeWorkshop());
    const StockReport report(stock->filaments(), {Kind::ColorName}, pageContent, {}, dayOfPrinting);
    stock.reset();
    QCOMPARE(report.line(4), (Line{Row, {u"Gris inconnu"_s}}));
}

void StockReportTest::textsOnOneLine_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("as it is") << u" deux  espaces "_s << u" deux  espaces "_s;
    QTest::newRow("line break") << u"a\nb"_s << u"a b"_s;
    QTest::newRow("line break of Windows") << u"a\r\nb"_s << u"a b"_s;
    QTest::newRow("empty line") << u"a\n\nb"_s << u"a  b"_s;
    QTest::newRow("tab") << u"a\tb"_s << u"a b"_s;
    QTest::newRow("separators of Unicode") << u"a\u2028b\u2029c\u0085d"_s << u"a b c d"_s;
    QTest::newRow("emoji and accents stay")
        << u"👨‍👩‍👧 e\u0301"_s << u"👨‍👩‍👧 e\u0301"_s;
}

void StockReportTest::textsOnOneLine()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);

    QCOMPARE(onOneLine(text), expected);
}

REELHOUSE_TEST(StockReportTest)
#include "StockReportTest.moc"
