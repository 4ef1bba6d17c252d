#include "app/editing/FilamentDraft.h"

#include "core/model/StoreContext.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <algorithm>
#include <functional>
#include <limits>

using namespace reelhouse;
using namespace Qt::StringLiterals;

using Edit = std::function<void(FilamentDraft&)>;

class FilamentDraftTest final : public QObject {
    Q_OBJECT

private slots:
    void aNewFilamentStartsFromItsDefaults();
    void loadingCorrectsTheCounts_data();
    void loadingCorrectsTheCounts();
    void loadingCopiesEveryField();
    void loweringTheSpoolsLowersTheOpenedOnes_data();
    void loweringTheSpoolsLowersTheOpenedOnes();
    void aNewFilamentNeedsTypeAndBrand_data();
    void aNewFilamentNeedsTypeAndBrand();
    void everyFieldCountsAsAChange_data();
    void everyFieldCountsAsAChange();
    void aCorrectedCountIsAChange();
    void addingTakesTheTextsAsTheyStand();
    void addingIsOneActionAndNotSavedAtOnce();
    void savingTrimsTheColorNameAndNotTheNotes();
    void savingHoldsTheCounts_data();
    void savingHoldsTheCounts();
    void savingIsOneActionAndSavedAtOnce();
    void aFailureToSaveIsNotTold();
    void anEntryThatIsGoneIsNoLongerChosen();
    void aFilamentThatIsGoneIsNotSaved();
};

namespace {

constexpr qint64 largestCount = std::numeric_limits<qint64>::max();

struct DraftFixture {
    DraftFixture()
    {
        context.processPendingChanges();
        context.clearHistory();
    }

    Filament& insert(qint64 spools, qint64 opened)
    {
        Filament::Values values;
        values.spoolsCount = spools;
        values.openedSpoolsCount = opened;
        values.colorHex = u"#123456"_s;
        values.colorName = u" Bleu "_s;
        values.notes = u"un\ndeux "_s;
        values.dateAddedMs = 1;
        Filament& filament = context.insert(std::make_unique<Filament>(values));
        filament.setType(&type);
        filament.setBrand(&brand);
        filament.setLocation(&location);
        context.processPendingChanges();
        return filament;
    }

    tests::RecordingStore store;
    StoreContext context{store};
    FilamentType& type{context.insert(std::make_unique<FilamentType>(u"PLA"_s))};
    Brand& brand{context.insert(std::make_unique<Brand>(u"Acme"_s))};
    Brand& otherBrand{context.insert(std::make_unique<Brand>(u"Autre"_s))};
    FilamentRange& range{context.insert(std::make_unique<FilamentRange>(u"Mat"_s))};
    Location& location{context.insert(std::make_unique<Location>(u"Étagère 2"_s))};
};

} // namespace

void FilamentDraftTest::aNewFilamentStartsFromItsDefaults()
{
    QCOMPARE(newFilamentDraft(),
        (FilamentDraft{{0, 0, 0, 0}, 1, 0, u"#4CAF50"_s, QString(), QString()}));
}

void FilamentDraftTest::loadingCorrectsTheCounts_data()
{
    QTest::addColumn<qint64>("spools");
    QTest::addColumn<qint64>("opened");
    QTest::addColumn<qint64>("expectedSpools");
    QTest::addColumn<qint64>("expectedOpened");

    QTest::newRow("as they are") << 3LL << 1LL << 3LL << 1LL;
    QTest::newRow("no spool shows as one") << 0LL << 0LL << 1LL << 0LL;
    QTest::newRow("a negative count shows as one") << -4LL << -1LL << 1LL << 0LL;
    QTest::newRow("more opened than spools") << 2LL << 5LL << 2LL << 2LL;
    QTest::newRow("opened without spools") << 0LL << 5LL << 1LL << 1LL;
    QTest::newRow("beyond 99") << 250LL << 120LL << 250LL << 120LL;
    QTest::newRow("the largest") << largestCount << largestCount << largestCount << largestCount;
}

