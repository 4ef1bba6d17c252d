#include "app/library/SpoolActions.h"

#include "tests/support/MemoryStock.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QMenu>

#include <limits>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class SpoolActionsTest final : public QObject {
    Q_OBJECT

private slots:
    void countsFollowTheActions_data();
    void countsFollowTheActions();
    void anActionIsUndoneUnderItsName();
    void aFilamentThatIsGoneIsPassedOver();
    void theMenuActsOnItsFilament();
};

namespace {

constexpr qint64 largest = std::numeric_limits<qint64>::max();

Filament& insertFilament(StoreContext& context, qint64 spools, qint64 opened)
{
    return context.insert(std::make_unique<Filament>(
        nullptr, nullptr, nullptr, nullptr, spools, opened, u"#1E88E5"_s, QString(), QString()));
}

} // namespace

void SpoolActionsTest::countsFollowTheActions_data()
{
    QTest::addColumn<bool>("isAddition");
    QTest::addColumn<qint64>("spools");
    QTest::addColumn<qint64>("opened");
    QTest::addColumn<qint64>("expectedSpools");
    QTest::addColumn<qint64>("expectedOpened");

    QTest::newRow("one more") << true << 2LL << 1LL << 3LL << 1LL;
    QTest::newRow("the first one") << true << 0LL << 0LL << 1LL << 0LL;
    QTest::newRow("beyond 99") << true << 99LL << 0LL << 100LL << 0LL;
    QTest::newRow("the largest count stays") << true << largest << 0LL << largest << 0LL;
    QTest::newRow("one less") << false << 3LL << 1LL << 2LL << 1LL;
    QTest::newRow("opened ones are lowered with it") << false << 3LL << 3LL << 2LL << 2LL;
    QTest::newRow("the last one stays") << false << 1LL << 1LL << 1LL << 1LL;
    QTest::newRow("none stays none") << false << 0LL << 0LL << 0LL << 0LL;
}

void SpoolActionsTest::countsFollowTheActions()
{
    QFETCH(bool, isAddition);
    QFETCH(qint64, spools);
    QFETCH(qint64, opened);
    const auto stock = tests::makeMemoryStock();
    const Filament& filament = insertFilament(stock->context(), spools, opened);
    SpoolActions actions(stock->context(), nullptr);

    if (isAddition)
        actions.addSpool(filament.id());
    else
        actions.removeSpool(filament.id());

    QTEST(filament.spoolsCount(), "expectedSpools");
    QTEST(filament.openedSpoolsCount(), "expectedOpened");
}

void SpoolActionsTest::anActionIsUndoneUnderItsName()
{
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    const Filament& filament = insertFilament(context, 3, 3);
    SpoolActions actions(context, nullptr);

    actions.removeSpool(filament.id());
    QCOMPARE(context.undoActionName(), u"Retirer une bobine"_s);
    context.undo();
    QCOMPARE(filament.spoolsCount(), 3);
    QCOMPARE(filament.openedSpoolsCount(), 3);

    actions.addSpool(filament.id());
    QCOMPARE(context.undoActionName(), u"Ajouter une bobine"_s);
}

void SpoolActionsTest::aFilamentThatIsGoneIsPassedOver()
{
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    Filament& filament = insertFilament(context, 3, 0);
    const FilamentId id = filament.id();
    context.remove(filament);
    SpoolActions actions(context, nullptr);

    actions.addSpool(id);
    actions.removeSpool(id);

    QVERIFY(context.undoActionName().isEmpty());
    QCOMPARE(context.count<Filament>(), 0);
}

void SpoolActionsTest::theMenuActsOnItsFilament()
{
    const auto stock = tests::makeMemoryStock();
    const Filament& filament = insertFilament(stock->context(), 3, 0);
    SpoolActions actions(stock->context(), nullptr);
    QMenu menu;

    actions.addTo(menu, filament.id());

    QCOMPARE(menu.actions().size(), 2);
    QCOMPARE(menu.actions().at(0)->text(), u"Ajouter une bobine"_s);
    QCOMPARE(menu.actions().at(1)->text(), u"Retirer une bobine"_s);
    menu.actions().at(0)->trigger();
    QCOMPARE(filament.spoolsCount(), 4);
    menu.actions().at(1)->trigger();
    menu.actions().at(1)->trigger();
    QCOMPARE(filament.spoolsCount(), 2);
}

REELHOUSE_TEST(SpoolActionsTest)

#include "SpoolActionsTest.moc"
