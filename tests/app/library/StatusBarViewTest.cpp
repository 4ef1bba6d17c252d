#include "app/library/StatusBarView.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class StatusBarViewTest final : public QObject {
    Q_OBJECT

private slots:
    void totalsAreWordedInFrench_data();
    void totalsAreWordedInFrench();
    void aNoteIsShownWholeOrNotAtAll();
};

void StatusBarViewTest::totalsAreWordedInFrench_data()
{
    QTest::addColumn<StockTotals>("totals");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("empty") << StockTotals{} << QStringList{u"Stock vide"_s};
    QTest::newRow("one of one spool") << StockTotals{
        1, 1, 0, 0} << QStringList{u"1 filament"_s, u"1 bobine"_s, u"0 entamée"_s, u"0 type"_s};
    QTest::newRow("plural from two on") << StockTotals{
        2, 2, 2, 2} << QStringList{u"2 filaments"_s, u"2 bobines"_s, u"2 entamées"_s, u"2 types"_s};
    QTest::newRow("no separators in large numbers")
        << StockTotals{100000, 1234567, 21, 1}
        << QStringList{u"100000 filaments"_s, u"1234567 bobines"_s, u"21 entamées"_s, u"1 type"_s};
}

void StatusBarViewTest::totalsAreWordedInFrench()
{
    QFETCH(StockTotals, totals);
    StatusBarView statusBar;
    statusBar.show();

    statusBar.setTotals(totals);

    QStringList shown;
    for (const QLabel* label : statusBar.findChildren<QLabel*>()) {
        if (label->isVisible())
            shown << label->text();
    }
    QTEST(shown, "expected");
}

void StatusBarViewTest::aNoteIsShownWholeOrNotAtAll()
{
    StatusBarView statusBar;
    statusBar.resize(1000, 30);
    statusBar.show();
    statusBar.setTotals({8, 12, 5, 4});
    const QString text = u"Un mot sur le stock"_s;
    statusBar.setNote(text);
    const QLabel* note = nullptr;
    for (const QLabel* label : statusBar.findChildren<QLabel*>()) {
        if (label->text() == text)
            note = label;
    }
    QVERIFY(note);
    QTRY_VERIFY(note->isVisible() && note->width() >= note->sizeHint().width());

    const int needed = statusBar.minimumSizeHint().width() + note->sizeHint().width();
    statusBar.resize(needed - 10, 30);
    QVERIFY(!note->isVisible());

    statusBar.resize(1000, 30);
    QVERIFY(note->isVisible());
    statusBar.setNote({});
    QVERIFY(!note->isVisible());
}

REELHOUSE_TEST(StatusBarViewTest)

#include "StatusBarViewTest.moc"