void FilamentDraftTest::loadingCorrectsTheCounts()
{
    QFETCH(qint64, spools);
    QFETCH(qint64, opened);
    DraftFixture fixture;

    const FilamentDraft draft = loadedDraft(fixture.insert(spools, opened));

    QTEST(draft.spoolsCount, "expectedSpools");
    QTEST(draft.openedSpoolsCount, "expectedOpened");
}

void FilamentDraftTest::loadingCopiesEveryField()
{
    DraftFixture fixture;

    const FilamentDraft draft = loadedDraft(fixture.insert(3, 1));

    QCOMPARE(draft,
        (FilamentDraft{
            {fixture.type.id().value, fixture.brand.id().value, 0, fixture.location.id().value}, 3,
            1, u"#123456"_s, u" Bleu "_s, u"un\ndeux "_s}));
}

void FilamentDraftTest::loweringTheSpoolsLowersTheOpenedOnes_data()
{
    QTest::addColumn<qint64>("count");
    QTest::addColumn<qint64>("expectedOpened");

    QTest::newRow("above the opened ones") << 5LL << 3LL;
    QTest::newRow("as many as opened") << 3LL << 3LL;
    QTest::newRow("below the opened ones") << 2LL << 2LL;
    QTest::newRow("none") << 0LL << 0LL;
    QTest::newRow("below none") << -1LL << 0LL;
}

void FilamentDraftTest::loweringTheSpoolsLowersTheOpenedOnes()
{
    QFETCH(qint64, count);
    FilamentDraft draft;
    draft.spoolsCount = 4;
    draft.openedSpoolsCount = 3;

    draft.setSpoolsCount(count);

    QCOMPARE(draft.spoolsCount, count);
    QTEST(draft.openedSpoolsCount, "expectedOpened");
}

void FilamentDraftTest::aNewFilamentNeedsTypeAndBrand_data()
{
    QTest::addColumn<QList<int>>("chosen");
    QTest::addColumn<bool>("expected");

    QTest::newRow("nothing chosen") << QList<int>{0, 0, 0, 0} << false;
    QTest::newRow("a type") << QList<int>{1, 0, 0, 0} << false;
    QTest::newRow("a brand") << QList<int>{0, 1, 0, 0} << false;
    QTest::newRow("a range and a place") << QList<int>{0, 0, 1, 1} << false;
    QTest::newRow("type and brand") << QList<int>{1, 1, 0, 0} << true;
    QTest::newRow("all four") << QList<int>{1, 1, 1, 1} << true;
}

void FilamentDraftTest::aNewFilamentNeedsTypeAndBrand()
{
    QFETCH(QList<int>, chosen);
    FilamentDraft draft;
    std::ranges::copy(chosen, draft.references.begin());

    QTEST(canBeAdded(draft), "expected");
}

void FilamentDraftTest::everyFieldCountsAsAChange_data()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<bool>("expected");

    const auto row = [](const char* name, bool expected, const Edit& edit) {
        QTest::newRow(name) << edit << expected;
    };
    row("nothing", false, [](FilamentDraft&) {});
    row("another type", true, [](FilamentDraft& draft) { draft.references[0] = 7; });
    row("another brand", true, [](FilamentDraft& draft) { draft.references[1] = 7; });
    row("a range", true, [](FilamentDraft& draft) { draft.references[2] = 1; });
    row("no place", true, [](FilamentDraft& draft) { draft.references[3] = 0; });
    row("spools", true, [](FilamentDraft& draft) { draft.spoolsCount = 4; });
    row("opened spools", true, [](FilamentDraft& draft) { draft.openedSpoolsCount = 0; });
    row("colour", true, [](FilamentDraft& draft) { draft.colorHex = u"#123457"_s; });
    row("colour, another case", true, [](FilamentDraft& draft) { draft.colorHex = u"123456"_s; });
    row("colour's name, trimmed", true, [](FilamentDraft& draft) { draft.colorName = u"Bleu"_s; });
    row("notes, without a space", true, [](FilamentDraft& draft) { draft.notes.chop(1); });
    row("changed and changed back", false, [](FilamentDraft& draft) {
        draft.setSpoolsCount(9);
        draft.setSpoolsCount(3);
        draft.notes += u'x';
        draft.notes.chop(1);
    });
}

