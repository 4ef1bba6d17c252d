#include "tests/core/model/UndoFixture.h"
#include "tests/support/StockPicture.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace reelhouse;
using reelhouse::tests::insertFilament;
using reelhouse::tests::pictureOf;
using reelhouse::tests::UndoFixture;
using namespace Qt::StringLiterals;

using Edit = std::function<void(StoreContext&)>;

class UndoTest final : public QObject {
    Q_OBJECT

private slots:
    void everyKindOfChangeIsUndoneAndDoneAgain_data();
    void everyKindOfChangeIsUndoneAndDoneAgain();
    void sameObjectsComeBack();
    void whatComesBackStandsAtItsOldPlace();
    void changesOutsideAnActionAreNotUndone();
    void undoLeavesFieldsAloneThatItsActionDidNotChange();
    void removalOutsideAnActionStands();
    void insertionDoneAgainKeepsWhatWasChangedSince();
    void undoIsAnnouncedAndSavedLikeAnyEdit();
};

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

void UndoTest::whatComesBackStandsAtItsOldPlace()
{
    UndoFixture fixture;
    StoreContext& context = fixture.context;
    for (int count = 0; count < 9; ++count)
        insertFilament(context);
    context.perform(u"Supprimer"_s, [&] {
        for (const qint64 id : {12, 2, 7, 5})
            context.remove(fixture.filament(id));
    });
    context.save();

    // Nobody reads the stock in between.
    context.undo();
    context.remove(fixture.filament(7));
    insertFilament(context);
    context.remove(fixture.filament(1));

    QList<qint64> ids;
    for (const auto& filament : context.fetchAll<Filament>()) {
        QCOMPARE(qsizetype(filament->row()), ids.size());
        ids << filament->id().value;
    }
    QCOMPARE(ids, (QList<qint64>{2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 13}));
    for (const qint64 id : ids)
        QCOMPARE(context.find(FilamentId{id})->id().value, id);
    QCOMPARE(context.find(FilamentId{7}), nullptr);
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

REELHOUSE_TEST(UndoTest)

#include "UndoTest.moc"
