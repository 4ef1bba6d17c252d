#include "core/filters/FilterFavoriteNaming.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilterFavoriteNamingTest final : public QObject {
    Q_OBJECT

private slots:
    void namesAlikeNormaliseToTheSame();
    void aNameIsAvailableWhenNoneIsLikeIt_data();
    void aNameIsAvailableWhenNoneIsLikeIt();
    void aUniqueNameCountsUp_data();
    void aUniqueNameCountsUp();
};

Q_DECLARE_METATYPE(std::optional<QString>)

void FilterFavoriteNamingTest::namesAlikeNormaliseToTheSame()
{
    for (const QString& name :
        {u"  Rouge PLA "_s, u"rouge pla"_s, u"Rougé PLA"_s, u"\nROUGE PLA"_s})
        QCOMPARE(FilterFavoriteNaming::normalized(name), u"rouge pla"_s);
    QVERIFY(FilterFavoriteNaming::normalized(u"rouge  pla"_s) != u"rouge pla"_s);
}

void FilterFavoriteNamingTest::aNameIsAvailableWhenNoneIsLikeIt_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("existing");
    QTest::addColumn<std::optional<QString>>("excluded");
    QTest::addColumn<bool>("expected");

    const std::optional<QString> nobody;
    QTest::newRow("the first") << u"PLA"_s << QStringList() << nobody << true;
    QTest::newRow("blank") << u" \n\t"_s << QStringList() << nobody << false;
    QTest::newRow("taken in other case") << u"PLA "_s << QStringList{u"pla"_s} << nobody << false;
    QTest::newRow("its own name") << u"PLA "_s << QStringList{u"pla"_s} << std::optional(u"PLA"_s)
                                  << true;
    QTest::newRow("taken with other accents")
        << u"Été"_s << QStringList{u"noir"_s, u"ete"_s} << nobody << false;
    QTest::newRow("taken by another than the excluded one")
        << u"noir"_s << QStringList{u"Noir"_s, u"PLA"_s} << std::optional(u"PLA"_s) << false;
    QTest::newRow("blank stays refused with an excluded name")
        << u" "_s << QStringList{u"PLA"_s} << std::optional(u" "_s) << false;
    QTest::newRow("free beside others") << u"PLA 2"_s << QStringList{u"PLA"_s} << nobody << true;
}

void FilterFavoriteNamingTest::aNameIsAvailableWhenNoneIsLikeIt()
{
    QFETCH(QString, name);
    QFETCH(QStringList, existing);
    QFETCH(std::optional<QString>, excluded);

    QTEST(FilterFavoriteNaming::isNameAvailable(name, existing, excluded), "expected");
}

void FilterFavoriteNamingTest::aUniqueNameCountsUp_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QStringList>("existing");
    QTest::addColumn<QString>("expected");

    QTest::newRow("blank") << u"   "_s << QStringList() << u"Favori"_s;
    QTest::newRow("blank, and the usual name taken")
        << u"   "_s << QStringList{u"favori"_s} << u"Favori (2)"_s;
    QTest::newRow("free") << u" PLA\n"_s << QStringList{u"PETG"_s} << u"PLA"_s;
    QTest::newRow("taken") << u"PLA"_s << QStringList{u"pla"_s} << u"PLA (2)"_s;
    QTest::newRow("taken twice") << u"PLA"_s << QStringList{u"PLA (2)"_s, u"PLA"_s} << u"PLA (3)"_s;
    QTest::newRow("a gap is used")
        << u"PLA"_s << QStringList{u"PLA"_s, u"pla (3)"_s} << u"PLA (2)"_s;
}

void FilterFavoriteNamingTest::aUniqueNameCountsUp()
{
    QFETCH(QString, base);
    QFETCH(QStringList, existing);

    QTEST(FilterFavoriteNaming::uniqueName(base, existing), "expected");
}

REELHOUSE_TEST(FilterFavoriteNamingTest)

#include "FilterFavoriteNamingTest.moc"