void FilamentDraftTest::everyFieldCountsAsAChange()
{
    QFETCH(Edit, edit);
    DraftFixture fixture;
    const Filament& filament = fixture.insert(3, 1);
    FilamentDraft draft = loadedDraft(filament);

    edit(draft);

    QTEST(hasChanges(draft, filament), "expected");
}

void FilamentDraftTest::aCorrectedCountIsAChange()
{
    DraftFixture fixture;
    const Filament& none = fixture.insert(0, 0);
    const Filament& many = fixture.insert(largestCount, 0);

    QVERIFY(hasChanges(loadedDraft(none), none));
    QVERIFY(!hasChanges(loadedDraft(many), many));
}

void FilamentDraftTest::addingTakesTheTextsAsTheyStand()
{
    DraftFixture fixture;
    FilamentDraft draft = newFilamentDraft();
    draft.references = {fixture.type.id().value, fixture.brand.id().value, fixture.range.id().value,
        fixture.location.id().value};
    draft.spoolsCount = 7;
    draft.openedSpoolsCount = 2;
    draft.colorHex = u"#80FF0000"_s;
    draft.colorName = u"  Rouge "_s;
    draft.notes = u"\n deux lignes\n"_s;
    const QDateTime before = QDateTime::currentDateTimeUtc();

    addFilament(fixture.context, draft);

    QCOMPARE(fixture.context.count<Filament>(), 1);
    const Filament& filament = *fixture.context.fetchAll<Filament>().front();
    QCOMPARE(loadedDraft(filament), draft);
    QVERIFY(filament.dateAdded() >= before.addMSecs(-1));
    QVERIFY(filament.dateAdded() <= QDateTime::currentDateTimeUtc());
}

void FilamentDraftTest::addingIsOneActionAndNotSavedAtOnce()
{
    DraftFixture fixture;
    const qsizetype commits = fixture.store.commits.size();

    addFilament(fixture.context, newFilamentDraft());

    QCOMPARE(fixture.context.undoActionName(), u"Ajouter un filament"_s);
    QCOMPARE(fixture.store.commits.size(), commits);
    QTRY_COMPARE(fixture.store.commits.size(), commits + 1);
    fixture.context.undo();
    QCOMPARE(fixture.context.count<Filament>(), 0);
    QVERIFY(fixture.context.undoActionName().isEmpty());
    QCOMPARE(fixture.context.redoActionName(), u"Ajouter un filament"_s);
}

void FilamentDraftTest::savingTrimsTheColorNameAndNotTheNotes()
{
    DraftFixture fixture;
    Filament& filament = fixture.insert(3, 1);
    FilamentDraft draft = loadedDraft(filament);
    draft.colorHex = u" #fff"_s;
    draft.colorName = u"\u00A0\n Rouge vif\t "_s;
    draft.notes = u"  notes\n\n"_s;
    draft.references = {0, fixture.otherBrand.id().value, fixture.range.id().value, 0};

    saveFilament(fixture.context, filament.id(), draft);

    draft.colorName = u"Rouge vif"_s;
    QCOMPARE(loadedDraft(filament), draft);
    QCOMPARE(filament.dateAdded().toMSecsSinceEpoch(), 1);
    QCOMPARE(fixture.otherBrand.filamentCount(), 1);
    QCOMPARE(fixture.brand.filamentCount(), 0);
}

