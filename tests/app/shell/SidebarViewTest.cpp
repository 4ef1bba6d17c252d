#include "app/shell/SidebarView.h"

#include "app/shell/SidebarDelegate.h"
#include "app/ui/Theme.h"
#include "tests/support/Pixels.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class SidebarViewTest final : public QObject {
    Q_OBJECT

private slots:
    void entriesStandInTheirSections();
    void titlesAreNotCut();
    void theFavoriteInUseIsToldByMoreThanAColor();
    void theRingStandsOutFromTheSelection();
    void onlyScreensCanBeChosen();
    void aClickChoosesAScreen();
    void arrowKeysPassOverHeaders();
    void settingTheSelectionEmitsNothing();
    void favoritesStandInTheirOrder();
    void favoritesAreAppliedByMouseKeyboardAndMenu();
    void theKeyboardStaysAtTheFavoriteThatIsApplied();
    void theCommandOpensTheManagement();
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

QList<FilterFavorite> twoFavorites()
{
    return {{QUuid::createUuid(), u"PLA rangés"_s,
                {.typeName = u"PLA"_s, .locationName = u"Tiroir"_s, .searchText = {}}},
        {QUuid::createUuid(), u"Tout"_s, {.searchText = {}}}};
}

void clickEntry(const SidebarView& sidebar, const QString& title)
{
    const QRect place = listOf(sidebar).visualRect(entry(sidebar, title));
    QTest::mouseClick(listOf(sidebar).viewport(), Qt::LeftButton, {}, place.center());
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

void SidebarViewTest::titlesAreNotCut()
{
    const QFont usual = QApplication::font();
    QCOMPARE(SidebarView().sizeHint().width(), 220);
    QFont large = usual;
    large.setPointSizeF(20);
    QApplication::setFont(large);
    large.setWeight(QFont::DemiBold);
    const int title = QFontMetrics(large).horizontalAdvance(u"Stock de filaments"_s);
    const int width = SidebarView().sizeHint().width();
    QApplication::setFont(usual);

    QVERIFY(width > title);
}

void SidebarViewTest::theFavoriteInUseIsToldByMoreThanAColor()
{
    SidebarView sidebar;
    const QList<FilterFavorite> favorites = twoFavorites();
    const auto isTicked = [&sidebar](const FilterFavorite& favorite) {
        return entry(sidebar, favorite.name).data(Qt::CheckStateRole).toInt() == Qt::Checked;
    };

    sidebar.setFavorites(favorites, std::nullopt);
    QVERIFY(!isTicked(favorites.at(0)) && !isTicked(favorites.at(1)));
    sidebar.setFavorites(favorites, favorites.at(1));
    QVERIFY(!isTicked(favorites.at(0)) && isTicked(favorites.at(1)));
}

void SidebarViewTest::theRingStandsOutFromTheSelection()
{
    SidebarView sidebar;
    sidebar.show();
    sidebar.setSelection(NavItem::Brands);
    QVERIFY(QTest::qWaitForWindowActive(&sidebar));
    listOf(sidebar).setFocus(Qt::TabFocusReason);
    sidebar.setAttribute(Qt::WA_KeyboardFocusChange);

    const QImage picture = listOf(sidebar).viewport()->grab().toImage();
    const QRect row = listOf(sidebar).visualRect(entry(sidebar, u"Marques"_s));
    const QRect middleOfTheTop(row.center().x(), row.top(), 1, 4);
    QCOMPARE(tests::pixelsLike(picture, middleOfTheTop, currentTheme().accentText), 2);
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
    QCOMPARE(listOf(sidebar).currentIndex(), entry(sidebar, u"Gérer les favoris…"_s));
    QCOMPARE(sidebar.selection(), NavItem::Library);
    QVERIFY(listOf(sidebar).selectionModel()->isSelected(entry(sidebar, u"Stock de filaments"_s)));

    QTest::keyClick(&listOf(sidebar), Qt::Key_Down);
    QCOMPARE(sidebar.selection(), NavItem::Types);

    QTest::keyClick(&listOf(sidebar), Qt::Key_Up);
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

void SidebarViewTest::favoritesStandInTheirOrder()
{
    SidebarView sidebar;
    const QList<FilterFavorite> favorites = twoFavorites();

    sidebar.setFavorites(favorites, favorites.at(1));

    const QAbstractItemModel* entries = listOf(sidebar).model();
    QStringList titles;
    for (int row = 1; row < 6; ++row)
        titles << entries->index(row, 0).data().toString();
    QCOMPARE(titles,
        (QStringList{u"Favoris (filtre)"_s, u"PLA rangés"_s, u"Tout"_s, u"Gérer les favoris…"_s,
            u"Gestion"_s}));
    const QModelIndex first = entry(sidebar, u"PLA rangés"_s);
    QCOMPARE(first.data(SidebarRole::symbol).toString(), u"star.fill"_s);
    QCOMPARE(first.data(Qt::ToolTipRole).toString(), u"Type : PLA — Lieu : Tiroir"_s);
    QCOMPARE(first.data(Qt::AccessibleDescriptionRole).toString(), u"Type : PLA — Lieu : Tiroir"_s);
    QVERIFY(!first.data(SidebarRole::isInUse).toBool());
    const QModelIndex second = entry(sidebar, u"Tout"_s);
    QCOMPARE(second.data(Qt::ToolTipRole).toString(), u"Tous les filaments"_s);
    QVERIFY(second.data(SidebarRole::isInUse).toBool());

    sidebar.setFavorites({}, std::nullopt);
    QVERIFY(entry(sidebar, u"Aucun favori"_s).isValid());
    QVERIFY(!entry(sidebar, u"Tout"_s).isValid());
}

void SidebarViewTest::favoritesAreAppliedByMouseKeyboardAndMenu()
{
    SidebarView sidebar;
    const QList<FilterFavorite> favorites = twoFavorites();
    sidebar.setFavorites(favorites, std::nullopt);
    sidebar.resize(220, 800);
    sidebar.show();
    sidebar.setSelection(NavItem::Brands);
    QSignalSpy chosen(&sidebar, &SidebarView::favoriteChosen);
    QSignalSpy managed(&sidebar, &SidebarView::manageFavoritesRequested);

    clickEntry(sidebar, u"Tout"_s);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.last().first().value<FilterFavorite>(), favorites.at(1));
    QCOMPARE(sidebar.selection(), NavItem::Brands);

    QTest::keyClick(&listOf(sidebar), Qt::Key_Up);
    QTest::keyClick(&listOf(sidebar), Qt::Key_Return);
    QCOMPARE(chosen.count(), 2);
    QCOMPARE(chosen.last().first().value<FilterFavorite>(), favorites.at(0));

    const QPoint place = listOf(sidebar).visualRect(entry(sidebar, u"Tout"_s)).center();
    QMetaObject::invokeMethod(&listOf(sidebar), "customContextMenuRequested", Q_ARG(QPoint, place));
    auto* menu = sidebar.findChild<QMenu*>();
    QVERIFY(menu);
    QCOMPARE(menu->actions().size(), 2);
    QCOMPARE(menu->actions().at(0)->text(), u"Appliquer"_s);
    QCOMPARE(menu->actions().at(1)->text(), u"Gérer les favoris…"_s);
    menu->actions().at(0)->trigger();
    QCOMPARE(chosen.count(), 3);
    QCOMPARE(chosen.last().first().value<FilterFavorite>(), favorites.at(1));
    menu->actions().at(1)->trigger();
    QCOMPARE(managed.count(), 1);
}

void SidebarViewTest::theKeyboardStaysAtTheFavoriteThatIsApplied()
{
    SidebarView sidebar;
    const QList<FilterFavorite> favorites = twoFavorites();
    sidebar.setFavorites(favorites, std::nullopt);
    sidebar.show();
    listOf(sidebar).setCurrentIndex(entry(sidebar, u"Tout"_s));

    sidebar.setFavorites(favorites, favorites.at(1));

    QCOMPARE(listOf(sidebar).currentIndex(), entry(sidebar, u"Tout"_s));
    QVERIFY(entry(sidebar, u"Tout"_s).data(SidebarRole::isInUse).toBool());
    sidebar.setFavorites(favorites, favorites.at(0));
    QVERIFY(!entry(sidebar, u"Tout"_s).data(SidebarRole::isInUse).toBool());
    QVERIFY(entry(sidebar, u"PLA rangés"_s).data(SidebarRole::isInUse).toBool());
}

void SidebarViewTest::theCommandOpensTheManagement()
{
    SidebarView sidebar;
    sidebar.resize(220, 800);
    sidebar.show();
    QSignalSpy managed(&sidebar, &SidebarView::manageFavoritesRequested);

    clickEntry(sidebar, u"Gérer les favoris…"_s);

    QCOMPARE(managed.count(), 1);
    QTest::keyClick(&listOf(sidebar), Qt::Key_Return);
    QCOMPARE(managed.count(), 2);
}

REELHOUSE_TEST(SidebarViewTest)

#include "SidebarViewTest.moc"
