#include "app/editing/FilamentDraft.h"
#include "app/ui/Alert.h"
#include "tests/app/editing/DetailFixture.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollArea>

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
    void neitherTypeNorBrandIsNeeded();
    void deletingAsksFirst_data();
    void deletingAsksFirst();
    void everyControlHasAName();
    void tabFollowsTheReadingOrder();
};

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

REELHOUSE_TEST(FilamentDetailViewTest)

#include "FilamentDetailViewTest.moc"
