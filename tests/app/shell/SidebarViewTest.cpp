#include "app/shell/SidebarView.h"

#include "app/shell/SidebarDelegate.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QListView>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class SidebarViewTest final : public QObject {
    Q_OBJECT

private slots:
    void entriesStandInTheirSections();
    void onlyScreensCanBeChosen();
    void aClickChoosesAScreen();
    void arrowKeysPassOverHeaders();
    void settingTheSelectionEmitsNothing();
};

namespace {

QListView& listOf(const SidebarView& sidebar)
{
    return *sidebar.findChild<QListView*>();
}

QModelIndex entry(const SidebarView& sidebar, const QString& title)
{
    const QAbstractItemModel* entries = listOf(sidebar).model();
    for (int row = 0; row < entries->rowCount(); ++row) {
        if (entries->index(row, 0).data().toString() == title)
            return entries->index(row, 0);
    }
    return {};
}

} // namespace

void SidebarViewTest::entriesStandInTheirSections()
{
    const SidebarView sidebar;

    QStringList titles;
    const QAbstractItemModel* entries = listOf(sidebar).model();
    for (int row = 0; row < entries->rowCount(); ++row)
        titles << entries->index(row, 0).data().toString();

    QCOMPARE(titles,
        (QStringList{u"Stock de filaments"_s, u"Favoris (filtre)"_s, u"Aucun favori"_s,
            u"Gérer les favoris…"_s, u"Gestion"_s, u"Types de filament"_s, u"Marques"_s,
            u"Gammes"_s, u"Lieux"_s, u"Sauvegarde"_s, u"Export / Import"_s, u"Export CSV"_s}));
    QCOMPARE(entry(sidebar, u"Aucun favori"_s).data(SidebarRole::hint).toString(),
        u"Enregistrez un filtre avec l'étoile de la barre de filtres"_s);
    QCOMPARE(entry(sidebar, u"Gérer les favoris…"_s).data(Qt::ToolTipRole).toString(),
        u"Renommer, réordonner ou supprimer les filtres favoris"_s);
    QCOMPARE(sidebar.minimumWidth(), 200);
}

void SidebarViewTest::onlyScreensCanBeChosen()
{
    const SidebarView sidebar;

    for (const QString& title : {u"Favoris (filtre)"_s, u"Aucun favori"_s, u"Gestion"_s})
        QVERIFY(!entry(sidebar, title).flags().testFlag(Qt::ItemIsEnabled));
    for (const NavItem item : allNavItems)
        QVERIFY(entry(sidebar, navItemTitle(item)).flags().testFlag(Qt::ItemIsSelectable));
}

void SidebarViewTest::aClickChoosesAScreen()
{
    SidebarView sidebar;
    sidebar.resize(220, 800);
    sidebar.show();
    QSignalSpy edited(&sidebar, &SidebarView::selectionEdited);

    const QRect place = listOf(sidebar).visualRect(entry(sidebar, u"Marques"_s));
    QTest::mouseClick(listOf(sidebar).viewport(), Qt::LeftButton, {}, place.center());

    QCOMPARE(edited.count(), 1);
    QCOMPARE(edited.first().first().value<NavItem>(), NavItem::Brands);
    QCOMPARE(sidebar.selection(), NavItem::Brands);
}

void SidebarViewTest::arrowKeysPassOverHeaders()
{
    SidebarView sidebar;
    sidebar.resize(220, 800);
    sidebar.show();
    sidebar.setSelection(NavItem::Library);

    QTest::keyClick(&listOf(sidebar), Qt::Key_Down);
    QCOMPARE(sidebar.selection(), NavItem::Types);

    QTest::keyClick(&listOf(sidebar), Qt::Key_Up);
    QCOMPARE(sidebar.selection(), NavItem::Library);
}

void SidebarViewTest::settingTheSelectionEmitsNothing()
{
    SidebarView sidebar;
    QSignalSpy edited(&sidebar, &SidebarView::selectionEdited);

    sidebar.setSelection(NavItem::Locations);

    QCOMPARE(sidebar.selection(), NavItem::Locations);
    QCOMPARE(edited.count(), 0);
}

REELHOUSE_TEST(SidebarViewTest)

#include "SidebarViewTest.moc"
