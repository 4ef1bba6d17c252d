#include "app/editing/ReferenceSheet.h"

#include "app/editing/DuplicateNameHint.h"
#include "app/editing/IconPicker.h"
#include "app/ui/InputState.h"
#include "app/ui/Palette.h"
#include "app/ui/TextStyle.h"
#include "tests/app/editing/ReferenceScreenFixture.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace reelhouse;
using reelhouse::tests::ReferenceScreenFixture;
using reelhouse::tests::typeName;
using namespace Qt::StringLiterals;

class ReferenceSheetTest final : public QObject {
    Q_OBJECT

private slots:
    void aNameIsAddedTrimmed();
    void aTakenNameIsRefused();
    void cancellingAddsNothingAndTheNextSheetIsEmpty();
    void aTypeIsAddedWithItsIcon();
    void f2RenamesTheSelection();
    void renamingKeepsTheIcon();
    void cancellingKeepsTheIcon();
    void aVeryLongNameSurvivesANewIcon();
    void theEditSheetClosesWhenItsEntryIsGone();
    void theOpenSheetFollowsTheList();
    void aConfirmedSheetDoesNotRefuseItsOwnName();
    void sheetsHaveTheirWidths();
    void theTitleIsAHeadlineInsideThePadding_data();
    void theTitleIsAHeadlineInsideThePadding();
};

void ReferenceSheetTest::aNameIsAddedTrimmed()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter une marque"_s);
    const QPushButton& confirm = ReferenceScreenFixture::button(sheet, u"Ajouter"_s);
    QCOMPARE(sheet.windowTitle(), u"Nouvelle marque"_s);
    QCOMPARE(sheet.findChild<QLineEdit*>()->placeholderText(), u"Nom de la marque"_s);
    QVERIFY(sheet.findChild<QLineEdit*>()->text().isEmpty());
    QVERIFY(!confirm.isEnabled());

    typeName(sheet, u"   "_s);
    QVERIFY(!confirm.isEnabled());
    QVERIFY(!sheet.findChild<DuplicateNameHint*>()->isVisible());

    typeName(sheet, u"  Sunlu "_s);
    QVERIFY(confirm.isEnabled());
    QTest::keyClick(sheet.findChild<QLineEdit*>(), Qt::Key_Return);

    QCOMPARE(fixture.sheet(), nullptr);
    QCOMPARE(fixture.context.fetchAll<Brand>().front()->name(), u"Sunlu"_s);
    QCOMPARE(fixture.context.undoActionName(), u"Ajouter une marque"_s);
    fixture.context.processPendingChanges();
    QVERIFY(!fixture.context.hasUnsavedChanges());
}

void ReferenceSheetTest::aTakenNameIsRefused()
{
    ReferenceScreenFixture fixture(ReferenceKind::Type);
    fixture.add<FilamentType>(u"PLA"_s);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter un type"_s);
    const auto* hint = sheet.findChild<DuplicateNameHint*>();
    const auto* field = sheet.findChild<QLineEdit*>();
    const QPushButton& confirm = ReferenceScreenFixture::button(sheet, u"Ajouter"_s);

    for (const QString& name : {u"pla"_s, u"PLA "_s}) {
        typeName(sheet, name);
        QVERIFY(hint->isVisible());
        QCOMPARE(hint->text(), u"Ce nom existe déjà."_s);
        QCOMPARE(hint->font(), fontOf(TextStyle::Caption));
        QCOMPARE(hint->foregroundRole(), roleOf(TextTone::Red));
        QVERIFY(inputState(field).isRefused);
        QVERIFY(!confirm.isEnabled());
        QTest::keyClick(sheet.findChild<QLineEdit*>(), Qt::Key_Return);
        QVERIFY(fixture.sheet());
    }
    typeName(sheet, u"PLA+"_s);
    QVERIFY(!hint->isVisible());
    QVERIFY(!inputState(field).isRefused);
    QVERIFY(confirm.isEnabled());
    QCOMPARE(fixture.context.count<FilamentType>(), 1);
}

