#include "core/filters/FilterFavorite.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilterFavoriteTest final : public QObject {
    Q_OBJECT

private slots:
    void favoritesAreWrittenAsAnArray();
    void whatWasWrittenIsReadBack();
    void anUnreadableElementMakesTheWholeListUnreadable_data();
    void anUnreadableElementMakesTheWholeListUnreadable();
    void everyFieldCountsForEqualityAndHash();
};

namespace {

FilterFavorite blackFavorite()
{
    return {QUuid::fromString(u"0f8fad5b-d9cb-469f-a165-70867728950e"_s), u"Stock noir"_s,
        {.searchText = u"noir"_s}};
}

} // namespace

void FilterFavoriteTest::favoritesAreWrittenAsAnArray()
{
    QCOMPARE(encodedFavorites({}), "[]"_ba);
    QCOMPARE(encodedFavorites({blackFavorite()}),
        R"([{"criteria":{"searchText":"noir"},"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"Stock noir"}])"_ba);
}

void FilterFavoriteTest::whatWasWrittenIsReadBack()
{
    FilterFavorite other{QUuid::createUuid(), u"  "_s,
        {.typeName = u"PLA \"mat\""_s, .opened = 99, .searchText = u"é\n\U0001F9F5"_s}};
    const QList<FilterFavorite> favorites{blackFavorite(), other};

    const auto read = decodedFavorites(encodedFavorites(favorites));

    QVERIFY(read.has_value());
    QCOMPARE(*read, favorites);
}

void FilterFavoriteTest::anUnreadableElementMakesTheWholeListUnreadable_data()
{
    QTest::addColumn<QByteArray>("encoded");

    const QByteArray good
        = R"({"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"a","criteria":{"searchText":""}})"_ba;
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no JSON") << "favoris"_ba;
    QTest::newRow("an object") << good;
    QTest::newRow("cut short") << QByteArray("[" + good.chopped(1));
    QTest::newRow("something else beside") << QByteArray("[" + good + ",1]");
    QTest::newRow("no id") << R"([{"name":"a","criteria":{"searchText":""}}])"_ba;
    QTest::newRow("an id in braces")
        << R"([{"id":"{0F8FAD5B-D9CB-469F-A165-70867728950E}","name":"a","criteria":{"searchText":""}}])"_ba;
    QTest::newRow("an id too short")
        << R"([{"id":"0F8FAD5B","name":"a","criteria":{"searchText":""}}])"_ba;
    QTest::newRow("no name")
        << R"([{"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","criteria":{"searchText":""}}])"_ba;
    QTest::newRow("no criteria")
        << R"([{"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"a"}])"_ba;
    QTest::newRow("criteria without a search text")
        << R"([{"id":"0F8FAD5B-D9CB-469F-A165-70867728950E","name":"a","criteria":{}}])"_ba;
    QVERIFY(decodedFavorites(
        "[" + good + "," + good.toLower().replace("searchtext", "searchText") + "]"));
}

void FilterFavoriteTest::anUnreadableElementMakesTheWholeListUnreadable()
{
    QFETCH(QByteArray, encoded);

    QVERIFY(!decodedFavorites(encoded));
}

void FilterFavoriteTest::everyFieldCountsForEqualityAndHash()
{
    FilterFavorite otherId = blackFavorite();
    otherId.id = QUuid();
    FilterFavorite otherName = blackFavorite();
    otherName.name = u"stock noir"_s;
    FilterFavorite otherCriteria = blackFavorite();
    otherCriteria.criteria.spools = 1;

    QCOMPARE(blackFavorite(), blackFavorite());
    QCOMPARE(qHash(blackFavorite()), qHash(blackFavorite()));
    for (const FilterFavorite& other : {otherId, otherName, otherCriteria}) {
        QVERIFY(other != blackFavorite());
        QVERIFY(qHash(other) != qHash(blackFavorite()));
    }
}

REELHOUSE_TEST(FilterFavoriteTest)

#include "FilterFavoriteTest.moc"
