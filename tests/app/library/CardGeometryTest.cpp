#include "app/library/CardGeometry.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;

class CardGeometryTest final : public QObject {
    Q_OBJECT

private slots:
    void asManyColumnsAsFit_data();
    void asManyColumnsAsFit();
    void bothEdgesAreMetAndCardsKeepTheirGap_data();
    void bothEdgesAreMetAndCardsKeepTheirGap();
    void everyPointBelongsToItsCard();
    void theHeightHoldsEveryRow_data();
    void theHeightHoldsEveryRow();
};

void CardGeometryTest::asManyColumnsAsFit_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("expectedColumns");

    QTest::newRow("window of 1300") << 1080 << 5;
    QTest::newRow("window of 1100") << 880 << 4;
    QTest::newRow("window of 1900") << 1680 << 8;
    QTest::newRow("just two") << 430 << 2;
    QTest::newRow("not quite two") << 429 << 1;
    QTest::newRow("narrower than a card") << 100 << 1;
}

void CardGeometryTest::asManyColumnsAsFit()
{
    QFETCH(int, width);

    QTEST(CardGeometry(width, 240).columns(), "expectedColumns");
}

void CardGeometryTest::bothEdgesAreMetAndCardsKeepTheirGap_data()
{
    QTest::addColumn<int>("width");
    for (const int width : {430, 700, 880, 1079, 1080, 1081, 1680, 2001})
        QTest::addRow("%d", width) << width;
}

void CardGeometryTest::bothEdgesAreMetAndCardsKeepTheirGap()
{
    QFETCH(int, width);
    const CardGeometry cards(width, 240);

    QCOMPARE(cards.rect(0).left(), 20);
    QCOMPARE(cards.rect(0).top(), 18);
    QCOMPARE(cards.rect(cards.columns() - 1).right() + 1, width - 20);
    for (int place = 1; place < cards.columns(); ++place) {
        QCOMPARE(cards.rect(place).left() - cards.rect(place - 1).right() - 1, 14);
        QVERIFY(cards.rect(place).width() >= 188);
    }
    QCOMPARE(cards.rect(cards.columns()).topLeft(), QPoint(20, 18 + 240 + 14));
}

void CardGeometryTest::everyPointBelongsToItsCard()
{
    const CardGeometry cards(1080, 240);

    for (int place = 0; place < 12; ++place) {
        QCOMPARE(cards.placeAt(cards.rect(place).topLeft(), 12), place);
        QCOMPARE(cards.placeAt(cards.rect(place).bottomRight(), 12), place);
        QCOMPARE(cards.placeAt(cards.rect(place).topRight() + QPoint(1, 0), 12), -1);
        QCOMPARE(cards.placeAt(cards.rect(place).bottomLeft() + QPoint(0, 1), 12), -1);
    }
    QCOMPARE(cards.placeAt(cards.rect(12).center(), 12), -1);
    QCOMPARE(cards.placeAt({30, 5}, 12), -1);
    QCOMPARE(cards.placeAt({30, -200}, 12), -1);
}

void CardGeometryTest::theHeightHoldsEveryRow_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("expected");

    QTest::newRow("none") << 0 << 36;
    QTest::newRow("one") << 1 << 276;
    QTest::newRow("a full row") << 5 << 276;
    QTest::newRow("one more") << 6 << 530;
    QTest::newRow("a million") << 1'000'000 << 36 + 200'000 * 254 - 14;
}

void CardGeometryTest::theHeightHoldsEveryRow()
{
    QFETCH(int, count);

    QTEST(CardGeometry(1080, 240).heightOf(count), "expected");
}

REELHOUSE_TEST(CardGeometryTest)

#include "CardGeometryTest.moc"
