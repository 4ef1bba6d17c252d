#include "tests/app/editing/DetailFixture.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

#include <limits>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

/// What the sheet makes of odd values, and of a stock that changes under it.
class FilamentDetailLoadingTest final : public QObject {
    Q_OBJECT

private slots:
    void itLoadsOnceForEachOpening();
    void noSpoolIsShownAndSavedAsOne();
    void aCountBeyond99Stays();
    void itOutlivesItsFilament();
    void itOutlivesAChosenEntry();
    void theTitleSaysWhatIsEdited_data();
    void theTitleSaysWhatIsEdited();
    void aWrongColorCodeIsBlackAndKept();
};

void FilamentDetailLoadingTest::itLoadsOnceForEachOpening()
{
    DetailFixture fixture;
    const EditorControls controls = fixture.open();
    controls.spools()->step(5);

    fixture.sheet->hide();
    fixture.sheet->show();

    QCOMPARE(controls.spools()->value(), 8);
    QCOMPARE(fixture.open().spools()->value(), 3);
}

void FilamentDetailLoadingTest::noSpoolIsShownAndSavedAsOne()
{
    DetailFixture fixture(0, 0);

    const EditorControls controls = fixture.open();
    QCOMPARE(controls.spools()->value(), 1);
    QVERIFY(controls.button(u"Enregistrer"_s)->isEnabled());

    controls.button(u"Enregistrer"_s)->click();
    QCOMPARE(fixture.filament()->spoolsCount(), 1);
}

void FilamentDetailLoadingTest::aCountBeyond99Stays()
{
    constexpr qint64 count = std::numeric_limits<qint64>::max();
    DetailFixture fixture(count, 120);
    const EditorControls controls = fixture.open();
    QCOMPARE(controls.spools()->label()->text(), u"Nombre de bobines: 9223372036854775807"_s);
    QCOMPARE(controls.opened()->value(), 120);
    QVERIFY(!controls.button(u"Enregistrer"_s)->isEnabled());
    QVERIFY(!controls.spools()->canStep(1));

    QTest::keyClicks(controls.notes(), u"x"_s);
    controls.button(u"Enregistrer"_s)->click();
    QCOMPARE(fixture.filament()->spoolsCount(), count);
    QCOMPARE(fixture.filament()->openedSpoolsCount(), 120);

    const EditorControls again = fixture.open();
    again.spools()->step(-1);
    QCOMPARE(again.spools()->value(), 99);
    QCOMPARE(again.opened()->value(), 99);
}

void FilamentDetailLoadingTest::itOutlivesItsFilament()
{
    DetailFixture fixture;
    const EditorControls controls = fixture.open();
    controls.spools()->step(1);
    fixture.context.perform(u"ailleurs"_s, [&] { fixture.context.remove(*fixture.filament()); });
    // Before anybody was told.
    controls.opened()->step(1);
    QVERIFY(!controls.button(u"Enregistrer"_s)->isEnabled());
    fixture.context.processPendingChanges();

    QVERIFY(fixture.sheet->isVisible());
    QVERIFY(!controls.button(u"Enregistrer"_s)->isEnabled());
    QVERIFY(!controls.button(u"Supprimer"_s)->isEnabled());
    QVERIFY(controls.button(u"Annuler"_s)->isEnabled());

    fixture.context.undo();
    fixture.context.processPendingChanges();
    QVERIFY(controls.button(u"Enregistrer"_s)->isEnabled());
    controls.button(u"Enregistrer"_s)->click();
    QCOMPARE(fixture.filament()->spoolsCount(), 4);
}

void FilamentDetailLoadingTest::itOutlivesAChosenEntry()
{
    DetailFixture fixture;
    const EditorControls controls = fixture.open();
    EditorControls::choose(*controls.picker(u"Type"_s), u"ABS"_s);
    EditorControls::choose(*controls.picker(u"Gamme"_s), u"Mat"_s);

    fixture.context.remove(fixture.abs);
    fixture.context.remove(fixture.acme);
    fixture.context.processPendingChanges();

    QCOMPARE(controls.picker(u"Type"_s)->currentText(), u"Aucun"_s);
    QCOMPARE(controls.picker(u"Marque"_s)->currentText(), u"Aucune"_s);
    controls.button(u"Enregistrer"_s)->click();
    QVERIFY(!fixture.filament()->type());
    QVERIFY(!fixture.filament()->brand());
    QCOMPARE(fixture.filament()->range(), &fixture.mat);
}

void FilamentDetailLoadingTest::theTitleSaysWhatIsEdited_data()
{
    QTest::addColumn<QString>("colorName");
    QTest::addColumn<bool>("hasType");
    QTest::addColumn<QString>("expected");

    QTest::newRow("the colour's name") << u" Rouge\nvif "_s << true << u"Rouge vif"_s;
    QTest::newRow("the type without one") << u"  "_s << true << u"pla 2"_s;
    QTest::newRow("neither") << QString() << false << u"Filament"_s;
}

void FilamentDetailLoadingTest::theTitleSaysWhatIsEdited()
{
    QFETCH(QString, colorName);
    QFETCH(bool, hasType);
    DetailFixture fixture;
    fixture.filament()->setColorName(colorName);
    if (!hasType)
        fixture.filament()->setType(nullptr);

    fixture.open();

    QTEST(fixture.sheet->windowTitle(), "expected");
}

void FilamentDetailLoadingTest::aWrongColorCodeIsBlackAndKept()
{
    DetailFixture fixture;
    fixture.filament()->setColorHex(u"rouge\nvif "_s.repeated(20));
    const EditorControls controls = fixture.open();
    QCOMPARE(controls.color()->color(), QColor(Qt::black));
    QVERIFY(!controls.button(u"Enregistrer"_s)->isEnabled());

    controls.spools()->step(1);
    controls.button(u"Enregistrer"_s)->click();

    QCOMPARE(fixture.filament()->colorHex(), u"rouge\nvif "_s.repeated(20));
}

REELHOUSE_TEST(FilamentDetailLoadingTest)

#include "FilamentDetailLoadingTest.moc"
