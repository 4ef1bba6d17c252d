#include "core/model/StoreContext.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/StockPicture.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace reelhouse;
using reelhouse::tests::pictureOf;
using namespace Qt::StringLiterals;

using Edit = std::function<void(StoreContext&)>;

class UndoTest final : public QObject {
    Q_OBJECT

private slots:
    void everyKindOfChangeIsUndoneAndDoneAgain_data();
    void everyKindOfChangeIsUndoneAndDoneAgain();
    void sameObjectsComeBack();
    void historyTellsTheNamesOfItsActions();
    void actionThatChangesNothingLeavesNoTrace();
    void newActionForgetsWhatWasUndone();
    void innerActionJoinsTheOuterOne();
    void repeatedActionsAreOneToUndo_data();
    void repeatedActionsAreOneToUndo();
    void changesOutsideAnActionAreNotUndone();
    void undoLeavesFieldsAloneThatItsActionDidNotChange();
    void removalOutsideAnActionStands();
    void insertionDoneAgainKeepsWhatWasChangedSince();
    void undoIsAnnouncedAndSavedLikeAnyEdit();
    void savingForgetsNoAction();
    void hundredActionsAreKept();
    void clearedHistoryUndoesNothing();
};

namespace {

Filament& insertFilament(StoreContext& context, FilamentType* type = nullptr,
    Brand* brand = nullptr, FilamentRange* range = nullptr, Location* location = nullptr)
{
    return context.insert(std::make_unique<Filament>(
        type, brand, range, location, 2, 1, u"#E53935"_s, u"Rouge"_s, u"note"_s));
}

/// Two entries of each list and three filaments, of which the first two use the first entries.
struct UndoFixture {
    tests::RecordingStore store;
    StoreContext context{store};

    UndoFixture()
    {
        for (const QString& name : {u"Un"_s, u"Deux"_s}) {
            context.insert(std::make_unique<FilamentType>(name));
            context.insert(std::make_unique<Brand>(name));
            context.insert(std::make_unique<FilamentRange>(name));
            context.insert(std::make_unique<Location>(name));
        }
        for (int count = 0; count < 2; ++count)
            insertFilament(context, context.find(FilamentTypeId{1}), context.find(BrandId{1}),
                context.find(FilamentRangeId{1}), context.find(LocationId{1}));
        insertFilament(context);
        context.save();
        store.commits.clear();
    }

    Filament& filament(qint64 id) { return *context.find(FilamentId{id}); }
    Brand& brand(qint64 id) { return *context.find(BrandId{id}); }
};

} // namespace

