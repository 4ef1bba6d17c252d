#include "app/library/FilterFavoritesStore.h"

#include "core/preferences/Preferences.h"
#include "tests/support/TestMain.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilterFavoritesStoreTest final : public QObject {
    Q_OBJECT

private slots:
    void whatCannotBeReadGivesNoFavorites_data();
    void whatCannotBeReadGivesNoFavorites();
    void favoritesWithoutANameAreDropped();
    void everyChangeIsOnDiskAtOnce();
    void onlyAvailableNamesAreTaken();
    void renamingKeepsPlaceAndIdentity();
    void updatingKeepsNameAndPlace();
    void removedAndUnknownFavoritesArePassedOver();
    void moving_data();
    void moving();
    void aDamagedFileIsSetAsideBeforeTheFirstWrite();
};

namespace {

struct FavoritesFixture {
    explicit FavoritesFixture(const QStringList& names = {})
    {
        for (const QString& name : names)
            favorites.add(name, {.searchText = name});
    }

    QString path() const { return folder.filePath(u"preferences.ini"_s); }
    QStringList names() const { return namesOf(favorites); }
    /// As the program that comes next would find them.
    QStringList savedNames() const
    {
        Preferences saved(path());
        return namesOf(FilterFavoritesStore(saved));
    }
    static QStringList namesOf(const FilterFavoritesStore& store)
    {
        QStringList names;
        for (const FilterFavorite& favorite : store.favorites())
            names << favorite.name;
        return names;
    }
    QUuid id(int place) const { return favorites.favorites().at(place).id; }

    QTemporaryDir folder;
    Preferences preferences{path()};
    FilterFavoritesStore favorites{preferences};
};

} // namespace

void FilterFavoritesStoreTest::whatCannotBeReadGivesNoFavorites_data()
{
    QTest::addColumn<QByteArray>("stored");

    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no JSON") << "[{"_ba;
    QTest::newRow("no list") << "{}"_ba;
    QTest::newRow("an element without criteria")
        << R"([{"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"a"}])"_ba;
}

void FilterFavoritesStoreTest::whatCannotBeReadGivesNoFavorites()
{
    QFETCH(QByteArray, stored);
    FavoritesFixture fixture;
    fixture.preferences.setFilterFavorites(stored);

    const FilterFavoritesStore favorites(fixture.preferences);

    QCOMPARE(favorites.favorites(), QList<FilterFavorite>());
    QCOMPARE(fixture.preferences.filterFavorites(), stored); // Loading writes nothing.
}

void FilterFavoritesStoreTest::favoritesWithoutANameAreDropped()
{
    FavoritesFixture fixture;
    const FilterFavorite blank{QUuid::createUuid(), u"  \n"_s, {.searchText = u"x"_s}};
    const FilterFavorite named{QUuid::createUuid(), u" PLA"_s, {.searchText = u"x"_s}};
    fixture.preferences.setFilterFavorites(encodedFavorites({blank, named, blank}));

    QCOMPARE(FilterFavoritesStore(fixture.preferences).favorites(), QList{named});
}

void FilterFavoritesStoreTest::everyChangeIsOnDiskAtOnce()
{
    FavoritesFixture fixture;
    QSignalSpy changed(&fixture.favorites, &FilterFavoritesStore::changed);

    fixture.favorites.add(u"A"_s, {.searchText = u"a"_s});
    fixture.favorites.add(u"B"_s, {.searchText = u"a"_s}); // Equal criteria may be saved twice.
    QCOMPARE(fixture.savedNames(), (QStringList{u"A"_s, u"B"_s}));
    fixture.favorites.rename(fixture.id(0), u"C"_s);
    QCOMPARE(fixture.savedNames(), (QStringList{u"C"_s, u"B"_s}));
    fixture.favorites.move({0}, 2);
    QCOMPARE(fixture.savedNames(), (QStringList{u"B"_s, u"C"_s}));
    fixture.favorites.update(fixture.id(1), {.spools = 2, .searchText = u"c"_s});
    Preferences saved(fixture.path());
    QCOMPARE(FilterFavoritesStore(saved).favorites(), fixture.favorites.favorites());
    fixture.favorites.remove(fixture.id(0));
    QCOMPARE(fixture.savedNames(), QStringList{u"C"_s});
    QCOMPARE(changed.count(), 6);
}

void FilterFavoritesStoreTest::onlyAvailableNamesAreTaken()
{
    FavoritesFixture fixture({u"Été"_s});

    QVERIFY(!fixture.favorites.add(u"ete "_s, {.searchText = {}}));
    QVERIFY(!fixture.favorites.add(u" \n"_s, {.searchText = {}}));
    QCOMPARE(fixture.names(), QStringList{u"Été"_s});
    QVERIFY(!fixture.favorites.isNameAvailable(u"ÉTÉ"_s));
    QVERIFY(fixture.favorites.isNameAvailable(u"ÉTÉ"_s, fixture.id(0)));
    QCOMPARE(fixture.favorites.uniqueName(u"été"_s), u"été (2)"_s);

    const auto added
        = fixture.favorites.add(u"  PLA mat\n"_s, {.typeName = u"PLA"_s, .searchText = {}});
    QVERIFY(added);
    QCOMPARE(added->name, u"PLA mat"_s);
    QVERIFY(!added->id.isNull());
    QCOMPARE(fixture.favorites.matching({.typeName = u"PLA"_s, .searchText = {}}), added);
    QCOMPARE(fixture.favorites.find(added->id), added);
}