void ReferenceSheetTest::cancellingAddsNothingAndTheNextSheetIsEmpty()
{
    ReferenceScreenFixture fixture(ReferenceKind::Location);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter un lieu"_s);
    typeName(sheet, u"Cave"_s);

    ReferenceScreenFixture::button(sheet, u"Annuler"_s).click();
    QCOMPARE(fixture.sheet(), nullptr);
    QCOMPARE(fixture.context.count<Location>(), 0);

    const ReferenceSheet& next = fixture.openAddSheet(u"Ajouter un lieu"_s);
    QCOMPARE(next.findChild<QLineEdit*>()->text(), QString());
    QTest::keyClick(next.findChild<QLineEdit*>(), Qt::Key_Escape);
    QCOMPARE(fixture.sheet(), nullptr);
}

void ReferenceSheetTest::aTypeIsAddedWithItsIcon()
{
    ReferenceScreenFixture fixture(ReferenceKind::Type);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter un type"_s);
    QCOMPARE(sheet.findChild<IconPicker*>()->selection(), u"cube.fill"_s);
    typeName(sheet, u"PLA"_s);
    sheet.findChildren<IconCell*>().at(9)->click();
    ReferenceScreenFixture::button(sheet, u"Ajouter"_s).click();

    const FilamentType& added = *fixture.context.fetchAll<FilamentType>().front();
    QCOMPARE(added.name(), u"PLA"_s);
    QCOMPARE(added.iconName(), u"leaf.fill"_s);
    const ReferenceSheet& next = fixture.openAddSheet(u"Ajouter un type"_s);
    QCOMPARE(next.findChild<IconPicker*>()->selection(), u"cube.fill"_s);
}

void ReferenceSheetTest::f2RenamesTheSelection()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    fixture.add<Brand>(u"Bambu"_s);
    fixture.add<Brand>(u"Sunlu"_s);
    fixture.select(0);

    fixture.press(Qt::Key_F2);
    const ReferenceSheet& sheet = *fixture.sheet();
    QCOMPARE(sheet.windowTitle(), u"Modifier la marque"_s);
    QCOMPARE(sheet.findChild<QLineEdit*>()->text(), u"Bambu"_s);
    typeName(sheet, u"sunlu"_s);
    QVERIFY(!ReferenceScreenFixture::button(sheet, u"Enregistrer"_s).isEnabled());
    typeName(sheet, u"bambu"_s);
    QTest::keyClick(sheet.findChild<QLineEdit*>(), Qt::Key_Return);

    QCOMPARE(fixture.context.fetchAll<Brand>().front()->name(), u"bambu"_s);
    QCOMPARE(fixture.context.undoActionName(), u"Modifier la marque"_s);
}

void ReferenceSheetTest::renamingKeepsTheIcon()
{
    ReferenceScreenFixture fixture(ReferenceKind::Type);
    FilamentType& pla = fixture.add<FilamentType>(u"PLA"_s);
    pla.setIconName(u"leaf.fill"_s);
    fixture.select(0);
    fixture.press(Qt::Key_F2);
    QCOMPARE(fixture.sheet()->findChild<IconPicker*>()->selection(), u"leaf.fill"_s);

    typeName(*fixture.sheet(), u"PETG"_s);
    ReferenceScreenFixture::button(*fixture.sheet(), u"Enregistrer"_s).click();

    QCOMPARE(pla.name(), u"PETG"_s);
    QCOMPARE(pla.iconName(), u"leaf.fill"_s);
}

void ReferenceSheetTest::cancellingKeepsTheIcon()
{
    ReferenceScreenFixture fixture(ReferenceKind::Type);
    FilamentType& pla = fixture.add<FilamentType>(u"PLA"_s);
    fixture.select(0);
    fixture.press(Qt::Key_F2);

    fixture.sheet()->findChildren<IconCell*>().at(4)->click();
    QTRY_COMPARE(QApplication::activeWindow(), fixture.sheet());
    QTest::keyClick(fixture.sheet(), Qt::Key_Escape, Qt::ControlModifier);

    QCOMPARE(fixture.sheet(), nullptr);
    QCOMPARE(pla.iconName(), u"cube.fill"_s);
    QCOMPARE(fixture.context.undoActionName(), QString());
}

