#include "app/editing/ReferenceList.h"

#include "app/editing/PickerEntries.h"
#include "core/model/StoreContext.h"
#include "tests/support/MemoryStock.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class ReferenceListTest final : public QObject {
    Q_OBJECT

private slots:
    void entriesAreSortedLikeFiles();
    void equalNamesKeepTheirOrder();
    void namesAreComparedLoosely_data();
    void namesAreComparedLoosely();
    void theEditedEntryMayKeepItsName();
    void listsDoNotShareTheirNames();
    void everyListIsEditedAndUndone_data();
    void everyListIsEditedAndUndone();
    void aTypeIsGivenItsIcon();
    void filamentsLoseADeletedEntryAndGetItBack();
    void anEntryThatIsGoneIsPassedOver();
    void everyChangeIsSavedAtOnce();
    void aFailedSaveKeepsTheChange();
};

namespace {

struct ReferenceListFixture {
    explicit ReferenceListFixture(ReferenceKind kind)
        : list(context, kind)
    {
    }

    QStringList names() const
    {
        QStringList names;
        for (const ReferenceId id : list.sortedEntries())
            names += list.find(id)->name();
        return names;
    }

    std::unique_ptr<StoreContainer> stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    ReferenceList list;
};

} // namespace

void ReferenceListTest::entriesAreSortedLikeFiles()
{
    ReferenceListFixture fixture(ReferenceKind::Location);

    for (const QString& name : {u"tiroir 10"_s, u"Étagère"_s, u"Tiroir 2"_s, u"abri"_s, u"Zone"_s})
        fixture.list.add(name);

    QCOMPARE(fixture.names(),
        QStringList({u"abri"_s, u"Étagère"_s, u"Tiroir 2"_s, u"tiroir 10"_s, u"Zone"_s}));
}

void ReferenceListTest::equalNamesKeepTheirOrder()
{
    ReferenceListFixture fixture(ReferenceKind::Range);
    QStringList expected;
    // More than a sort that is not stable leaves in order by chance.
    for (int number = 0; number < 40; ++number) {
        QString name = u"pla mat"_s;
        name[number % 7] = name[number % 7].toUpper();
        expected += name;
        fixture.list.add(name);
        fixture.list.add(u"Autre %1"_s.arg(number));
    }

    QCOMPARE(fixture.names().last(40), expected);
    QStringList inPicker;
    for (const PickerEntry& entry : pickerEntries(fixture.context, ReferenceKind::Range))
        inPicker += entry.name;
    QCOMPARE(inPicker.last(40), expected);
}

void ReferenceListTest::namesAreComparedLoosely_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<NameCheck>("expected");

    QTest::newRow("the same") << u"Prusament"_s << NameCheck::Taken;
    QTest::newRow("small letters") << u"prusament"_s << NameCheck::Taken;
    QTest::newRow("capitals between spaces") << u"  PRUSAMENT  "_s << NameCheck::Taken;
    QTest::newRow("with an accent") << u"Prusamènt"_s << NameCheck::Taken;
    QTest::newRow("a decomposed accent") << u"Prusame\u0300nt"_s << NameCheck::Taken;
    QTest::newRow("line breaks around") << u"\nprusament\u2028"_s << NameCheck::Taken;
    QTest::newRow("a letter more") << u"Prusament+"_s << NameCheck::Free;
    QTest::newRow("a space within") << u"Prusa ment"_s << NameCheck::Free;
    QTest::newRow("nothing") << u""_s << NameCheck::Blank;
    QTest::newRow("spaces only") << u"   "_s << NameCheck::Blank;
    QTest::newRow("white space of all sorts") << u"\t\u00A0\u3000\n"_s << NameCheck::Blank;
    QTest::newRow("a name that folds to nothing") << u"\u0301"_s << NameCheck::Free;
}

void ReferenceListTest::namesAreComparedLoosely()
{
    QFETCH(QString, typed);
    ReferenceListFixture fixture(ReferenceKind::Brand);
    fixture.list.add(u"Prusament"_s);
    fixture.list.add(u"\u0302"_s);

    QTEST(fixture.list.check(typed), "expected");
}

void ReferenceListTest::theEditedEntryMayKeepItsName()
{
    ReferenceListFixture fixture(ReferenceKind::Brand);
    fixture.list.add(u"Prusament"_s);
    fixture.list.add(u"Sunlu"_s);
    const ReferenceId prusament = fixture.list.sortedEntries().front();

    QCOMPARE(fixture.list.check(u"prusament"_s, prusament), NameCheck::Free);
    QCOMPARE(fixture.list.check(u"sunlu"_s, prusament), NameCheck::Taken);
}

void ReferenceListTest::listsDoNotShareTheirNames()
{
    ReferenceListFixture fixture(ReferenceKind::Brand);
    fixture.list.add(u"Atelier"_s);

    const ReferenceList locations(fixture.context, ReferenceKind::Location);
    QCOMPARE(locations.check(u"Atelier"_s), NameCheck::Free);
}

