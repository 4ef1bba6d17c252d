#include "app/editing/AddFilamentView.h"

#include "app/editing/FilamentDraft.h"
#include "tests/app/editing/EditorFixture.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class AddFilamentViewTest final : public QObject {
    Q_OBJECT

private slots:
    void itShowsTheDefaults();
    void itsTextsAreExact();
    void thePickersSortAsAFileBrowser();
    void addingWaitsForTypeAndBrand();
    void itAddsWhatItShows();
    void cancellingAddsNothing_data();
    void cancellingAddsNothing();
    void onlyControlReturnConfirms();
    void loweringTheSpoolsLowersTheOpenedOnes();
    void aTranslucentColorIsWrittenWithSixDigits();
    void theListsAreLive();
    void aChosenEntryThatGoesIsNoLongerChosen();
    void everyControlHasAName();
    void tabFollowsTheReadingOrder();
    void oddContentDoesNotGrowTheSheet();
};

namespace {

struct AdditionFixture : EditorFixture {
    AdditionFixture()
    {
        sheet.open();
        QCoreApplication::processEvents();
    }

    AddFilamentView sheet{context, &window};
    EditorControls controls{sheet};
};

} // namespace

void AddFilamentViewTest::itShowsTheDefaults()
{
    const AdditionFixture fixture;

    for (const QString& label : {u"Type"_s, u"Marque"_s, u"Gamme"_s, u"Lieu"_s})
        QCOMPARE(fixture.controls.picker(label)->choice(), 0);
    QCOMPARE(fixture.controls.spools()->value(), 1);
    QCOMPARE(fixture.controls.opened()->value(), 0);
    QCOMPARE(fixture.controls.color()->color(), QColor(0x4CAF50));
    QCOMPARE(fixture.controls.colorName()->text(), QString());
    QCOMPARE(fixture.controls.notes()->text(), QString());
    QCOMPARE(fixture.sheet.windowModality(), Qt::WindowModal);
    QCOMPARE(fixture.sheet.windowTitle(), u"Ajouter un filament"_s);
    QCOMPARE(fixture.sheet.panelRect().size(), QSize(480, 620));
}

void AddFilamentViewTest::itsTextsAreExact()
{
    const AdditionFixture fixture;

    QCOMPARE(fixture.controls.labels(),
        (QStringList{u"Type *"_s, u"Marque *"_s, u"Gamme"_s, u"Lieu"_s, u"Nombre de bobines: 1"_s,
            u"Bobines entamées: 0"_s, u"Couleur"_s, u"Nom de la couleur"_s, u"Notes"_s}));
    for (const QString& label : {u"Type"_s, u"Marque"_s, u"Gamme"_s, u"Lieu"_s})
        QCOMPARE(fixture.controls.picker(label)->itemText(0), u"Sélectionner…"_s);
    QStringList texts;
    for (const QLabel* label : fixture.sheet.findChildren<QLabel*>())
        texts << label->text();
    QVERIFY(texts.contains(u"Informations"_s));
    QVERIFY(texts.contains(u"#4CAF50"_s));
    QVERIFY(fixture.controls.button(u"Annuler"_s));
    QVERIFY(fixture.controls.button(u"Ajouter"_s));
}

void AddFilamentViewTest::thePickersSortAsAFileBrowser()
{
    const AdditionFixture fixture;
    const Picker* types = fixture.controls.picker(u"Type"_s);

    QCOMPARE(EditorControls::choices(*types),
        (QStringList{u"Sélectionner…"_s, u"ABS"_s, u"pla 2"_s, u"PLA 10"_s}));
    QVERIFY(!types->itemIcon(2).isNull());
    QVERIFY(fixture.controls.picker(u"Marque"_s)->itemIcon(1).isNull());
}

void AddFilamentViewTest::addingWaitsForTypeAndBrand()
{
    const AdditionFixture fixture;
    const QPushButton* add = fixture.controls.button(u"Ajouter"_s);
    Picker& types = *fixture.controls.picker(u"Type"_s);
    Picker& brands = *fixture.controls.picker(u"Marque"_s);
    QVERIFY(!add->isEnabled());

    EditorControls::choose(types, u"ABS"_s);
    QVERIFY(!add->isEnabled());
    EditorControls::choose(brands, u"Acme"_s);
    QVERIFY(add->isEnabled());
    EditorControls::choose(types, u"Sélectionner…"_s);
    QVERIFY(!add->isEnabled());
}

