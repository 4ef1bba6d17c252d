#include "app/editing/ReferenceManagementView.h"

#include "app/editing/DuplicateNameHint.h"
#include "app/editing/IconPicker.h"
#include "app/editing/ReferenceListView.h"
#include "app/editing/ReferenceSheet.h"
#include "app/ui/Alert.h"
#include "app/ui/ThemeService.h"
#include "core/model/StoreContext.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/MemoryStock.h"
#include "tests/support/TestMain.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolTip>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class ReferenceManagementViewTest final : public QObject {
    Q_OBJECT

private slots:
    void anEmptyListSaysSo();
    void rowsShowNameAndUsage();
    void theListIsLive();
    void aNameIsAddedTrimmed();
    void aTakenNameIsRefused();
    void cancellingAddsNothingAndTheNextSheetIsEmpty();
    void aTypeIsAddedWithItsIcon();
    void f2RenamesTheSelection();
    void cancellingKeepsTheIcon();
    void aVeryLongNameSurvivesANewIcon();
    void theEditSheetClosesWhenItsEntryIsGone();
    void theOpenSheetFollowsTheList();
    void aConfirmedSheetDoesNotRefuseItsOwnName();
    void deleteAsksFirst_data();
    void deleteAsksFirst();
    void theContextMenuEditsAndDeletes();
    void theKeysAskNothingWithoutASelection();
    void theArrowKeysGoOnWhereARowWasDeleted();
    void theSelectionHoldsWhenTheListChanges();
    void sheetsGoWithTheirScreen();
    void sheetsHaveTheirWidths();
    void everyControlHasAName_data();
    void everyControlHasAName();
    void aLongNameIsCutAndToldInATip();
};

namespace {

struct ReferenceScreenFixture {
    explicit ReferenceScreenFixture(ReferenceKind kind)
        : screen(std::make_unique<ReferenceManagementView>(context, kind, nullptr))
    {
        screen->resize(1080, 800);
        screen->show();
    }

    template <class T>
    T& add(const QString& name, int filaments = 0)
    {
        T& entry = context.insert(std::make_unique<T>(name));
        for (int number = 0; number < filaments; ++number) {
            auto filament = std::make_unique<Filament>(
                nullptr, nullptr, nullptr, nullptr, 2, 0, u"#43A047"_s, QString(), QString());
            if constexpr (std::is_same_v<T, Brand>)
                filament->setBrand(&entry);
            context.insert(std::move(filament));
        }
        context.processPendingChanges();
        return entry;
    }

    ReferenceListView& list() const { return *screen->findChild<ReferenceListView*>(); }
    QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < list().model()->rowCount(); ++row)
            texts += list().model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
        return texts;
    }
    void select(int row) const { list().setCurrentIndex(list().model()->index(row, 0)); }
    /// Once the window is active: a shortcut works in no other.
    void press(Qt::Key key) const
    {
        QVERIFY(QTest::qWaitForWindowActive(screen.get()));
        list().setFocus();
        QTest::keyClick(&list(), key);
    }
    bool shows(const QString& text) const
    {
        const auto labels = screen->findChildren<QLabel*>();
        return std::ranges::any_of(labels,
            [&](const QLabel* label) { return label->isVisible() && label->text() == text; });
    }
    static QPushButton& button(const QWidget& parent, const QString& text)
    {
        const auto buttons = parent.findChildren<QPushButton*>();
        const auto found = std::ranges::find(buttons, text, &QPushButton::text);
        Q_ASSERT(found != buttons.end());
        return **found;
    }
    ReferenceSheet& openAddSheet(const QString& command)
    {
        button(*screen, command).click();
        return *sheet();
    }
    ReferenceSheet* sheet() const
    {
        const auto sheets = screen->findChildren<ReferenceSheet*>();
        const auto open = std::ranges::find_if(sheets, &QWidget::isVisible);
        return open == sheets.end() ? nullptr : *open;
    }
    Alert* alert() const
    {
        const auto alerts = screen->findChildren<Alert*>();
        const auto open = std::ranges::find_if(alerts, &QWidget::isVisible);
        return open == alerts.end() ? nullptr : *open;
    }

    std::unique_ptr<StoreContainer> stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    std::unique_ptr<ReferenceManagementView> screen;
};