void UndoTest::everyKindOfChangeIsUndoneAndDoneAgain_data()
{
    QTest::addColumn<Edit>("edit");

    const auto onFirst = [](void (*change)(Filament&)) {
        return Edit([change](StoreContext& c) { change(*c.find(FilamentId{1})); });
    };
    QTest::newRow("spools") << onFirst([](Filament& f) { f.setSpoolsCount(9); });
    QTest::newRow("opened") << onFirst([](Filament& f) { f.setOpenedSpoolsCount(0); });
    QTest::newRow("colour code") << onFirst([](Filament& f) { f.setColorHex(u"#000000"_s); });
    QTest::newRow("colour name") << onFirst([](Filament& f) { f.setColorName(u"Noir"_s); });
    QTest::newRow("notes") << onFirst([](Filament& f) { f.setNotes(u"neuf"_s); });
    QTest::newRow("date") << onFirst(
        [](Filament& f) { f.setDateAdded(QDateTime::fromMSecsSinceEpoch(5, Qt::UTC)); });
    QTest::newRow("type none") << onFirst([](Filament& f) { f.setType(nullptr); });
    QTest::newRow("brand none") << onFirst([](Filament& f) { f.setBrand(nullptr); });
    QTest::newRow("range none") << onFirst([](Filament& f) { f.setRange(nullptr); });
    QTest::newRow("location none") << onFirst([](Filament& f) { f.setLocation(nullptr); });
    QTest::newRow("another brand")
        << Edit([](StoreContext& c) { c.find(FilamentId{1})->setBrand(c.find(BrandId{2})); });
    QTest::newRow("all fields of one filament") << onFirst([](Filament& f) {
        f.setSpoolsCount(1);
        f.setOpenedSpoolsCount(0);
        f.setColorHex(QString());
        f.setNotes(QString());
        f.setType(nullptr);
        f.setLocation(nullptr);
    });
    QTest::newRow("new filament") << Edit([](StoreContext& c) {
        insertFilament(c, c.find(FilamentTypeId{1}), nullptr, nullptr, c.find(LocationId{2}));
    });
    QTest::newRow("filament removed")
        << Edit([](StoreContext& c) { c.remove(*c.find(FilamentId{1})); });
    QTest::newRow("filament edited and removed") << Edit([](StoreContext& c) {
        c.find(FilamentId{2})->setNotes(u"à jeter"_s);
        c.find(FilamentId{2})->setBrand(c.find(BrandId{2}));
        c.remove(*c.find(FilamentId{2}));
    });
    QTest::newRow("type with filaments removed")
        << Edit([](StoreContext& c) { c.remove(*c.find(FilamentTypeId{1})); });
    QTest::newRow("brand with filaments removed")
        << Edit([](StoreContext& c) { c.remove(*c.find(BrandId{1})); });
    QTest::newRow("range with filaments removed")
        << Edit([](StoreContext& c) { c.remove(*c.find(FilamentRangeId{1})); });
    QTest::newRow("location with filaments removed")
        << Edit([](StoreContext& c) { c.remove(*c.find(LocationId{1})); });
    QTest::newRow("type renamed") << Edit([](StoreContext& c) {
        c.find(FilamentTypeId{1})->setName(u"PETG"_s);
        c.find(FilamentTypeId{1})->setIconName(u"leaf.fill"_s);
    });
    QTest::newRow("brand, range and location renamed") << Edit([](StoreContext& c) {
        c.find(BrandId{1})->setName(u"Trois"_s);
        c.find(FilamentRangeId{2})->setName(u"Quatre"_s);
        c.find(LocationId{2})->setName(u"Cinq"_s);
    });
    QTest::newRow("new brand with a new filament, and an old one moved to it")
        << Edit([](StoreContext& c) {
               Brand& brand = c.insert(std::make_unique<Brand>(u"Neuve"_s));
               insertFilament(c, nullptr, &brand);
               c.find(FilamentId{1})->setBrand(&brand);
           });
    QTest::newRow("everything replaced") << Edit([](StoreContext& c) {
        for (const qint64 id : {1, 2, 3})
            c.remove(*c.find(FilamentId{id}));
        for (const qint64 id : {1, 2}) {
            c.remove(*c.find(FilamentTypeId{id}));
            c.remove(*c.find(BrandId{id}));
            c.remove(*c.find(FilamentRangeId{id}));
            c.remove(*c.find(LocationId{id}));
        }
        insertFilament(c, &c.insert(std::make_unique<FilamentType>(u"Neuf"_s)));
    });
}

void UndoTest::everyKindOfChangeIsUndoneAndDoneAgain()
{
    QFETCH(Edit, edit);
    for (const bool savesBetween : {false, true}) {
        UndoFixture fixture;
        StoreContext& context = fixture.context;
        const auto pause = [&] {
            if (savesBetween)
                context.save();
        };
        const QStringList before = pictureOf(context);
        context.perform(u"Modifier"_s, [&] { edit(context); });
        const QStringList after = pictureOf(context);
        QVERIFY(after != before);

        for (int round = 0; round < 2; ++round) {
            pause();
            context.undo();
            QCOMPARE(pictureOf(context), before);
            pause();
            context.redo();
            QCOMPARE(pictureOf(context), after);
        }
    }
}

void UndoTest::sameObjectsComeBack()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    Brand* brand = &fixture.brand(1);
    Filament* filament = &fixture.filament(2);

    context.perform(u"Supprimer"_s, [&] {
        context.remove(*brand);
        context.remove(*filament);
    });
    context.save();
    QCOMPARE(context.find(BrandId{1}), nullptr);
    context.undo();

    QCOMPARE(context.find(BrandId{1}), brand);
    QCOMPARE(context.find(FilamentId{2}), filament);
    QCOMPARE(context.fetchAll<Filament>()[1].get(), filament);
    QCOMPARE(filament->brand(), brand);
    QCOMPARE(fixture.filament(1).brand(), brand);
}