void ReferenceSheetTest::aVeryLongNameSurvivesANewIcon()
{
    const QString name(40000, u'n');
    ReferenceScreenFixture fixture(ReferenceKind::Type);
    FilamentType& type = fixture.add<FilamentType>(name);
    fixture.select(0);
    fixture.press(Qt::Key_F2);

    fixture.sheet()->findChildren<IconCell*>().at(4)->click();
    ReferenceScreenFixture::button(*fixture.sheet(), u"Enregistrer"_s).click();

    QCOMPARE(type.iconName(), u"hexagon.fill"_s);
    QVERIFY(type.name() == name);
}

void ReferenceSheetTest::theEditSheetClosesWhenItsEntryIsGone()
{
    ReferenceScreenFixture fixture(ReferenceKind::Range);
    FilamentRange& range = fixture.add<FilamentRange>(u"Mate"_s);
    fixture.select(0);
    fixture.press(Qt::Key_F2);
    QVERIFY(fixture.sheet());

    fixture.context.remove(range);
    fixture.context.processPendingChanges();

    QCOMPARE(fixture.sheet(), nullptr);
}

void ReferenceSheetTest::theOpenSheetFollowsTheList()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter une marque"_s);
    typeName(sheet, u"Sunlu"_s);
    QVERIFY(ReferenceScreenFixture::button(sheet, u"Ajouter"_s).isEnabled());

    fixture.add<Brand>(u"SUNLU"_s);

    QVERIFY(sheet.findChild<DuplicateNameHint*>()->isVisible());
    QVERIFY(!ReferenceScreenFixture::button(sheet, u"Ajouter"_s).isEnabled());
}

void ReferenceSheetTest::aConfirmedSheetDoesNotRefuseItsOwnName()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter une marque"_s);
    const QPointer<DuplicateNameHint> hint(sheet.findChild<DuplicateNameHint*>());
    typeName(sheet, u"Sunlu"_s);

    ReferenceScreenFixture::button(sheet, u"Ajouter"_s).click();
    fixture.context.processPendingChanges(); // before the closed sheet is deleted

    QCOMPARE(fixture.context.count<Brand>(), 1);
    QVERIFY(hint->isHidden());
}

void ReferenceSheetTest::sheetsHaveTheirWidths()
{
    ReferenceScreenFixture types(ReferenceKind::Type);
    QCOMPARE(types.openAddSheet(u"Ajouter un type"_s).panelRect().width(), 380);
    ReferenceScreenFixture ranges(ReferenceKind::Range);
    QCOMPARE(ranges.openAddSheet(u"Ajouter une gamme"_s).panelRect().width(), 320);
    QCOMPARE(ranges.sheet()->findChild<IconPicker*>(), nullptr);
}

void ReferenceSheetTest::theTitleIsAHeadlineInsideThePadding_data()
{
    QTest::addColumn<bool>("edits");
    QTest::addColumn<QString>("expectedTitle");

    QTest::newRow("a new entry") << false << u"Nouveau lieu"_s;
    QTest::newRow("an entry to edit") << true << u"Modifier le lieu"_s;
}

void ReferenceSheetTest::theTitleIsAHeadlineInsideThePadding()
{
    QFETCH(bool, edits);
    QFETCH(QString, expectedTitle);
    ReferenceScreenFixture fixture(ReferenceKind::Location);
    fixture.add<Location>(u"Cave"_s);
    fixture.select(0);
    if (edits)
        fixture.press(Qt::Key_F2);
    else
        fixture.openAddSheet(u"Ajouter un lieu"_s);

    const ReferenceSheet& sheet = *fixture.sheet();
    const auto labels = sheet.findChildren<QLabel*>();
    const auto title = std::ranges::find(labels, expectedTitle, &QLabel::text);
    QVERIFY(title != labels.end());
    QCOMPARE((*title)->font(), fontOf(TextStyle::Headline));
    const QPoint corner = sheet.panelRect().topLeft();
    QCOMPARE((*title)->mapTo(&sheet, QPoint()), corner + QPoint(16, 16));
    const auto* field = sheet.findChild<QLineEdit*>();
    QCOMPARE(field->mapTo(&sheet, QPoint(field->width(), 0)).x(), corner.x() + 320 - 16);
}

REELHOUSE_TEST(ReferenceSheetTest)

#include "ReferenceSheetTest.moc"