void type(const ReferenceSheet& sheet, const QString& text)
{
    auto* field = sheet.findChild<QLineEdit*>();
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

} // namespace

void ReferenceManagementViewTest::anEmptyListSaysSo()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);

    QVERIFY(fixture.shows(u"Marques"_s));
    QVERIFY(fixture.shows(u"Aucune marque"_s));
    QVERIFY(fixture.shows(u"Ajoutez votre première marque de filament."_s));
    QVERIFY(!fixture.list().isVisible());

    fixture.add<Brand>(u"Sunlu"_s);
    QVERIFY(!fixture.shows(u"Aucune marque"_s));
    QVERIFY(fixture.list().isVisible());
}

void ReferenceManagementViewTest::rowsShowNameAndUsage()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    const QAbstractItemModelTester tester(fixture.list().model());

    fixture.add<Brand>(u"Sunlu"_s, 2);
    fixture.add<Brand>(u"eSun"_s);

    QCOMPARE(fixture.rows(),
        QStringList({u"eSun, 0 filament · 0 bobine"_s, u"Sunlu, 2 filaments · 4 bobines"_s}));
}

void ReferenceManagementViewTest::theListIsLive()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    Brand& brand = fixture.add<Brand>(u"Sunlu"_s, 1);

    fixture.context.fetchAll<Filament>().front()->setSpoolsCount(9);
    fixture.context.processPendingChanges();
    QCOMPARE(fixture.rows(), QStringList{u"Sunlu, 1 filament · 9 bobines"_s});

    brand.setName(u"Anycubic"_s);
    fixture.context.processPendingChanges();
    QCOMPARE(fixture.rows(), QStringList{u"Anycubic, 1 filament · 9 bobines"_s});

    fixture.context.remove(brand);
    QCOMPARE(fixture.rows(), QStringList{u""_s}); // not delivered yet
    fixture.context.processPendingChanges();
    QCOMPARE(fixture.rows(), QStringList());
}

void ReferenceManagementViewTest::aNameIsAddedTrimmed()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter une marque"_s);
    const QPushButton& confirm = ReferenceScreenFixture::button(sheet, u"Ajouter"_s);
    QCOMPARE(sheet.windowTitle(), u"Nouvelle marque"_s);
    QCOMPARE(sheet.findChild<QLineEdit*>()->placeholderText(), u"Nom de la marque"_s);
    QVERIFY(sheet.findChild<QLineEdit*>()->text().isEmpty());
    QVERIFY(!confirm.isEnabled());

    type(sheet, u"   "_s);
    QVERIFY(!confirm.isEnabled());
    QVERIFY(!sheet.findChild<DuplicateNameHint*>()->isVisible());

    type(sheet, u"  Sunlu "_s);
    QVERIFY(confirm.isEnabled());
    QTest::keyClick(sheet.findChild<QLineEdit*>(), Qt::Key_Return);

    QCOMPARE(fixture.sheet(), nullptr);
    QCOMPARE(fixture.context.fetchAll<Brand>().front()->name(), u"Sunlu"_s);
    QCOMPARE(fixture.context.undoActionName(), u"Ajouter une marque"_s);
    fixture.context.processPendingChanges();
    QVERIFY(!fixture.context.hasUnsavedChanges());
}