void AddFilamentViewTest::itAddsWhatItShows()
{
    AdditionFixture fixture;
    EditorControls::choose(*fixture.controls.picker(u"Type"_s), u"pla 2"_s);
    EditorControls::choose(*fixture.controls.picker(u"Marque"_s), u"Zénith"_s);
    EditorControls::choose(*fixture.controls.picker(u"Gamme"_s), u"Mat"_s);
    EditorControls::choose(*fixture.controls.picker(u"Lieu"_s), u"Étagère 2"_s);
    fixture.controls.spools()->step(4);
    fixture.controls.opened()->step(2);
    QTest::keyClicks(fixture.controls.colorName(), u" Rouge "_s);
    QTest::keyClicks(fixture.controls.notes(), u"un "_s);
    QTest::keyClick(fixture.controls.notes(), Qt::Key_Return);

    QTest::mouseClick(fixture.controls.button(u"Ajouter"_s), Qt::LeftButton);

    QVERIFY(!fixture.sheet.isVisible());
    QCOMPARE(fixture.context.count<Filament>(), 1);
    FilamentDraft expected;
    expected.references = {fixture.pla2.id().value, fixture.zenith.id().value,
        fixture.mat.id().value, fixture.shelf.id().value};
    expected.spoolsCount = 5;
    expected.openedSpoolsCount = 2;
    expected.colorHex = u"#4CAF50"_s;
    expected.colorName = u" Rouge "_s;
    expected.notes = u"un \n"_s;
    QCOMPARE(loadedDraft(*fixture.context.fetchAll<Filament>().front()), expected);
    QCOMPARE(fixture.context.undoActionName(), u"Ajouter un filament"_s);
}

void AddFilamentViewTest::cancellingAddsNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");

    QTest::newRow("Escape") << int(Qt::Key_Escape) << Qt::KeyboardModifiers();
    QTest::newRow("Ctrl+Escape") << int(Qt::Key_Escape)
                                 << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("its button") << 0 << Qt::KeyboardModifiers();
}

void AddFilamentViewTest::cancellingAddsNothing()
{
    QFETCH(int, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    AdditionFixture fixture;
    QVERIFY(QTest::qWaitForWindowActive(&fixture.sheet));
    EditorControls::choose(*fixture.controls.picker(u"Type"_s), u"ABS"_s);
    EditorControls::choose(*fixture.controls.picker(u"Marque"_s), u"Acme"_s);

    if (key == 0)
        QTest::mouseClick(fixture.controls.button(u"Annuler"_s), Qt::LeftButton);
    else
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), modifiers);

    QVERIFY(!fixture.sheet.isVisible());
    QCOMPARE(fixture.context.count<Filament>(), 0);
    QVERIFY(fixture.context.undoActionName().isEmpty());
}

