#include "core/text/Plural.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <limits>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class PluralTest final : public QObject {
    Q_OBJECT

private slots:
    void pluralBeginsAtTwo_data();
    void pluralBeginsAtTwo();
};

void PluralTest::pluralBeginsAtTwo_data()
{
    QTest::addColumn<qint64>("count");
    QTest::addColumn<QString>("expected");

    QTest::newRow("none") << 0LL << u"0 bobine"_s;
    QTest::newRow("one") << 1LL << u"1 bobine"_s;
    QTest::newRow("two") << 2LL << u"2 bobines"_s;
    QTest::newRow("no grouping of digits") << 12345LL << u"12345 bobines"_s;
    QTest::newRow("negative") << -3LL << u"-3 bobine"_s;
    QTest::newRow("the largest") << std::numeric_limits<qint64>::max()
                                 << u"9223372036854775807 bobines"_s;
}

void PluralTest::pluralBeginsAtTwo()
{
    QFETCH(qint64, count);
    QFETCH(QString, expected);

    QCOMPARE(counted(count, u"bobine"_s), expected);
    QCOMPARE(agreeing(count, u"bobine"_s), expected.section(u' ', 1));
}

REELHOUSE_TEST(PluralTest)

#include "PluralTest.moc"
