#include "app/editing/FilamentDetailView.h"

#include "app/editing/FilamentDraft.h"
#include "app/ui/Alert.h"
#include "tests/app/editing/EditorFixture.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollArea>

#include <limits>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class FilamentDetailViewTest final : public QObject {
    Q_OBJECT

private slots:
    void itShowsTheFilament();
    void itsTextsAreExact();
    void savingWaitsForAChange();
    void itSavesWhatItShows();
    void returnSaves_data();
    void returnSaves();
    void returnWithoutAChangeDoesNothing();
    void cancellingWritesNothing_data();
    void cancellingWritesNothing();
    void itLoadsOnceForEachOpening();
    void noSpoolIsShownAndSavedAsOne();
    void aCountBeyond99Stays();
    void neitherTypeNorBrandIsNeeded();
    void deletingAsksFirst_data();
    void deletingAsksFirst();
    void itOutlivesItsFilament();
    void itOutlivesAChosenEntry();
    void everyControlHasAName();
    void tabFollowsTheReadingOrder();
    void theTitleSaysWhatIsEdited_data();
    void theTitleSaysWhatIsEdited();
    void aWrongColorCodeIsBlackAndKept();
};

namespace {

struct DetailFixture : EditorFixture {
    explicit DetailFixture(qint64 spools = 3, qint64 openedSpools = 1)
    {
        Filament::Values values;
        values.spoolsCount = spools;
        values.openedSpoolsCount = openedSpools;
        values.colorHex = u"#8E24AA"_s;
        values.colorName = u"Violet améthyste"_s;
        values.notes = u"TPU violet"_s;
        Filament& filament = context.insert(std::make_unique<Filament>(values));
        id = filament.id();
        filament.setType(&pla2);
        filament.setBrand(&acme);
        filament.setLocation(&shelf);
        context.processPendingChanges();
        context.clearHistory();
    }

    EditorControls open()
    {
        sheet = std::make_unique<FilamentDetailView>(context, id, &window);
        sheet->open();
        QCoreApplication::processEvents();
        return EditorControls(*sheet);
    }
    Filament* filament() { return context.find(id); }

    FilamentId id;
    std::unique_ptr<FilamentDetailView> sheet;
};

} // namespace

void FilamentDetailViewTest::itShowsTheFilament()
{
    DetailFixture fixture;

    const EditorControls controls = fixture.open();

    QCOMPARE(controls.picker(u"Type"_s)->currentText(), u"pla 2"_s);
    QCOMPARE(controls.picker(u"Marque"_s)->currentText(), u"Acme"_s);
    QCOMPARE(controls.picker(u"Gamme"_s)->currentText(), u"Aucune"_s);
    QCOMPARE(controls.picker(u"Lieu"_s)->currentText(), u"Étagère 2"_s);
    QCOMPARE(controls.spools()->value(), 3);
    QCOMPARE(controls.opened()->value(), 1);
    QCOMPARE(controls.color()->color(), QColor(0x8E24AA));
    QCOMPARE(controls.colorName()->text(), u"Violet améthyste"_s);
    QCOMPARE(controls.notes()->text(), u"TPU violet"_s);
    QCOMPARE(fixture.sheet->windowModality(), Qt::WindowModal);
    QCOMPARE(fixture.sheet->panelRect().size(), QSize(480, 620));
    QCOMPARE(fixture.sheet->findChild<QScrollArea*>()->verticalScrollBarPolicy(),
        Qt::ScrollBarAlwaysOff);
}

void FilamentDetailViewTest::itsTextsAreExact()
{
    DetailFixture fixture;

    const EditorControls controls = fixture.open();

    QCOMPARE(controls.labels(),
        (QStringList{u"Type"_s, u"Marque"_s, u"Gamme"_s, u"Lieu"_s, u"Nombre de bobines: 3"_s,
            u"Bobines entamées: 1"_s, u"Couleur"_s, u"Nom de la couleur"_s, u"Notes"_s}));
    QStringList none;
    for (const QString& label : {u"Type"_s, u"Marque"_s, u"Gamme"_s, u"Lieu"_s})
        none << controls.picker(label)->itemText(0);
    QCOMPARE(none, (QStringList{u"Aucun"_s, u"Aucune"_s, u"Aucune"_s, u"Aucun"_s}));
    for (const QString& text : {u"Supprimer"_s, u"Annuler"_s, u"Enregistrer"_s})
        QVERIFY(controls.button(text));
}

