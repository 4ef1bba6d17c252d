#include "app/editing/ReferenceManagementView.h"

#include "app/ui/IconView.h"
#include "app/ui/Symbol.h"
#include "tests/app/editing/ReferenceScreenFixture.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/TestMain.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolTip>

using namespace reelhouse;
using reelhouse::tests::ReferenceScreenFixture;
using namespace Qt::StringLiterals;

class ReferenceManagementViewTest final : public QObject {
    Q_OBJECT

private slots:
    void anEmptyListSaysSo();
    void anEmptyListShowsItsSymbol_data();
    void anEmptyListShowsItsSymbol();
    void rowsShowNameAndUsage();
    void theListIsLive();
    void deleteAsksFirst_data();
    void deleteAsksFirst();
    void theContextMenuEditsAndDeletes();
    void theKeysAskNothingWithoutASelection();
    void theArrowKeysGoOnWhereARowWasDeleted();
    void theSelectionHoldsWhenTheListChanges();
    void sheetsGoWithTheirScreen();
    void everyControlHasAName_data();
    void everyControlHasAName();
    void aLongNameIsCutAndToldInATip();
};

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

void ReferenceManagementViewTest::anEmptyListShowsItsSymbol_data()
{
    QTest::addColumn<ReferenceKind>("kind");
    QTest::addColumn<QString>("symbol");

    QTest::newRow("types") << ReferenceKind::Type << u"square.3.layers.3d.down.right"_s;
    QTest::newRow("brands") << ReferenceKind::Brand << u"tag.fill"_s;
    QTest::newRow("ranges") << ReferenceKind::Range << u"list.star"_s;
    QTest::newRow("locations") << ReferenceKind::Location << u"map.fill"_s;
}

void ReferenceManagementViewTest::anEmptyListShowsItsSymbol()
{
    QFETCH(ReferenceKind, kind);
    QFETCH(QString, symbol);
    ReferenceScreenFixture fixture(kind);
    auto* icon = fixture.screen->findChild<IconView*>();
    QVERIFY(icon->isVisible());

    IconView expected(symbolIcon(symbol), 32);
    expected.setTile(76, 22, &Theme::sunken);
    expected.resize(76, 76);

    const QRect inTile(20, 20, 36, 36);
    QCOMPARE(icon->size(), QSize(76, 76));
    const auto seen = [&](IconView& view) {
        return view.grab(inTile).toImage().convertToFormat(QImage::Format_RGB32);
    };
    QCOMPARE(seen(*icon), seen(expected));
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

    QStringList entries;
    for (const QAction* action : menu->actions())
        entries += action->icon().name() + u' ' + action->text();
    QCOMPARE(entries, QStringList({u"pencil Modifier"_s, u"trash Supprimer"_s}));
    menu->actions().at(0)->trigger();
    QCOMPARE(fixture.sheet()->findChild<QLineEdit*>()->text(), u"Sunlu"_s);
    fixture.sheet()->reject();

    menu->actions().at(1)->trigger();
    QCOMPARE(fixture.alert()->windowTitle(), u"Supprimer cette marque ?"_s);
    QTest::keyClick(fixture.alert(), Qt::Key_Escape);
    QCOMPARE(fixture.alert(), nullptr);
    QCOMPARE(fixture.context.count<Brand>(), 2);
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