void ReferenceManagementViewTest::aTakenNameIsRefused()
{
    ReferenceScreenFixture fixture(ReferenceKind::Type);
    fixture.add<FilamentType>(u"PLA"_s);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter un type"_s);
    const auto* hint = sheet.findChild<DuplicateNameHint*>();
    const QPushButton& confirm = ReferenceScreenFixture::button(sheet, u"Ajouter"_s);

    for (const QString& name : {u"pla"_s, u"PLA "_s}) {
        type(sheet, name);
        QVERIFY(hint->isVisible());
        QCOMPARE(hint->text(), u"Ce nom existe déjà."_s);
        QVERIFY(!confirm.isEnabled());
        QTest::keyClick(sheet.findChild<QLineEdit*>(), Qt::Key_Return);
        QVERIFY(fixture.sheet());
    }
    type(sheet, u"PLA+"_s);
    QVERIFY(!hint->isVisible());
    QVERIFY(confirm.isEnabled());
    QCOMPARE(fixture.context.count<FilamentType>(), 1);
}

void ReferenceManagementViewTest::cancellingAddsNothingAndTheNextSheetIsEmpty()
{
    ReferenceScreenFixture fixture(ReferenceKind::Location);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter un lieu"_s);
    type(sheet, u"Cave"_s);

    ReferenceScreenFixture::button(sheet, u"Annuler"_s).click();
    QCOMPARE(fixture.sheet(), nullptr);
    QCOMPARE(fixture.context.count<Location>(), 0);

    const ReferenceSheet& next = fixture.openAddSheet(u"Ajouter un lieu"_s);
    QCOMPARE(next.findChild<QLineEdit*>()->text(), QString());
    QTest::keyClick(next.findChild<QLineEdit*>(), Qt::Key_Escape);
    QCOMPARE(fixture.sheet(), nullptr);
}

void ReferenceManagementViewTest::aTypeIsAddedWithItsIcon()
{
    ReferenceScreenFixture fixture(ReferenceKind::Type);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter un type"_s);
    QCOMPARE(sheet.findChild<IconPicker*>()->selection(), u"cube.fill"_s);
    type(sheet, u"PLA"_s);
    sheet.findChildren<IconCell*>().at(9)->click();
    ReferenceScreenFixture::button(sheet, u"Ajouter"_s).click();

    const FilamentType& added = *fixture.context.fetchAll<FilamentType>().front();
    QCOMPARE(added.name(), u"PLA"_s);
    QCOMPARE(added.iconName(), u"leaf.fill"_s);
    const ReferenceSheet& next = fixture.openAddSheet(u"Ajouter un type"_s);
    QCOMPARE(next.findChild<IconPicker*>()->selection(), u"cube.fill"_s);
}

void ReferenceManagementViewTest::f2RenamesTheSelection()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    fixture.add<Brand>(u"Bambu"_s);
    fixture.add<Brand>(u"Sunlu"_s);
    fixture.select(0);

    fixture.press(Qt::Key_F2);
    const ReferenceSheet& sheet = *fixture.sheet();
    QCOMPARE(sheet.windowTitle(), u"Modifier la marque"_s);
    QCOMPARE(sheet.findChild<QLineEdit*>()->text(), u"Bambu"_s);
    type(sheet, u"sunlu"_s);
    QVERIFY(!ReferenceScreenFixture::button(sheet, u"Enregistrer"_s).isEnabled());
    type(sheet, u"bambu"_s);
    QTest::keyClick(sheet.findChild<QLineEdit*>(), Qt::Key_Return);

    QCOMPARE(fixture.context.fetchAll<Brand>().front()->name(), u"bambu"_s);
    QCOMPARE(fixture.context.undoActionName(), u"Modifier la marque"_s);
}

void ReferenceManagementViewTest::cancellingKeepsTheIcon()
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

void ReferenceManagementViewTest::aVeryLongNameSurvivesANewIcon()
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

void ReferenceManagementViewTest::theEditSheetClosesWhenItsEntryIsGone()
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

void ReferenceManagementViewTest::theOpenSheetFollowsTheList()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter une marque"_s);
    type(sheet, u"Sunlu"_s);
    QVERIFY(ReferenceScreenFixture::button(sheet, u"Ajouter"_s).isEnabled());

    fixture.add<Brand>(u"SUNLU"_s);

    QVERIFY(sheet.findChild<DuplicateNameHint*>()->isVisible());
    QVERIFY(!ReferenceScreenFixture::button(sheet, u"Ajouter"_s).isEnabled());
}