void FilamentDetailViewTest::savingWaitsForAChange()
{
    DetailFixture fixture;
    const EditorControls controls = fixture.open();
    const QPushButton* save = controls.button(u"Enregistrer"_s);
    QVERIFY(!save->isEnabled());

    controls.spools()->step(1);
    QVERIFY(save->isEnabled());
    controls.spools()->step(-1);
    QVERIFY(!save->isEnabled());

    EditorControls::choose(*controls.picker(u"Lieu"_s), u"Aucun"_s);
    QVERIFY(save->isEnabled());
    EditorControls::choose(*controls.picker(u"Lieu"_s), u"Étagère 2"_s);
    QVERIFY(!save->isEnabled());

    QTest::keyClick(controls.notes(), Qt::Key_X);
    QVERIFY(save->isEnabled());
    QTest::keyClick(controls.notes(), Qt::Key_Backspace);
    QVERIFY(!save->isEnabled());

    QTest::keyClick(controls.colorName(), Qt::Key_Space);
    QVERIFY(save->isEnabled());
    QTest::keyClick(controls.colorName(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!save->isEnabled());
    QCOMPARE(fixture.filament()->colorName(), u"Violet améthyste"_s);

    emit controls.color()->colorEdited(QColor(0x8E24AB));
    QVERIFY(save->isEnabled());
    emit controls.color()->colorEdited(QColor(0x8E24AA));
    QVERIFY(!save->isEnabled());
}

void FilamentDetailViewTest::itSavesWhatItShows()
{
    DetailFixture fixture;
    const EditorControls controls = fixture.open();
    EditorControls::choose(*controls.picker(u"Type"_s), u"Aucun"_s);
    EditorControls::choose(*controls.picker(u"Gamme"_s), u"Mat"_s);
    controls.spools()->step(-1);
    controls.opened()->step(1);
    controls.colorName()->selectAll();
    QTest::keyClicks(controls.colorName(), u"  Rouge  "_s);
    QTest::keyClicks(controls.notes(), u" "_s);
    const qsizetype commits = fixture.store.commits.size();

    QTest::mouseClick(controls.button(u"Enregistrer"_s), Qt::LeftButton);

    QVERIFY(!fixture.sheet->isVisible());
    const Filament& filament = *fixture.filament();
    QVERIFY(!filament.type());
    QCOMPARE(filament.brand(), &fixture.acme);
    QCOMPARE(filament.range(), &fixture.mat);
    QCOMPARE(filament.spoolsCount(), 2);
    QCOMPARE(filament.openedSpoolsCount(), 2);
    QCOMPARE(filament.colorName(), u"Rouge"_s);
    QCOMPARE(filament.notes(), u" TPU violet"_s);
    QCOMPARE(fixture.store.commits.size(), commits + 1);
    QCOMPARE(fixture.context.undoActionName(), u"Modifier un filament"_s);
}

void FilamentDetailViewTest::returnSaves_data()
{
    QTest::addColumn<bool>("isInColorName");

    QTest::newRow("in a stepper") << false;
    QTest::newRow("in the colour's name") << true;
}

void FilamentDetailViewTest::returnSaves()
{
    QFETCH(bool, isInColorName);
    DetailFixture fixture;
    const EditorControls controls = fixture.open();
    QVERIFY(QTest::qWaitForWindowActive(fixture.sheet.get()));
    controls.spools()->setFocus();
    QTest::keyClick(controls.spools(), Qt::Key_7);
    QWidget* pressedIn = controls.spools();
    if (isInColorName)
        pressedIn = controls.colorName();
    pressedIn->setFocus();

    QTest::keyClick(pressedIn, Qt::Key_Return);

    QVERIFY(!fixture.sheet->isVisible());
    QCOMPARE(fixture.filament()->spoolsCount(), 7);
}

void FilamentDetailViewTest::returnWithoutAChangeDoesNothing()
{
    DetailFixture fixture;
    const EditorControls controls = fixture.open();
    QVERIFY(QTest::qWaitForWindowActive(fixture.sheet.get()));

    QTest::keyClick(controls.picker(u"Type"_s), Qt::Key_Return);
    QTest::keyClick(controls.colorName(), Qt::Key_Return);

    QVERIFY(fixture.sheet->isVisible());
    QVERIFY(!fixture.sheet->findChild<Alert*>());
    QVERIFY(fixture.context.undoActionName().isEmpty());
}

void FilamentDetailViewTest::cancellingWritesNothing_data()
{
    QTest::addColumn<bool>("byKey");

    QTest::newRow("Escape") << true;
    QTest::newRow("its button") << false;
}

void FilamentDetailViewTest::cancellingWritesNothing()
{
    QFETCH(bool, byKey);
    DetailFixture fixture;
    const EditorControls controls = fixture.open();
    QVERIFY(QTest::qWaitForWindowActive(fixture.sheet.get()));
    const FilamentDraft before = loadedDraft(*fixture.filament());
    controls.spools()->step(5);
    QTest::keyClicks(controls.notes(), u"autre"_s);

    if (byKey)
        QTest::keyClick(controls.notes(), Qt::Key_Escape);
    else
        QTest::mouseClick(controls.button(u"Annuler"_s), Qt::LeftButton);

    QVERIFY(!fixture.sheet->isVisible());
    QCOMPARE(loadedDraft(*fixture.filament()), before);
    QVERIFY(fixture.context.undoActionName().isEmpty());
}

void FilamentDetailViewTest::itLoadsOnceForEachOpening()
{
    DetailFixture fixture;
    const EditorControls controls = fixture.open();
    controls.spools()->step(5);

    fixture.sheet->hide();
    fixture.sheet->show();

    QCOMPARE(controls.spools()->value(), 8);
    QCOMPARE(fixture.open().spools()->value(), 3);
}

void FilamentDetailViewTest::noSpoolIsShownAndSavedAsOne()
{
    DetailFixture fixture(0, 0);

    const EditorControls controls = fixture.open();
    QCOMPARE(controls.spools()->value(), 1);
    QVERIFY(controls.button(u"Enregistrer"_s)->isEnabled());

    controls.button(u"Enregistrer"_s)->click();
    QCOMPARE(fixture.filament()->spoolsCount(), 1);
}

void FilamentDetailViewTest::aCountBeyond99Stays()
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

void FilamentDetailViewTest::neitherTypeNorBrandIsNeeded()
{
    DetailFixture fixture;
    const EditorControls controls = fixture.open();

    EditorControls::choose(*controls.picker(u"Type"_s), u"Aucun"_s);
    EditorControls::choose(*controls.picker(u"Marque"_s), u"Aucune"_s);

    QVERIFY(controls.button(u"Enregistrer"_s)->isEnabled());
}

void FilamentDetailViewTest::deletingAsksFirst_data()
{
    QTest::addColumn<bool>("hasType");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("expectedQuestion");

    const QString named = u"Voulez-vous vraiment supprimer pla 2 ?"_s;
    QTest::newRow("confirmed") << true << u"Supprimer"_s << named;
    QTest::newRow("cancelled") << true << u"Annuler"_s << named;
    QTest::newRow("without a type")
        << false << u"Supprimer"_s << u"Voulez-vous vraiment supprimer ce filament ?"_s;
}

void FilamentDetailViewTest::deletingAsksFirst()
{
    QFETCH(bool, hasType);
    QFETCH(QString, answer);
    QFETCH(QString, expectedQuestion);
    DetailFixture fixture;
    if (!hasType)
        fixture.filament()->setType(nullptr);
    const EditorControls controls = fixture.open();

    QTest::mouseClick(controls.button(u"Supprimer"_s), Qt::LeftButton);
    auto* alert = fixture.sheet->findChild<Alert*>();
    QVERIFY(alert);
    QStringList texts;
    for (const QLabel* label : alert->findChildren<QLabel*>())
        texts << label->text();
    QCOMPARE(texts, (QStringList{u"Supprimer ce filament ?"_s, expectedQuestion}));
    QVERIFY(fixture.filament());
    QTest::mouseClick(EditorControls(*alert).button(answer), Qt::LeftButton);

    const bool isDeleted = answer == u"Supprimer"_s;
    QCOMPARE(fixture.filament() == nullptr, isDeleted);
    QCOMPARE(fixture.sheet->isVisible(), !isDeleted);
    QCOMPARE(fixture.context.undoActionName(), isDeleted ? u"Supprimer"_s : QString());
}

void FilamentDetailViewTest::itOutlivesItsFilament()
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

void FilamentDetailViewTest::itOutlivesAChosenEntry()
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

void FilamentDetailViewTest::everyControlHasAName()
{
    DetailFixture fixture;
    fixture.open();

    QCOMPARE(unnamedControls(fixture.sheet.get()), QStringList());
}

void FilamentDetailViewTest::tabFollowsTheReadingOrder()
{
    DetailFixture fixture;
    const EditorControls controls = fixture.open();
    QVERIFY(QTest::qWaitForWindowActive(fixture.sheet.get()));
    controls.spools()->step(1);

    QWidgetList expected;
    for (const QString& label : {u"Type"_s, u"Marque"_s, u"Gamme"_s, u"Lieu"_s})
        expected << controls.picker(label);
    expected << controls.spools() << controls.opened() << controls.color() << controls.colorName()
             << controls.notes();
    for (const QString& text : {u"Supprimer"_s, u"Annuler"_s, u"Enregistrer"_s})
        expected << controls.button(text);
    for (QWidget* control : expected) {
        QCOMPARE(QApplication::focusWidget(), control);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(QApplication::focusWidget(), expected.first());
}

void FilamentDetailViewTest::theTitleSaysWhatIsEdited_data()
{
    QTest::addColumn<QString>("colorName");
    QTest::addColumn<bool>("hasType");
    QTest::addColumn<QString>("expected");

    QTest::newRow("the colour's name") << u" Rouge\nvif "_s << true << u"Rouge vif"_s;
    QTest::newRow("the type without one") << u"  "_s << true << u"pla 2"_s;
    QTest::newRow("neither") << QString() << false << u"Filament"_s;
}

void FilamentDetailViewTest::theTitleSaysWhatIsEdited()
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

void FilamentDetailViewTest::aWrongColorCodeIsBlackAndKept()
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

REELHOUSE_TEST(FilamentDetailViewTest)

#include "FilamentDetailViewTest.moc"
