#include "core/text/NameOrder.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <algorithm>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class NameOrderTest final : public QObject {
    Q_OBJECT

private slots:
    void codePointsDecideTheOrder_data();
    void codePointsDecideTheOrder();
    void ranksFollowTheOrder();
    void rankZeroIsTheEmptyName();
    void fileBrowserOrderReadsNumbersAndIgnoresCase_data();
    void fileBrowserOrderReadsNumbersAndIgnoresCase();
    void fileBrowserOrderLeavesEqualNamesWhereTheyWere();
};

void NameOrderTest::codePointsDecideTheOrder_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<int>("expected");

    QTest::newRow("capitals before small letters") << u"Zeta"_s << u"abs"_s << -1;
    QTest::newRow("equal") << u"PLA"_s << u"PLA"_s << 0;
    QTest::newRow("a beginning first") << u"PLA"_s << u"PLA+"_s << -1;
    QTest::newRow("the empty name first") << u""_s << u" "_s << -1;
    QTest::newRow("accented letters after plain ones") << u"Été"_s << u"Zeta"_s << 1;
    QTest::newRow("digits one by one") << u"Tiroir 10"_s << u"Tiroir 2"_s << -1;
    QTest::newRow("composed equals decomposed") << u"Été"_s << u"E\u0301te\u0301"_s << 0;
    QTest::newRow("decomposed after plain letters") << u"E\u0301"_s << u"F"_s << 1;
    QTest::newRow("beyond 16 bits comes last") << u"\U0001F600"_s << u"\uFB01"_s << 1;
    QTest::newRow("beyond 16 bits among themselves") << u"\U0001F600"_s << u"\U0001F601"_s << -1;
}

void NameOrderTest::codePointsDecideTheOrder()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(int, expected);

    const auto sign = [](std::strong_ordering order) {
        return int(std::is_gt(order)) - int(std::is_lt(order));
    };
    QCOMPARE(sign(compareByCodePoints(left, right)), expected);
    QCOMPARE(sign(compareByCodePoints(right, left)), -expected);
}

void NameOrderTest::ranksFollowTheOrder()
{
    const std::vector<QString> names{u"abs"_s, u"Zeta"_s, u"E\u0301"_s, u"PLA"_s, u"É"_s, u"PLA"_s};

    QCOMPARE(nameRanks(names), (std::vector<quint32>{3, 2, 4, 1, 4, 1}));
}

void NameOrderTest::rankZeroIsTheEmptyName()
{
    QCOMPARE(nameRanks({}), std::vector<quint32>{});
    QCOMPARE(nameRanks({u"A"_s}), std::vector<quint32>{1});
    QCOMPARE(nameRanks({u"A"_s, u""_s, QString()}), (std::vector<quint32>{1, 0, 0}));
}

void NameOrderTest::fileBrowserOrderReadsNumbersAndIgnoresCase_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");
    QTest::addColumn<int>("expected");

    QTest::newRow("numbers by value") << u"Tiroir 2"_s << u"Tiroir 10"_s << -1;
    QTest::newRow("case counts for nothing") << u"abs"_s << u"Zeta"_s << -1;
    QTest::newRow("the same in two cases") << u"pla"_s << u"PLA"_s << 0;
    QTest::newRow("accents among their letters") << u"Étagère"_s << u"Fond"_s << -1;
    QTest::newRow("accents decide last") << u"cote"_s << u"coté"_s << -1;
    QTest::newRow("a number within a word") << u"pa6-cf"_s << u"PA12"_s << -1;
}

void NameOrderTest::fileBrowserOrderReadsNumbersAndIgnoresCase()
{
    QFETCH(QString, left);
    QFETCH(QString, right);
    QFETCH(int, expected);

    const FileBrowserOrder isBefore;
    QCOMPARE(isBefore(left, right), expected < 0);
    QCOMPARE(isBefore(right, left), expected > 0);
    // By their keys as well.
    QCOMPARE(fileBrowserOrder({left, right}).front(), size_t(expected > 0 ? 1 : 0));
    QCOMPARE(fileBrowserOrder({right, left}).front(), size_t(expected < 0 ? 1 : 0));
}

void NameOrderTest::fileBrowserOrderLeavesEqualNamesWhereTheyWere()
{
    const std::vector<QString> names{
        u"Tiroir 10"_s, u"pla"_s, u"Étagère"_s, u"PLA"_s, u"tiroir 2"_s, u"Pla"_s};

    QStringList ordered;
    for (const size_t place : fileBrowserOrder(names))
        ordered << names[place];

    QCOMPARE(ordered,
        QStringList({u"Étagère"_s, u"pla"_s, u"PLA"_s, u"Pla"_s, u"tiroir 2"_s, u"Tiroir 10"_s}));
}

REELHOUSE_TEST(NameOrderTest)

#include "NameOrderTest.moc"
