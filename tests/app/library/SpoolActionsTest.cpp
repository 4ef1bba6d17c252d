#include "app/library/SpoolActions.h"

#include "tests/support/MemoryStock.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QMenu>

#include <limits>

using namespace reelhouse;
using namespace Qt::StringLiterals;

using Command = void (SpoolActions::*)(FilamentId);

class SpoolActionsTest final : public QObject {
    Q_OBJECT

private slots:
    void countsFollowTheActions_data();
    void countsFollowTheActions();
    void theLastSpoolAsksToDelete();
    void aCopyIsMadeAndItsSheetAskedFor();
    void repeatedStepsAreUndoneTogether();
    void anActionIsUndoneUnderItsName();
    void aFilamentThatIsGoneIsPassedOver();
    void theMenuActsOnTheTarget();
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
    QTest::addColumn<Command>("command");
    QTest::addColumn<qint64>("spools");
    QTest::addColumn<qint64>("opened");
    QTest::addColumn<qint64>("expectedSpools");
    QTest::addColumn<qint64>("expectedOpened");

    const Command add = &SpoolActions::addSpool;
    QTest::newRow("one more") << add << 2LL << 1LL << 3LL << 1LL;
    QTest::newRow("the first one") << add << 0LL << 0LL << 1LL << 0LL;
    QTest::newRow("beyond 99") << add << 99LL << 0LL << 100LL << 0LL;
    QTest::newRow("the largest count stays") << add << largest << 0LL << largest << 0LL;
    const Command remove = &SpoolActions::removeSpool;
    QTest::newRow("one less") << remove << 3LL << 1LL << 2LL << 1LL;
    QTest::newRow("opened ones are lowered with it") << remove << 3LL << 3LL << 2LL << 2LL;
    QTest::newRow("the last one stays") << remove << 1LL << 1LL << 1LL << 1LL;
    QTest::newRow("none stays none") << remove << 0LL << 0LL << 0LL << 0LL;
    const Command open = &SpoolActions::addOpenedSpool;
    QTest::newRow("one opened") << open << 2LL << 1LL << 2LL << 2LL;
    QTest::newRow("all are opened") << open << 2LL << 2LL << 2LL << 2LL;
    const Command close = &SpoolActions::removeOpenedSpool;
    QTest::newRow("one opened less") << close << 2LL << 1LL << 2LL << 0LL;
    QTest::newRow("none is opened") << close << 2LL << 0LL << 2LL << 0LL;
}

void SpoolActionsTest::countsFollowTheActions()
{
    QFETCH(Command, command);
    QFETCH(qint64, spools);
    QFETCH(qint64, opened);
    const auto stock = tests::makeMemoryStock();
    const Filament& filament = insertFilament(stock->context(), spools, opened);
    SpoolActions actions(stock->context(), nullptr);

    (actions.*command)(filament.id());

    QTEST(filament.spoolsCount(), "expectedSpools");
    QTEST(filament.openedSpoolsCount(), "expectedOpened");
}

void SpoolActionsTest::theLastSpoolAsksToDelete()
{
    const auto stock = tests::makeMemoryStock();
    const Filament& last = insertFilament(stock->context(), 1, 0);
    const Filament& plenty = insertFilament(stock->context(), 2, 0);
    SpoolActions actions(stock->context(), nullptr);
    QSignalSpy asked(&actions, &SpoolActions::deletionRequested);

    actions.removeSpool(plenty.id());
    QCOMPARE(asked.count(), 0);

    actions.removeSpool(last.id());
    QCOMPARE(asked.count(), 1);
    QCOMPARE(asked.first().first().value<FilamentId>(), last.id());
}

void SpoolActionsTest::aCopyIsMadeAndItsSheetAskedFor()
{
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    const FilamentId id = insertFilament(context, 4, 2).id();
    SpoolActions actions(context, nullptr);
    QSignalSpy asked(&actions, &SpoolActions::detailRequested);

    actions.duplicateFilament(id);

    QCOMPARE(context.count<Filament>(), 2);
    QCOMPARE(context.undoActionName(), u"Dupliquer le filament"_s);
    QCOMPARE(asked.count(), 1);
    const FilamentId copy = asked.first().first().value<FilamentId>();
    QVERIFY(copy != id);
    QCOMPARE(context.find(copy)->spoolsCount(), 1);
    context.undo();
    QVERIFY(!context.find(copy));
}

void SpoolActionsTest::repeatedStepsAreUndoneTogether()
{
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    const Filament& filament = insertFilament(context, 3, 0);
    const Filament& other = insertFilament(context, 3, 0);
    SpoolActions actions(context, nullptr);
    actions.addSpool(other.id());
    actions.addSpool(filament.id());
    actions.addSpool(filament.id());
    actions.addSpool(filament.id());
    actions.removeSpool(filament.id());
    QCOMPARE(filament.spoolsCount(), 5);

    context.undo();
    QCOMPARE(filament.spoolsCount(), 6);
    context.undo();
    QCOMPARE(filament.spoolsCount(), 3);
    QCOMPARE(other.spoolsCount(), 4);
    context.redo();
    QCOMPARE(filament.spoolsCount(), 6);
    context.undo();
    context.undo();
    QCOMPARE(other.spoolsCount(), 3);
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
    actions.addOpenedSpool(id);
    actions.removeOpenedSpool(id);
    actions.duplicateFilament(id);

    QVERIFY(context.undoActionName().isEmpty());
    QCOMPARE(context.count<Filament>(), 0);
}

void SpoolActionsTest::theMenuActsOnTheTarget()
{
    const auto stock = tests::makeMemoryStock();
    const Filament& filament = insertFilament(stock->context(), 3, 0);
    SpoolActions actions(stock->context(), nullptr);
    QMenu menu;

    actions.addTo(menu);

    QStringList entries;
    for (const QAction* entry : menu.actions()) {
        entries << (entry->isSeparator() ? u"-"_s : entry->icon().name() + u' ' + entry->text());
        const bool needsNoTarget = entry == actions.additionCommand();
        QVERIFY(entry->isSeparator() || entry->isEnabled() == needsNoTarget);
    }
    QCOMPARE(entries,
        (QStringList{u"plus Ajouter un filament"_s, u"-"_s, u"plus.circle Ajouter une bobine"_s,
            u"minus.circle Retirer une bobine"_s, u"-"_s,
            u"plus.circle Ajouter une bobine entamée"_s,
            u"minus.circle Supprimer une bobine entamée"_s, u"-"_s,
            u"doc.on.doc Dupliquer le filament"_s, u"-"_s, u"trash Supprimer"_s}));
    actions.setTarget(filament.id());
    menu.actions().at(2)->trigger();
    menu.actions().at(5)->trigger();
    QCOMPARE(filament.spoolsCount(), 4);
    QCOMPARE(filament.openedSpoolsCount(), 1);
}

REELHOUSE_TEST(SpoolActionsTest)

#include "SpoolActionsTest.moc"
