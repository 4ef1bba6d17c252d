#include "app/printing/PrintColumn.h"

#include "core/model/Filament.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

using Kind = PrintColumn::Kind;

class PrintColumnTest final : public QObject {
    Q_OBJECT

private slots:
    void allSevenAreEnabledInOrder();
    void keysAndTitles_data();
    void keysAndTitles();
    void cellsOfAFilamentWithEverything();
    void cellsOfAFilamentWithNothing();
    void openedSpoolsAreToldWhenThereAreAny_data();
    void openedSpoolsAreToldWhenThereAreAny();
};

namespace {

QStringList cellsOf(const Filament& filament)
{
    QStringList cells;
    for (const PrintColumn& column : PrintColumn::allDefault())
        cells << printColumnCell(column.kind, filament);
    return cells;
}

} // namespace

void PrintColumnTest::allSevenAreEnabledInOrder()
{
    const QList<PrintColumn> expected{{Kind::Type, true}, {Kind::Brand, true}, {Kind::Range, true},
        {Kind::Spools, true}, {Kind::ColorName, true}, {Kind::Location, true}, {Kind::Notes, true}};
    QCOMPARE(PrintColumn::allDefault(), expected);
}

void PrintColumnTest::keysAndTitles_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("title");

    QTest::newRow("type") << Kind::Type << u"type"_s << u"Type"_s;
    QTest::newRow("brand") << Kind::Brand << u"brand"_s << u"Marque"_s;
    QTest::newRow("range") << Kind::Range << u"range"_s << u"Gamme"_s;
    QTest::newRow("spools") << Kind::Spools << u"spools"_s << u"Bobines"_s;
    QTest::newRow("colour") << Kind::ColorName << u"colorName"_s << u"Nom de la couleur"_s;
    QTest::newRow("location") << Kind::Location << u"location"_s << u"Lieu"_s;
    QTest::newRow("notes") << Kind::Notes << u"notes"_s << u"Notes"_s;
}

void PrintColumnTest::keysAndTitles()
{
    QFETCH(Kind, kind);
    QFETCH(QString, key);
    QFETCH(QString, title);

    QCOMPARE(printColumnKey(kind), key);
    QCOMPARE(printColumnTitle(kind), title);
}

void PrintColumnTest::cellsOfAFilamentWithEverything()
{
    FilamentType type(u"PLA"_s);
    Brand brand(u"Écofil"_s);
    FilamentRange range(u"Mat"_s);
    Location location(u"Étagère A"_s);
    const Filament filament(&type, &brand, &range, &location, 12, 3, u"#E53935"_s, u"Rouge"_s,
        u" Sécher\n4 h\tà 50 °C "_s);

    const QStringList expected{u"PLA"_s, u"Écofil"_s, u"Mat"_s, u"12 (3 ent.)"_s, u"Rouge"_s,
        u"Étagère A"_s, u" Sécher\n4 h\tà 50 °C "_s};
    QCOMPARE(cellsOf(filament), expected);
}

void PrintColumnTest::cellsOfAFilamentWithNothing()
{
    const Filament filament(nullptr, nullptr, nullptr, nullptr, 0, 0, {}, {}, {});

    const QStringList expected{u"—"_s, u"—"_s, u"—"_s, u"0"_s, u"—"_s, u"—"_s, QString()};
    QCOMPARE(cellsOf(filament), expected);
}

void PrintColumnTest::openedSpoolsAreToldWhenThereAreAny_data()
{
    QTest::addColumn<int>("spools");
    QTest::addColumn<int>("opened");
    QTest::addColumn<QString>("expected");

    QTest::newRow("none opened") << 4 << 0 << u"4"_s;
    QTest::newRow("one opened of four") << 4 << 1 << u"4 (1 ent.)"_s;
    QTest::newRow("all opened") << 2 << 2 << u"2 (2 ent.)"_s;
    QTest::newRow("thousands without a separator") << 12345 << 1234 << u"12345 (1234 ent.)"_s;
}

void PrintColumnTest::openedSpoolsAreToldWhenThereAreAny()
{
    QFETCH(int, spools);
    QFETCH(int, opened);
    QFETCH(QString, expected);

    const Filament filament(nullptr, nullptr, nullptr, nullptr, spools, opened, {}, {}, {});
    QCOMPARE(printColumnCell(Kind::Spools, filament), expected);
}

REELHOUSE_TEST(PrintColumnTest)
#include "PrintColumnTest.moc"