void AddFilamentViewTest::onlyControlReturnConfirms()
{
    AdditionFixture fixture;
    QVERIFY(QTest::qWaitForWindowActive(&fixture.sheet));
    QTest::keyClick(fixture.controls.colorName(), Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(fixture.sheet.isVisible());
    EditorControls::choose(*fixture.controls.picker(u"Type"_s), u"ABS"_s);
    EditorControls::choose(*fixture.controls.picker(u"Marque"_s), u"Acme"_s);

    for (QWidget* field : {static_cast<QWidget*>(fixture.controls.colorName()),
             static_cast<QWidget*>(fixture.controls.spools()),
             static_cast<QWidget*>(fixture.controls.color())}) {
        field->setFocus();
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(fixture.sheet.isVisible());
    }
    QCOMPARE(fixture.context.count<Filament>(), 0);

    // From within the notes, where Return alone breaks the line.
    fixture.controls.notes()->setFocus();
    QTest::keyClick(fixture.controls.notes(), Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(!fixture.sheet.isVisible());
    QCOMPARE(fixture.context.count<Filament>(), 1);
}

void AddFilamentViewTest::loweringTheSpoolsLowersTheOpenedOnes()
{
    const AdditionFixture fixture;
    Stepper* spools = fixture.controls.spools();
    Stepper* opened = fixture.controls.opened();
    QVERIFY(!spools->canStep(-1));
    spools->step(2);
    opened->step(10);
    QCOMPARE(opened->value(), 3);
    QVERIFY(!opened->canStep(1));

    spools->step(-1);
    QCOMPARE(opened->value(), 2);
    QCOMPARE(opened->label()->text(), u"Bobines entamées: 2"_s);
    spools->step(1000);
    QCOMPARE(spools->value(), 99);
    QVERIFY(!spools->canStep(1));
    QCOMPARE(opened->value(), 2);
    QVERIFY(opened->canStep(1));
    spools->step(-1000);
    QCOMPARE(spools->value(), 1);
    QCOMPARE(opened->value(), 1);
    opened->step(-10);
    QCOMPARE(opened->value(), 0);
}

void AddFilamentViewTest::aTranslucentColorIsWrittenWithSixDigits()
{
    AdditionFixture fixture;
    EditorControls::choose(*fixture.controls.picker(u"Type"_s), u"ABS"_s);
    EditorControls::choose(*fixture.controls.picker(u"Marque"_s), u"Acme"_s);

    emit fixture.controls.color()->colorEdited(QColor(255, 0, 16, 90));

    QCOMPARE(fixture.controls.color()->color(), QColor(255, 0, 16));
    QCOMPARE(fixture.controls.color()->accessibleDescription(), u"#FF0010"_s);
    QTest::keyClicks(fixture.controls.colorName(), u"Rouge"_s);
    QCOMPARE(fixture.controls.color()->accessibleDescription(), u"Rouge, #FF0010"_s);
    fixture.controls.button(u"Ajouter"_s)->click();
    QCOMPARE(fixture.context.fetchAll<Filament>().front()->colorHex(), u"#FF0010"_s);
}

void AddFilamentViewTest::theListsAreLive()
{
    AdditionFixture fixture;
    Picker& brands = *fixture.controls.picker(u"Marque"_s);
    EditorControls::choose(brands, u"Zénith"_s);

    fixture.context.insert(std::make_unique<Brand>(u"bobine & co"_s));
    fixture.zenith.setName(u"Azur"_s);
    fixture.context.processPendingChanges();

    QCOMPARE(EditorControls::choices(brands),
        (QStringList{u"Sélectionner…"_s, u"Acme"_s, u"Azur"_s, u"bobine & co"_s}));
    QCOMPARE(brands.currentText(), u"Azur"_s);
}

void AddFilamentViewTest::aChosenEntryThatGoesIsNoLongerChosen()
{
    AdditionFixture fixture;
    EditorControls::choose(*fixture.controls.picker(u"Type"_s), u"ABS"_s);
    EditorControls::choose(*fixture.controls.picker(u"Marque"_s), u"Acme"_s);

    fixture.context.remove(fixture.acme);
    fixture.context.processPendingChanges();

    QCOMPARE(fixture.controls.picker(u"Marque"_s)->currentText(), u"Sélectionner…"_s);
    QCOMPARE(fixture.controls.picker(u"Type"_s)->currentText(), u"ABS"_s);
    QVERIFY(!fixture.controls.button(u"Ajouter"_s)->isEnabled());
}

void AddFilamentViewTest::everyControlHasAName()
{
    AdditionFixture fixture;

    QCOMPARE(unnamedControls(&fixture.sheet), QStringList());
}

void AddFilamentViewTest::tabFollowsTheReadingOrder()
{
    AdditionFixture fixture;
    QVERIFY(QTest::qWaitForWindowActive(&fixture.sheet));
    EditorControls::choose(*fixture.controls.picker(u"Type"_s), u"ABS"_s);
    EditorControls::choose(*fixture.controls.picker(u"Marque"_s), u"Acme"_s);

    QWidgetList expected;
    for (const QString& label : {u"Type"_s, u"Marque"_s, u"Gamme"_s, u"Lieu"_s})
        expected << fixture.controls.picker(label);
    expected << fixture.controls.spools() << fixture.controls.opened() << fixture.controls.color()
             << fixture.controls.colorName() << fixture.controls.notes()
             << fixture.controls.button(u"Annuler"_s) << fixture.controls.button(u"Ajouter"_s);
    QCOMPARE(QApplication::focusWidget(), expected.first());
    for (QWidget* control : expected) {
        QCOMPARE(QApplication::focusWidget(), control);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(QApplication::focusWidget(), expected.first());
}

void AddFilamentViewTest::oddContentDoesNotGrowTheSheet()
{
    AdditionFixture fixture;
    const QSize before = fixture.sheet.size();
    const QString longName = u"Très longue étagère 🧵 مرحبا "_s.repeated(10).left(200);
    Location& odd = fixture.context.insert(std::make_unique<Location>(longName));
    for (int number = 0; number < 3000; ++number)
        fixture.context.insert(std::make_unique<Brand>(u"Marque %1"_s.arg(number)));
    fixture.context.processPendingChanges();
    Picker& places = *fixture.controls.picker(u"Lieu"_s);
    EditorControls::choose(places, longName.simplified());
    QCOMPARE(places.choice(), odd.id().value);
    QTest::keyClicks(fixture.controls.colorName(), QString(200, u'W'));
    fixture.controls.notes()->insertPlainText(u"ligne\n"_s.repeated(50));
    QCoreApplication::processEvents();

    QCOMPARE(fixture.sheet.size(), before);
    for (const QWidget* control : fixture.sheet.findChildren<QWidget*>()) {
        if (control->isVisible() && qobject_cast<const Picker*>(control)) {
            const QPoint right = control->mapTo(&fixture.sheet, control->rect().topRight());
            QVERIFY(fixture.sheet.panelRect().contains(right));
            QVERIFY(
                control->mapTo(&fixture.sheet, QPoint()).x() > fixture.sheet.panelRect().left());
        }
    }
    QVERIFY(places.width() < 440);
    fixture.controls.picker(u"Marque"_s)->setFocus();
    QTest::keyClicks(fixture.controls.picker(u"Marque"_s), u"marque 2999"_s);
    QCOMPARE(fixture.controls.picker(u"Marque"_s)->currentText(), u"Marque 2999"_s);
}

REELHOUSE_TEST(AddFilamentViewTest)

#include "AddFilamentViewTest.moc"
