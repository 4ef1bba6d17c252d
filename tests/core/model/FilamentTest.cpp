#include "core/model/Filament.h"

#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTimeZone>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilamentTest final : public QObject {
    Q_OBJECT

private slots:
    void creationCorrectsTheCounts_data();
    void creationCorrectsTheCounts();
    void creationKeepsTextsAndTakesTheTime();
    void clampingKeepsOpenedSpoolsWithinTheStock_data();
    void clampingKeepsOpenedSpoolsWithinTheStock();
    void equalFieldsDoNotMakeTheSameFilament();
    void everySetterIsNoticed_data();
    void everySetterIsNoticed();
    void settingTheSameValueIsNoChange();
    void dateAddedIsUniversalTimeToTheMillisecond();
    void searchMatchesOneTextAtATime_data();
    void searchMatchesOneTextAtATime();
    void filamentWithoutReferencesMatchesOnItsOwnTexts();
    void typeWithoutChosenIconHasTheDefault();
    void twentyIconsAreOffered();
};

namespace {

Filament makeFilament(qint64 spools, qint64 opened)
{
    return Filament(
        nullptr, nullptr, nullptr, nullptr, spools, opened, u"#E53935"_s, u"Rouge"_s, QString());
}

} // namespace

void FilamentTest::creationCorrectsTheCounts_data()
{
    QTest::addColumn<qint64>("spools");
    QTest::addColumn<qint64>("opened");
    QTest::addColumn<qint64>("expectedSpools");
    QTest::addColumn<qint64>("expectedOpened");

    QTest::newRow("negative spools, some opened") << -3LL << 2LL << 0LL << 0LL;
    QTest::newRow("more opened than held") << 2LL << 5LL << 2LL << 2LL;
    QTest::newRow("negative opened") << 2LL << -1LL << 2LL << 0LL;
    QTest::newRow("as they should be") << 4LL << 3LL << 4LL << 3LL;
    QTest::newRow("the largest") << std::numeric_limits<qint64>::max()
                                 << std::numeric_limits<qint64>::max()
                                 << std::numeric_limits<qint64>::max()
                                 << std::numeric_limits<qint64>::max();
}

void FilamentTest::creationCorrectsTheCounts()
{
    QFETCH(qint64, spools);
    QFETCH(qint64, opened);
    QFETCH(qint64, expectedSpools);
    QFETCH(qint64, expectedOpened);

    const Filament filament = makeFilament(spools, opened);

    QCOMPARE(filament.spoolsCount(), expectedSpools);
    QCOMPARE(filament.openedSpoolsCount(), expectedOpened);
}

void FilamentTest::creationKeepsTextsAndTakesTheTime()
{
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const Filament filament(
        nullptr, nullptr, nullptr, nullptr, 1, 0, u" #e5 "_s, u"  Rouge "_s, u"\n note "_s);
    const QDateTime after = QDateTime::currentDateTimeUtc();

    QCOMPARE(filament.colorHex(), u" #e5 "_s);
    QCOMPARE(filament.colorName(), u"  Rouge "_s);
    QCOMPARE(filament.notes(), u"\n note "_s);
    QVERIFY(before <= filament.dateAdded());
    QVERIFY(filament.dateAdded() <= after);
    QVERIFY(!filament.id());
    QVERIFY(!filament.context());
}