void ReferenceListTest::everyListIsEditedAndUndone_data()
{
    QTest::addColumn<ReferenceKind>("kind");
    QTest::addColumn<QStringList>("actions");

    using enum ReferenceKind;
    QTest::newRow("types") << Type
                           << QStringList{u"Ajouter un type"_s, u"Modifier le type"_s,
                                  u"Supprimer le type"_s};
    QTest::newRow("brands") << Brand
                            << QStringList{u"Ajouter une marque"_s, u"Modifier la marque"_s,
                                   u"Supprimer la marque"_s};
    QTest::newRow("ranges") << Range
                            << QStringList{u"Ajouter une gamme"_s, u"Modifier la gamme"_s,
                                   u"Supprimer la gamme"_s};
    QTest::newRow("locations") << Location
                               << QStringList{u"Ajouter un lieu"_s, u"Modifier le lieu"_s,
                                      u"Supprimer le lieu"_s};
}

void ReferenceListTest::everyListIsEditedAndUndone()
{
    QFETCH(ReferenceKind, kind);
    QFETCH(QStringList, actions);
    ReferenceListFixture fixture(kind);

    fixture.list.add(u"  Premier nom "_s, u"drop.fill"_s);
    QCOMPARE(fixture.names(), QStringList{u"Premier nom"_s});
    QCOMPARE(fixture.context.undoActionName(), actions[0]);
    const ReferenceId id = fixture.list.sortedEntries().front();

    fixture.list.edit(id, u" Second nom\n"_s, u"drop.fill"_s);
    QCOMPARE(fixture.names(), QStringList{u"Second nom"_s});
    QCOMPARE(fixture.context.undoActionName(), actions[1]);

    fixture.list.remove(id);
    QCOMPARE(fixture.names(), QStringList());
    QCOMPARE(fixture.context.undoActionName(), actions[2]);

    fixture.context.undo();
    QCOMPARE(fixture.names(), QStringList{u"Second nom"_s});
    QCOMPARE(fixture.list.sortedEntries().front(), id);
    fixture.context.undo();
    QCOMPARE(fixture.names(), QStringList{u"Premier nom"_s});
    fixture.context.undo();
    QCOMPARE(fixture.names(), QStringList());
    fixture.context.redo();
    fixture.context.redo();
    QCOMPARE(fixture.names(), QStringList{u"Second nom"_s});
}

void ReferenceListTest::aTypeIsGivenItsIcon()
{
    ReferenceListFixture fixture(ReferenceKind::Type);
    fixture.list.add(u"PLA"_s, u"leaf.fill"_s);
    const ReferenceId id = fixture.list.sortedEntries().front();
    QCOMPARE(fixture.list.symbol(*fixture.list.find(id)), u"leaf.fill"_s);

    fixture.list.edit(id, u"PLA"_s, u"star.fill"_s);
    QCOMPARE(fixture.list.symbol(*fixture.list.find(id)), u"star.fill"_s);

    fixture.context.undo();
    QCOMPARE(fixture.list.symbol(*fixture.list.find(id)), u"leaf.fill"_s);
}

void ReferenceListTest::filamentsLoseADeletedEntryAndGetItBack()
{
    ReferenceListFixture fixture(ReferenceKind::Brand);
    fixture.list.add(u"Sunlu"_s);
    const ReferenceId id = fixture.list.sortedEntries().front();
    Filament& filament = fixture.context.insert(
        std::make_unique<Filament>(nullptr, fixture.context.find(BrandId{id.value}), nullptr,
            nullptr, 3, 1, u"#FFFFFF"_s, QString(), QString()));

    fixture.list.remove(id);
    QCOMPARE(filament.brand(), nullptr);
    QCOMPARE(fixture.context.count<Filament>(), 1);

    fixture.context.undo();
    QCOMPARE(filament.brand()->name(), u"Sunlu"_s);
    QCOMPARE(filament.brand()->spoolCount(), 3);
}

void ReferenceListTest::anEntryThatIsGoneIsPassedOver()
{
    ReferenceListFixture fixture(ReferenceKind::Range);
    fixture.list.add(u"Mate"_s);
    const ReferenceId id = fixture.list.sortedEntries().front();
    fixture.list.remove(id);

    fixture.list.edit(id, u"Autre"_s);
    fixture.list.remove(id);

    QCOMPARE(fixture.list.find(id), nullptr);
    QCOMPARE(fixture.names(), QStringList());
}

void ReferenceListTest::everyChangeIsSavedAtOnce()
{
    tests::RecordingStore store;
    StoreContext context(store);
    ReferenceList list(context, ReferenceKind::Type);

    list.add(u"PLA"_s, u"cube.fill"_s);
    QCOMPARE(store.commits, QList<QStringList>({{u"+FilamentType 1"_s}}));
    list.edit(ReferenceId{1}, u"PETG"_s, u"cube.fill"_s);
    QCOMPARE(store.commits.size(), 2);
    QCOMPARE(store.commits.last(), QStringList{u"~FilamentType 1"_s});
    list.remove(ReferenceId{1});
    QCOMPARE(store.commits.size(), 3);
    QCOMPARE(store.commits.last(), QStringList{u"-FilamentType 1"_s});
}

void ReferenceListTest::aFailedSaveKeepsTheChange()
{
    tests::RecordingStore store;
    StoreContext context(store);
    ReferenceList list(context, ReferenceKind::Location);
    store.error = StoreError{u"disque plein"_s};

    list.add(u"Cave"_s);
    QCOMPARE(context.count<Location>(), 1);
    QVERIFY(context.hasUnsavedChanges());
    QVERIFY(store.commits.isEmpty());

    store.error.reset();
    QVERIFY(!context.save());
    QCOMPARE(store.commits, QList<QStringList>({{u"+Location 1"_s}}));
}

REELHOUSE_TEST(ReferenceListTest)

#include "ReferenceListTest.moc"