void UndoTest::historyTellsTheNamesOfItsActions()
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

void UndoTest::actionThatChangesNothingLeavesNoTrace()
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

void UndoTest::newActionForgetsWhatWasUndone()
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

void UndoTest::innerActionJoinsTheOuterOne()
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

void UndoTest::repeatedActionsAreOneToUndo_data()
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

void UndoTest::repeatedActionsAreOneToUndo()
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

void UndoTest::changesOutsideAnActionAreNotUndone()
{
    UndoFixture fixture;
    fixture.filament(1).setSpoolsCount(5);

    QCOMPARE(fixture.context.undoActionName(), QString());
    fixture.context.undo();

    QCOMPARE(fixture.filament(1).spoolsCount(), 5);
}

void UndoTest::undoLeavesFieldsAloneThatItsActionDidNotChange()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    context.perform(u"Modifier"_s, [&] {
        fixture.filament(1).setSpoolsCount(5);
        fixture.filament(1).setBrand(&fixture.brand(2));
    });
    fixture.filament(1).setNotes(u"depuis"_s);
    fixture.filament(1).setType(nullptr);

    context.undo();
    QCOMPARE(fixture.filament(1).spoolsCount(), 2);
    QCOMPARE(fixture.filament(1).brand(), &fixture.brand(1));
    QCOMPARE(fixture.filament(1).notes(), u"depuis"_s);
    QCOMPARE(fixture.filament(1).type(), nullptr);

    fixture.filament(1).setNotes(u"encore"_s);
    context.redo();
    QCOMPARE(fixture.filament(1).spoolsCount(), 5);
    QCOMPARE(fixture.filament(1).brand(), &fixture.brand(2));
    QCOMPARE(fixture.filament(1).notes(), u"encore"_s);
    QCOMPARE(fixture.filament(1).type(), nullptr);
}

void UndoTest::removalOutsideAnActionStands()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    context.perform(u"Modifier"_s, [&] {
        fixture.filament(1).setSpoolsCount(5);
        fixture.filament(1).setBrand(&fixture.brand(2));
        fixture.filament(2).setBrand(&fixture.brand(2));
    });
    context.remove(fixture.filament(1));
    context.remove(fixture.brand(1));
    context.save();

    context.undo();
    QCOMPARE(context.find(FilamentId{1}), nullptr);
    QCOMPARE(fixture.filament(2).brand(), nullptr);
    context.redo();
    QCOMPARE(context.count<Filament>(), 2);
    QCOMPARE(fixture.filament(2).brand(), &fixture.brand(2));
}

void UndoTest::insertionDoneAgainKeepsWhatWasChangedSince()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    context.perform(u"Ajouter"_s, [&] { insertFilament(context, nullptr, &fixture.brand(1)); });
    fixture.filament(4).setNotes(u"depuis"_s);
    fixture.filament(4).setBrand(&fixture.brand(2));
    const QStringList after = pictureOf(context);

    context.undo();
    context.save();
    context.redo();

    QCOMPARE(pictureOf(context), after);
}

void UndoTest::undoIsAnnouncedAndSavedLikeAnyEdit()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    context.perform(u"Supprimer"_s, [&] { context.remove(fixture.brand(1)); });
    context.save();
    fixture.store.commits.clear();
    const QSignalSpy changed(&context, &StoreContext::changed);

    context.undo();
    QVERIFY(context.hasUnsavedChanges());
    QCoreApplication::processEvents();

    QCOMPARE(changed.size(), 1);
    QCOMPARE(fixture.store.commits,
        (QList<QStringList>{{u"+Brand 1"_s, u"~Filament 1"_s, u"~Filament 2"_s}}));

    context.redo();
    context.undo();
    context.save();
    QCOMPARE(fixture.store.commits.size(), 1);
}

void UndoTest::savingForgetsNoAction()
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

void UndoTest::hundredActionsAreKept()
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

void UndoTest::clearedHistoryUndoesNothing()
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

REELHOUSE_TEST(UndoTest)

#include "UndoTest.moc"