void ReferenceManagementViewTest::aConfirmedSheetDoesNotRefuseItsOwnName()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    const ReferenceSheet& sheet = fixture.openAddSheet(u"Ajouter une marque"_s);
    const QPointer<DuplicateNameHint> hint(sheet.findChild<DuplicateNameHint*>());
    type(sheet, u"Sunlu"_s);

    ReferenceScreenFixture::button(sheet, u"Ajouter"_s).click();
    fixture.context.processPendingChanges(); // before the closed sheet is deleted

    QCOMPARE(fixture.context.count<Brand>(), 1);
    QVERIFY(hint->isHidden());
}

void ReferenceManagementViewTest::deleteAsksFirst_data()
{
    QTest::addColumn<int>("filaments");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("question");
    QTest::addColumn<int>("brandsLeft");

    QTest::newRow("not in use, confirmed")
        << 0 << u"Supprimer"_s << u"Voulez-vous vraiment supprimer cette marque ?"_s << 0;
    QTest::newRow("used once, confirmed")
        << 1 << u"Supprimer"_s
        << u"Cette marque est utilisée par 1 filament. Ils perdront leur marque."_s << 0;
    QTest::newRow("used twice, kept")
        << 2 << u"Annuler"_s
        << u"Cette marque est utilisée par 2 filaments. Ils perdront leur marque."_s << 1;
}

void ReferenceManagementViewTest::deleteAsksFirst()
{
    QFETCH(int, filaments);
    QFETCH(QString, answer);
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    fixture.add<Brand>(u"Sunlu"_s, filaments);
    fixture.select(0);

    fixture.press(Qt::Key_Delete);
    const Alert& alert = *fixture.alert();
    QCOMPARE(alert.windowTitle(), u"Supprimer cette marque ?"_s);
    QTEST(alert.accessibleDescription(), "question");
    QCOMPARE(fixture.context.count<Brand>(), 1);
    ReferenceScreenFixture::button(alert, answer).click();

    QTEST(int(fixture.context.count<Brand>()), "brandsLeft");
    QCOMPARE(fixture.context.count<Filament>(), filaments);
    QCOMPARE(fixture.alert(), nullptr);
}

void ReferenceManagementViewTest::theContextMenuEditsAndDeletes()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    fixture.add<Brand>(u"Bambu"_s);
    fixture.add<Brand>(u"Sunlu"_s);
    const QPoint place = fixture.list().visualRect(fixture.list().model()->index(1, 0)).center();

    QContextMenuEvent event(
        QContextMenuEvent::Mouse, place, fixture.list().viewport()->mapToGlobal(place));
    QApplication::sendEvent(fixture.list().viewport(), &event);
    auto* menu = fixture.list().findChild<QMenu*>();

    QStringList texts;
    for (const QAction* action : menu->actions()) {
        texts += action->text();
        QVERIFY(!action->icon().isNull());
    }
    QCOMPARE(texts, QStringList({u"Modifier"_s, u"Supprimer"_s}));
    menu->actions().at(0)->trigger();
    QCOMPARE(fixture.sheet()->findChild<QLineEdit*>()->text(), u"Sunlu"_s);
}

void ReferenceManagementViewTest::theKeysAskNothingWithoutASelection()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    fixture.add<Brand>(u"Sunlu"_s);

    fixture.press(Qt::Key_Delete);
    fixture.press(Qt::Key_F2);

    QCOMPARE(fixture.alert(), nullptr);
    QCOMPARE(fixture.sheet(), nullptr);
}

void ReferenceManagementViewTest::theArrowKeysGoOnWhereARowWasDeleted()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    fixture.add<Brand>(u"a"_s);
    Brand& middle = fixture.add<Brand>(u"b"_s);
    fixture.add<Brand>(u"c"_s);
    fixture.add<Brand>(u"d"_s);
    fixture.select(1);

    fixture.context.remove(middle);
    fixture.context.processPendingChanges();
    QCOMPARE(fixture.list().selectedEntry(), ReferenceId{});
    fixture.press(Qt::Key_Down);

    QCOMPARE(fixture.list().currentIndex().data().toString(), u"d"_s);
}

