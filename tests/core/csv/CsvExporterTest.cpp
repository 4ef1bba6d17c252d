#include "core/csv/CsvExporter.h"

#include "core/model/Filament.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class CsvExporterTest final : public QObject {
    Q_OBJECT

private slots:
    void anEmptyStockIsTheHeader();
    void aLineHoldsNineCellsInOrder();
    void linesFollowTheOrderGiven();
    void cellsAreQuotedWhenNeeded_data();
    void cellsAreQuotedWhenNeeded();
    void everyTextCellIsQuotedWhenNeeded();
    void theBytesAreUtf8BehindAMark();
    void whatIsNoUnicodeIsNotEncoded();
};

namespace {

const QString csvHeader = u"Couleur;Nom couleur;Type;Marque;Gamme;Bobines;Entamées;Lieu;Notes\n"_s;

Filament csvFilament(const QString& notes)
{
    return {nullptr, nullptr, nullptr, nullptr, 1, 0, {}, {}, notes};
}

} // namespace

void CsvExporterTest::anEmptyStockIsTheHeader()
{
    QCOMPARE(CsvExporter::stockCSV({}), csvHeader);
}

void CsvExporterTest::aLineHoldsNineCellsInOrder()
{
    FilamentType type(u"PLA"_s);
    Brand brand(u"Filéo"_s);
    FilamentRange range(u"Matte"_s);
    Location location(u"Étagère A"_s);
    const Filament whole(
        &type, &brand, &range, &location, 12, 3, u"#E53935"_s, u"Rouge"_s, u"Séchée"_s);
    const Filament bare(nullptr, nullptr, nullptr, nullptr, 0, 0, {}, {}, {});

    QCOMPARE(CsvExporter::stockCSV({&whole, &bare}),
        csvHeader + u"#E53935;Rouge;PLA;Filéo;Matte;12;3;Étagère A;Séchée\n;;;;;0;0;;\n"_s);
}

void CsvExporterTest::linesFollowTheOrderGiven()
{
    const Filament first = csvFilament(u"a"_s);
    const Filament second = csvFilament(u"b"_s);

    QCOMPARE(CsvExporter::stockCSV({&second, &first, &second}),
        csvHeader + u";;;;;1;0;;b\n;;;;;1;0;;a\n;;;;;1;0;;b\n"_s);
}

void CsvExporterTest::cellsAreQuotedWhenNeeded_data()
{
    QTest::addColumn<QString>("notes");
    QTest::addColumn<QString>("expected");

    QTest::newRow("semicolon") << u"Bobine neuve; stockée"_s << u"\"Bobine neuve; stockée\""_s;
    QTest::newRow("quotes are doubled") << u"dit \"mat\""_s << u"\"dit \"\"mat\"\"\""_s;
    QTest::newRow("one quote") << u"\""_s << u"\"\"\"\""_s;
    QTest::newRow("line feed") << u"a\nb"_s << u"\"a\nb\""_s;
    QTest::newRow("carriage return") << u"a\rb"_s << u"\"a\rb\""_s;
    QTest::newRow("both, kept as they are") << u"a\r\nb"_s << u"\"a\r\nb\""_s;
    QTest::newRow("comma") << u"0,6 mm"_s << u"0,6 mm"_s;
    QTest::newRow("tabulator") << u"a\tb"_s << u"a\tb"_s;
    QTest::newRow("apostrophe") << u"l'été"_s << u"l'été"_s;
    QTest::newRow("spaces stay") << u"  a  "_s << u"  a  "_s;
    QTest::newRow("a leading equals sign") << u"=1+1"_s << u"=1+1"_s;
    QTest::newRow("a leading zero") << u"007"_s << u"007"_s;
    QTest::newRow("other line ends") << u"a\u2028b\u0085c"_s << u"a\u2028b\u0085c"_s;
    QTest::newRow("empty") << u""_s << u""_s;
}

void CsvExporterTest::cellsAreQuotedWhenNeeded()
{
    QFETCH(QString, notes);
    QFETCH(QString, expected);
    const Filament filament = csvFilament(notes);

    QCOMPARE(CsvExporter::stockCSV({&filament}), csvHeader + u";;;;;1;0;;"_s + expected + u'\n');
}

void CsvExporterTest::everyTextCellIsQuotedWhenNeeded()
{
    FilamentType type(u"t;"_s);
    Brand brand(u"b\""_s);
    FilamentRange range(u"r\n"_s);
    Location location(u"l\r"_s);
    const Filament filament(&type, &brand, &range, &location, 1, 1, u"h;"_s, u"c\""_s, u"n;"_s);

    QCOMPARE(CsvExporter::stockCSV({&filament}),
        csvHeader + u"\"h;\";\"c\"\"\";\"t;\";\"b\"\"\";\"r\n\";1;1;\"l\r\";\"n;\"\n"_s);
}

void CsvExporterTest::theBytesAreUtf8BehindAMark()
{
    QCOMPARE(CsvExporter::encoded(u"é€😀\n"_s).value(),
        "\xef\xbb\xbf\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\n"_ba);
}

void CsvExporterTest::whatIsNoUnicodeIsNotEncoded()
{
    QCOMPARE(CsvExporter::encoded(QString(QChar(0xd83d))), std::nullopt);
    QCOMPARE(CsvExporter::encoded(QString(QChar(0xde00)) + u'a'), std::nullopt);
}

REELHOUSE_TEST(CsvExporterTest)

#include "CsvExporterTest.moc"