void FilamentDraftTest::savingHoldsTheCounts_data()
{
    QTest::addColumn<qint64>("spools");
    QTest::addColumn<qint64>("opened");
    QTest::addColumn<qint64>("expectedSpools");
    QTest::addColumn<qint64>("expectedOpened");

    QTest::newRow("as they are") << 5LL << 2LL << 5LL << 2LL;
    QTest::newRow("no spool is saved as one") << 0LL << 0LL << 1LL << 0LL;
    QTest::newRow("negative ones") << -3LL << -2LL << 1LL << 0LL;
    QTest::newRow("more opened than spools") << 2LL << 4LL << 2LL << 2LL;
    QTest::newRow("beyond 99") << 4000LL << 100LL << 4000LL << 100LL;
    QTest::newRow("the largest") << largestCount << largestCount << largestCount << largestCount;
}

void FilamentDraftTest::savingHoldsTheCounts()
{
    QFETCH(qint64, spools);
    QFETCH(qint64, opened);
    DraftFixture fixture;
    Filament& filament = fixture.insert(3, 1);
    FilamentDraft draft = loadedDraft(filament);
    draft.spoolsCount = spools;
    draft.openedSpoolsCount = opened;

    saveFilament(fixture.context, filament.id(), draft);

    QTEST(filament.spoolsCount(), "expectedSpools");
    QTEST(filament.openedSpoolsCount(), "expectedOpened");
}

void FilamentDraftTest::savingIsOneActionAndSavedAtOnce()
{
    DraftFixture fixture;
    Filament& filament = fixture.insert(3, 1);
    fixture.context.clearHistory();
    FilamentDraft draft = loadedDraft(filament);
    const FilamentDraft before = draft;
    draft.notes = u"neuf"_s;
    draft.spoolsCount = 8;
    draft.reference(ReferenceKind::Type) = 0;
    const qsizetype commits = fixture.store.commits.size();

    saveFilament(fixture.context, filament.id(), draft);

    QCOMPARE(fixture.store.commits.size(), commits + 1);
    QCOMPARE(fixture.context.undoActionName(), u"Modifier un filament"_s);
    fixture.context.undo();
    QCOMPARE(loadedDraft(filament), before);
    QVERIFY(fixture.context.undoActionName().isEmpty());
}

void FilamentDraftTest::aFailureToSaveIsNotTold()
{
    DraftFixture fixture;
    Filament& filament = fixture.insert(3, 1);
    FilamentDraft draft = loadedDraft(filament);
    draft.spoolsCount = 8;
    fixture.store.error = StoreError{};

    saveFilament(fixture.context, filament.id(), draft);

    QCOMPARE(filament.spoolsCount(), 8);
    QVERIFY(fixture.context.hasUnsavedChanges());
    fixture.store.error.reset();
    fixture.context.processPendingChanges();
    QVERIFY(!fixture.context.hasUnsavedChanges());
    QCOMPARE(fixture.store.commits.last(), QStringList{u"~Filament 1"_s});
}

void FilamentDraftTest::anEntryThatIsGoneIsNoLongerChosen()
{
    DraftFixture fixture;
    Filament& filament = fixture.insert(3, 1);
    FilamentDraft draft = loadedDraft(filament);
    fixture.context.remove(fixture.brand);

    FilamentDraft refreshed = draft;
    refreshed.forgetMissingReferences(fixture.context);
    QVERIFY(!hasChanges(refreshed, filament));
    QVERIFY(!canBeAdded(refreshed));
    QCOMPARE(refreshed.reference(ReferenceKind::Type), fixture.type.id().value);

    // And were it not refreshed in time.
    saveFilament(fixture.context, filament.id(), draft);
    QVERIFY(!filament.brand());
    QCOMPARE(filament.type(), &fixture.type);
}

void FilamentDraftTest::aFilamentThatIsGoneIsNotSaved()
{
    DraftFixture fixture;
    Filament& filament = fixture.insert(3, 1);
    const FilamentId id = filament.id();
    const FilamentDraft draft = loadedDraft(filament);
    fixture.context.remove(filament);
    fixture.context.clearHistory();

    saveFilament(fixture.context, id, draft);

    QCOMPARE(fixture.context.count<Filament>(), 0);
    QVERIFY(fixture.context.undoActionName().isEmpty());
}

REELHOUSE_TEST(FilamentDraftTest)

#include "FilamentDraftTest.moc"