void FilamentTest::clampingKeepsOpenedSpoolsWithinTheStock_data()
{
    QTest::addColumn<qint64>("spools");
    QTest::addColumn<qint64>("opened");
    QTest::addColumn<qint64>("expectedSpools");
    QTest::addColumn<qint64>("expectedOpened");

    QTest::newRow("opened above the stock is lowered to it") << 4LL << 6LL << 4LL << 4LL;
    QTest::newRow("both negative become zero") << -1LL << -1LL << 0LL << 0LL;
    QTest::newRow("opened within the stock stays") << 3LL << 1LL << 3LL << 1LL;
    QTest::newRow("negative spools take the opened along") << -2LL << 5LL << 0LL << 0LL;
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

void FilamentTest::equalFieldsDoNotMakeTheSameFilament()
{
    tests::RecordingStore store;
    StoreContext context(store);
    const Filament::Values values = makeFilament(1, 0).values();
    const Filament& first = context.insert(std::make_unique<Filament>(values));
    const Filament& second = context.insert(std::make_unique<Filament>(values));

    QVERIFY(first.values() == second.values());
    QVERIFY(first.id() != second.id());
    QVERIFY(qHash(first.id()) != qHash(second.id()));
}

void FilamentTest::everySetterIsNoticed_data()
{
    using Edit = std::function<void(Filament&)>;
    QTest::addColumn<Edit>("edit");

    QTest::newRow("spools") << Edit([](Filament& f) { f.setSpoolsCount(9); });
    QTest::newRow("opened") << Edit([](Filament& f) { f.setOpenedSpoolsCount(2); });
    QTest::newRow("colour code") << Edit([](Filament& f) { f.setColorHex(u"#000000"_s); });
    QTest::newRow("colour name") << Edit([](Filament& f) { f.setColorName(u"Noir"_s); });
    QTest::newRow("notes") << Edit([](Filament& f) { f.setNotes(u"Neuf"_s); });
    QTest::newRow("date") << Edit(
        [](Filament& f) { f.setDateAdded(QDateTime::fromMSecsSinceEpoch(1, Qt::UTC)); });
    QTest::newRow("type") << Edit([](Filament& f) { f.setType(nullptr); });
    QTest::newRow("brand") << Edit([](Filament& f) { f.setBrand(nullptr); });
    QTest::newRow("range") << Edit([](Filament& f) { f.setRange(nullptr); });
    QTest::newRow("location") << Edit([](Filament& f) { f.setLocation(nullptr); });
}

void FilamentTest::everySetterIsNoticed()
{
    QFETCH(std::function<void(Filament&)>, edit);
    tests::RecordingStore store;
    StoreContext context(store);
    Filament& filament = context.insert(
        std::make_unique<Filament>(&context.insert(std::make_unique<FilamentType>(u"PLA"_s)),
            &context.insert(std::make_unique<Brand>(u"Sunlu"_s)),
            &context.insert(std::make_unique<FilamentRange>(u"Silk"_s)),
            &context.insert(std::make_unique<Location>(u"Armoire"_s)), 4, 1, u"#E53935"_s,
            u"Rouge"_s, QString()));
    context.processPendingChanges();
    store.commits.clear();
    const Filament::Values before = filament.values();
    const QSignalSpy changed(&context, &StoreContext::changed);

    edit(filament);
    context.processPendingChanges();

    QVERIFY(filament.values() != before);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(store.commits, QList<QStringList>{{u"~Filament 1"_s}});
}

void FilamentTest::settingTheSameValueIsNoChange()
{
    tests::RecordingStore store;
    StoreContext context(store);
    Filament& filament = context.insert(std::make_unique<Filament>(makeFilament(3, 1).values()));
    context.processPendingChanges();
    const QSignalSpy changed(&context, &StoreContext::changed);

    filament.setSpoolsCount(3);
    filament.setNotes(QString());
    filament.setBrand(nullptr);
    filament.clampOpenedSpools();
    context.processPendingChanges();

    QCOMPARE(changed.size(), 0);
    QCOMPARE(store.commits.size(), 1);
}

void FilamentTest::dateAddedIsUniversalTimeToTheMillisecond()
{
    Filament filament = makeFilament(1, 0);
    const QDateTime paris(QDate(2025, 7, 1), QTime(0, 30, 0, 123), QTimeZone("Europe/Paris"));

    filament.setDateAdded(paris);

    QCOMPARE(filament.dateAdded(), paris);
    QCOMPARE(filament.dateAdded().timeSpec(), Qt::UTC);
    QCOMPARE(filament.dateAdded().toString(Qt::ISODateWithMs), u"2025-06-30T22:30:00.123Z"_s);
}

void FilamentTest::searchMatchesOneTextAtATime_data()
{
    QTest::addColumn<QString>("query");
    QTest::addColumn<bool>("expected");

    QTest::newRow("empty") << u""_s << true;
    QTest::newRow("spaces only") << u"   "_s << true;
    QTest::newRow("notes, accents aside") << u"eclat"_s << true;
    QTest::newRow("colour name") << u"ROUGE"_s << true;
    QTest::newRow("colour code") << u"#e5"_s << true;
    QTest::newRow("type") << u"petg"_s << true;
    QTest::newRow("brand") << u"sunlu"_s << true;
    QTest::newRow("range") << u"mat"_s << true;
    QTest::newRow("location") << u"etagere"_s << true;
    QTest::newRow("a phrase within one text") << u"etagere a"_s << true;
    QTest::newRow("a phrase across two texts") << u"petg rouge"_s << false;
    QTest::newRow("a count") << u"77"_s << false;
    QTest::newRow("a year") << u"202"_s << false;
}

void FilamentTest::searchMatchesOneTextAtATime()
{
    QFETCH(QString, query);
    QFETCH(bool, expected);
    FilamentType type(u"PETG"_s);
    Brand brand(u"Sunlu"_s);
    FilamentRange range(u"Matte"_s);
    Location location(u"Étagère A"_s);
    const Filament filament(
        &type, &brand, &range, &location, 77, 7, u"#E53935"_s, u"Rouge"_s, u"Bel Éclat"_s);

    QCOMPARE(filament.matchesSearch(query), expected);
}

void FilamentTest::filamentWithoutReferencesMatchesOnItsOwnTexts()
{
    const Filament filament = makeFilament(1, 0);

    QVERIFY(filament.matchesSearch(u"rouge"_s));
    QVERIFY(!filament.matchesSearch(u"sunlu"_s));
}

void FilamentTest::typeWithoutChosenIconHasTheDefault()
{
    QCOMPARE(FilamentType(u"PLA"_s).iconName(), u"cube.fill"_s);
    QCOMPARE(FilamentType(u"PLA"_s, u"leaf.fill"_s).iconName(), u"leaf.fill"_s);
}

void FilamentTest::twentyIconsAreOffered()
{
    QCOMPARE(typeIconOptions(),
        QStringList({u"cube.fill"_s, u"cylinder.fill"_s, u"circle.fill"_s, u"triangle.fill"_s,
            u"hexagon.fill"_s, u"diamond.fill"_s, u"drop.fill"_s, u"flame.fill"_s, u"snowflake"_s,
            u"leaf.fill"_s, u"bolt.fill"_s, u"sparkles"_s, u"star.fill"_s, u"moon.fill"_s,
            u"sun.max.fill"_s, u"shield.fill"_s, u"capsule.fill"_s, u"seal.fill"_s,
            u"puzzlepiece.fill"_s, u"arrow.trianglehead.swap"_s}));
}

REELHOUSE_TEST(FilamentTest)

#include "FilamentTest.moc"
