#include "core/model/Filament.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilamentTest final : public QObject {
    Q_OBJECT

private slots:
    void clampingKeepsOpenedSpoolsWithinTheStock_data();
    void clampingKeepsOpenedSpoolsWithinTheStock();
};

namespace {

Filament makeFilament(qint64 spools, qint64 opened)
{
    return Filament(
        nullptr, nullptr, nullptr, nullptr, spools, opened, u"#E53935"_s, u"Rouge"_s, QString());
}

} // namespace

void FilamentTest::clampingKeepsOpenedSpoolsWithinTheStock_data()
{
    QTest::addColumn<qint64>("spools");
    QTest::addColumn<qint64>("opened");
    QTest::addColumn<qint64>("expectedSpools");
    QTest::addColumn<qint64>("expectedOpened");

    QTest::newRow("opened above the stock is lowered to it") << 4LL << 6LL << 4LL << 4LL;
    QTest::newRow("both negative become zero") << -1LL << -1LL << 0LL << 0LL;
    QTest::newRow("opened within the stock stays") << 3LL << 1LL << 3LL << 1LL;
}

void FilamentTest::clampingKeepsOpenedSpoolsWithinTheStock()
{
    QFETCH(qint64, spools);
    QFETCH(qint64, opened);
    QFETCH(qint64, expectedSpools);
    QFETCH(qint64, expectedOpened);

    Filament filament = makeFilament(0, 0);
    filament.setSpoolsCount(spools);
    filament.setOpenedSpoolsCount(opened);
    filament.clampOpenedSpools();

    QCOMPARE(filament.spoolsCount(), expectedSpools);
    QCOMPARE(filament.openedSpoolsCount(), expectedOpened);
}

REELHOUSE_TEST(FilamentTest)

#include "FilamentTest.moc"