void ReferenceManagementViewTest::theSelectionHoldsWhenTheListChanges()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    fixture.add<Brand>(u"b"_s);
    fixture.select(0);

    fixture.add<Brand>(u"a"_s);

    QCOMPARE(fixture.list().currentIndex().data().toString(), u"b"_s);
    QCOMPARE(fixture.list().selectedEntry(), ReferenceId{1});
}

void ReferenceManagementViewTest::sheetsGoWithTheirScreen()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    fixture.add<Brand>(u"Sunlu"_s);
    const QPointer<ReferenceSheet> sheet(&fixture.openAddSheet(u"Ajouter une marque"_s));

    fixture.screen.reset();

    QVERIFY(sheet.isNull());
}

void ReferenceManagementViewTest::sheetsHaveTheirWidths()
{
    ReferenceScreenFixture types(ReferenceKind::Type);
    QCOMPARE(types.openAddSheet(u"Ajouter un type"_s).panelRect().width(), 380);
    ReferenceScreenFixture ranges(ReferenceKind::Range);
    QCOMPARE(ranges.openAddSheet(u"Ajouter une gamme"_s).panelRect().width(), 320);
    QCOMPARE(ranges.sheet()->findChild<IconPicker*>(), nullptr);
}

void ReferenceManagementViewTest::everyControlHasAName_data()
{
    QTest::addColumn<ReferenceKind>("kind");
    QTest::addColumn<QString>("command");

    QTest::newRow("types") << ReferenceKind::Type << u"Ajouter un type"_s;
    QTest::newRow("brands") << ReferenceKind::Brand << u"Ajouter une marque"_s;
    QTest::newRow("ranges") << ReferenceKind::Range << u"Ajouter une gamme"_s;
    QTest::newRow("locations") << ReferenceKind::Location << u"Ajouter un lieu"_s;
}

void ReferenceManagementViewTest::everyControlHasAName()
{
    QFETCH(ReferenceKind, kind);
    QFETCH(QString, command);
    ReferenceScreenFixture fixture(kind);
    ReferenceList list(fixture.context, kind);
    list.add(u"Un"_s, u"cube.fill"_s);
    list.add(u"Deux"_s, u"cube.fill"_s);
    fixture.context.processPendingChanges();
    QCOMPARE(tests::unnamedControls(fixture.screen.get()), QStringList());

    QCOMPARE(tests::unnamedControls(&fixture.openAddSheet(command)), QStringList());
}

void ReferenceManagementViewTest::aLongNameIsCutAndToldInATip()
{
    const QString name = QString(200, u'W');
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    fixture.add<Brand>(name);
    const QModelIndex index = fixture.list().model()->index(0, 0);
    const QPoint place = fixture.list().visualRect(index).center();
    QCOMPARE(fixture.list().visualRect(index).width(), fixture.list().viewport()->width());

    QHelpEvent event(QEvent::ToolTip, place, fixture.list().viewport()->mapToGlobal(place));
    QApplication::sendEvent(fixture.list().viewport(), &event);
    QCOMPARE(QToolTip::text(), name);

    fixture.context.fetchAll<Brand>().front()->setName(u"Court"_s);
    fixture.context.processPendingChanges();
    QApplication::sendEvent(fixture.list().viewport(), &event);
    QTRY_COMPARE(QToolTip::text(), QString());

    fixture.context.fetchAll<Brand>().front()->setName(u"<b>"_s + name);
    fixture.context.processPendingChanges();
    QApplication::sendEvent(fixture.list().viewport(), &event);
    QCOMPARE(QToolTip::text(), u"<p>&lt;b&gt;"_s + name + u"</p>"_s);
}

REELHOUSE_TEST(ReferenceManagementViewTest)

#include "ReferenceManagementViewTest.moc"
