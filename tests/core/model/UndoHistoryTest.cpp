#include "core/model/UndoHistory.h"

#include "tests/core/model/UndoFixture.h"
#include "tests/support/StockPicture.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using reelhouse::tests::insertFilament;
using reelhouse::tests::pictureOf;
using reelhouse::tests::UndoFixture;
using namespace Qt::StringLiterals;

using Edit = std::function<void(StoreContext&)>;

class UndoHistoryTest final : public QObject {
    Q_OBJECT

private slots:
    void historyTellsTheNamesOfItsActions();
    void actionThatChangesNothingLeavesNoTrace();
    void newActionForgetsWhatWasUndone();
    void innerActionJoinsTheOuterOne();
    void repeatedActionsAreOneToUndo_data();
    void repeatedActionsAreOneToUndo();
    void savingForgetsNoAction();
    void hundredActionsAreKept();
    void clearedHistoryUndoesNothing();
};

void UndoHistoryTest::historyTellsTheNamesOfItsActions()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    QCOMPARE(context.undoActionName(), QString());
    QCOMPARE(context.redoActionName(), QString());

    context.perform(u"Ajouter une bobine"_s, [&] { fixture.filament(1).setSpoolsCount(3); });
    context.perform(u"Retirer une bobine"_s, [&] { fixture.filament(1).setSpoolsCount(2); });
    QCOMPARE(context.undoActionName(), u"Retirer une bobine"_s);
    QCOMPARE(context.redoActionName(), QString());

    context.undo();
    QCOMPARE(context.undoActionName(), u"Ajouter une bobine"_s);
    QCOMPARE(context.redoActionName(), u"Retirer une bobine"_s);

    context.undo();
    context.undo();
    QCOMPARE(context.undoActionName(), QString());
    QCOMPARE(context.redoActionName(), u"Ajouter une bobine"_s);

    context.redo();
    context.redo();
    context.redo();
    QCOMPARE(context.undoActionName(), u"Retirer une bobine"_s);
    QCOMPARE(context.redoActionName(), QString());
}

void UndoHistoryTest::actionThatChangesNothingLeavesNoTrace()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;

    context.perform(u"Rien"_s, [] {});
    context.perform(u"Aller et retour"_s, [&] {
        fixture.filament(1).setSpoolsCount(8);
        fixture.filament(1).setSpoolsCount(2);
        context.remove(context.insert(std::make_unique<Brand>(u"Éphémère"_s)));
    });

    QCOMPARE(context.undoActionName(), QString());
}

void UndoHistoryTest::newActionForgetsWhatWasUndone()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    context.perform(u"Ajouter"_s, [&] { context.insert(std::make_unique<Brand>(u"Neuve"_s)); });
    context.undo();

    context.perform(u"Rien"_s, [] {});
    QCOMPARE(context.redoActionName(), u"Ajouter"_s);
    context.perform(u"Modifier"_s, [&] { fixture.filament(1).setSpoolsCount(3); });
    context.save();

    QCOMPARE(context.redoActionName(), QString());
    context.redo();
    QCOMPARE(context.count<Brand>(), 2);
}

void UndoHistoryTest::innerActionJoinsTheOuterOne()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    const QStringList before = pictureOf(context);

    context.perform(u"Dehors"_s, [&] {
        fixture.filament(1).setSpoolsCount(5);
        context.perform(u"Dedans"_s, [&] { fixture.filament(2).setSpoolsCount(6); });
        QCOMPARE(context.undoActionName(), QString());
        fixture.filament(3).setSpoolsCount(7);
    });

    QCOMPARE(context.undoActionName(), u"Dehors"_s);
    context.undo();
    QCOMPARE(pictureOf(context), before);
    QCOMPARE(context.undoActionName(), QString());
}

void UndoHistoryTest::repeatedActionsAreOneToUndo_data()
{
    QTest::addColumn<Edit>("between");
    QTest::addColumn<QString>("secondName");
    QTest::addColumn<qint64>("secondFilament");
    QTest::addColumn<qint64>("expectedAfterOneUndo");

    const Edit nothing = [](StoreContext&) {};
    QTest::newRow("the same again") << nothing << u"Plus"_s << 1LL << 2LL;
    QTest::newRow("another name") << nothing << u"Moins"_s << 1LL << 3LL;
    QTest::newRow("another filament") << nothing << u"Plus"_s << 2LL << 3LL;
    QTest::newRow("saved in between")
        << Edit([](StoreContext& context) { context.save(); }) << u"Plus"_s << 1LL << 2LL;
    QTest::newRow("changed by no action in between")
        << Edit([](StoreContext& context) { context.find(FilamentId{1})->setNotes(u"autre"_s); })
        << u"Plus"_s << 1LL << 3LL;
    QTest::newRow("another action in between") << Edit([](StoreContext& context) {
        context.perform(u"Noter"_s, [&] { context.find(FilamentId{3})->setNotes(u"autre"_s); });
    }) << u"Plus"_s << 1LL << 3LL;
    QTest::newRow("something undone in between") << Edit([](StoreContext& context) {
        context.perform(u"Noter"_s, [&] { context.find(FilamentId{3})->setNotes(u"autre"_s); });
        context.undo();
    }) << u"Plus"_s << 1LL << 3LL;
}

void UndoHistoryTest::repeatedActionsAreOneToUndo()
{
    QFETCH(Edit, between);
    QFETCH(QString, secondName);
    QFETCH(qint64, secondFilament);
    UndoFixture fixture;
    const auto addSpool = [&](const QString& name, qint64 id) {
        fixture.context.performRepeated(name,
            [&] { fixture.filament(id).setSpoolsCount(fixture.filament(id).spoolsCount() + 1); });
    };

    addSpool(u"Plus"_s, 1);
    between(fixture.context);
    addSpool(secondName, secondFilament);
    fixture.context.undo();

    QTEST(fixture.filament(1).spoolsCount(), "expectedAfterOneUndo");
}

void UndoHistoryTest::savingForgetsNoAction()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    const QStringList before = pictureOf(context);
    context.perform(u"Un"_s, [&] { fixture.filament(1).setSpoolsCount(5); });
    context.save();
    context.perform(u"Deux"_s, [&] { context.remove(fixture.filament(1)); });
    context.save();
    context.save();

    context.undo();
    context.save();
    context.undo();

    QCOMPARE(pictureOf(context), before);
}

void UndoHistoryTest::hundredActionsAreKept()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    for (qint64 count = 1; count <= 103; ++count) {
        context.perform(QString::number(count), [&] {
            fixture.filament(1).setSpoolsCount(1000 + count);
            insertFilament(context);
        });
        context.save();
    }

    int undone = 0;
    while (!context.undoActionName().isEmpty()) {
        context.undo();
        ++undone;
    }

    QCOMPARE(undone, 100);
    QCOMPARE(fixture.filament(1).spoolsCount(), 1003);
    QCOMPARE(context.count<Filament>(), 6);
}

void UndoHistoryTest::clearedHistoryUndoesNothing()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    context.perform(u"Supprimer"_s, [&] { context.remove(fixture.filament(1)); });
    context.perform(u"Modifier"_s, [&] { fixture.filament(2).setSpoolsCount(5); });
    context.undo();

    context.clearHistory();
    context.save();

    QCOMPARE(context.undoActionName(), QString());
    QCOMPARE(context.redoActionName(), QString());
    context.undo();
    context.redo();
    QCOMPARE(context.count<Filament>(), 2);
    QCOMPARE(fixture.filament(2).spoolsCount(), 2);
}

REELHOUSE_TEST(UndoHistoryTest)

#include "UndoHistoryTest.moc"