void FilterFavoritesStoreTest::renamingKeepsPlaceAndIdentity()
{
    FavoritesFixture fixture({u"Noir"_s, u"PLA"_s});
    const QUuid id = fixture.id(0);

    QVERIFY(!fixture.favorites.rename(id, u"pla"_s));
    QVERIFY(!fixture.favorites.rename(id, u"  "_s));
    QVERIFY(!fixture.favorites.rename(QUuid::createUuid(), u"Autre"_s));
    QCOMPARE(fixture.names(), (QStringList{u"Noir"_s, u"PLA"_s}));

    QVERIFY(fixture.favorites.rename(id, u" NOIR "_s));
    QCOMPARE(fixture.names(), (QStringList{u"NOIR"_s, u"PLA"_s}));
    QCOMPARE(fixture.id(0), id);
}

void FilterFavoritesStoreTest::updatingKeepsNameAndPlace()
{
    FavoritesFixture fixture({u"A"_s, u"B"_s});

    fixture.favorites.update(fixture.id(0), {.opened = 0, .searchText = u"z"_s});

    QCOMPARE(fixture.names(), (QStringList{u"A"_s, u"B"_s}));
    QCOMPARE(fixture.favorites.favorites().at(0).criteria,
        (FilterCriteria{.opened = 0, .searchText = u"z"_s}));
}

void FilterFavoritesStoreTest::removedAndUnknownFavoritesArePassedOver()
{
    FavoritesFixture fixture({u"A"_s, u"B"_s});
    const QUuid id = fixture.id(0);
    fixture.favorites.remove(id);
    QSignalSpy changed(&fixture.favorites, &FilterFavoritesStore::changed);

    fixture.favorites.remove(id);
    fixture.favorites.update(id, {.searchText = {}});

    QVERIFY(!fixture.favorites.rename(id, u"C"_s));
    QVERIFY(!fixture.favorites.find(id));
    QCOMPARE(fixture.names(), QStringList{u"B"_s});
    QCOMPARE(changed.count(), 0);
}

void FilterFavoritesStoreTest::moving_data()
{
    QTest::addColumn<QList<qsizetype>>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("expected");

    QTest::newRow("down") << QList<qsizetype>{0} << 2 << u"BACD"_s;
    QTest::newRow("to the end") << QList<qsizetype>{0} << 4 << u"BCDA"_s;
    QTest::newRow("up") << QList<qsizetype>{3} << 1 << u"ADBC"_s;
    QTest::newRow("to the start") << QList<qsizetype>{2} << 0 << u"CABD"_s;
    QTest::newRow("onto itself") << QList<qsizetype>{1} << 1 << u"ABCD"_s;
    QTest::newRow("behind itself") << QList<qsizetype>{1} << 2 << u"ABCD"_s;
    QTest::newRow("several keep their order") << QList<qsizetype>{3, 0} << 2 << u"BADC"_s;
    QTest::newRow("offsets that do not exist") << QList<qsizetype>{9, -1} << 1 << u"ABCD"_s;
}

void FilterFavoritesStoreTest::moving()
{
    QFETCH(QList<qsizetype>, from);
    QFETCH(int, to);
    FavoritesFixture fixture({u"A"_s, u"B"_s, u"C"_s, u"D"_s});

    fixture.favorites.move(from, to);

    QTEST(fixture.names().join(QString()), "expected");
    QCOMPARE(fixture.savedNames(), fixture.names());
}

void FilterFavoritesStoreTest::aDamagedFileIsSetAsideBeforeTheFirstWrite()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"preferences.ini"_s);
    const QByteArray damaged = QByteArray("[General]\nfilterFavorites=\"[\x00\xff", 29);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(damaged);
    file.close();
    Preferences preferences(path);
    FilterFavoritesStore favorites(preferences);
    QCOMPARE(favorites.favorites(), QList<FilterFavorite>());

    QVERIFY(favorites.add(u"Nouveau"_s, {.searchText = {}}));

    const QStringList aside
        = QDir(folder.path()).entryList({u"preferences.ini.damaged-*"_s}, QDir::Files);
    QCOMPARE(aside.size(), 1);
    QFile kept(folder.filePath(aside.first()));
    QVERIFY(kept.open(QIODevice::ReadOnly));
    QCOMPARE(kept.readAll(), damaged);
    Preferences again(path);
    QCOMPARE(FavoritesFixture::namesOf(FilterFavoritesStore(again)), QStringList{u"Nouveau"_s});
}

REELHOUSE_TEST(FilterFavoritesStoreTest)

#include "FilterFavoritesStoreTest.moc"
