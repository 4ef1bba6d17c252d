#include "app/library/FilterBarView.h"

#include "app/library/FavoritesMenu.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/ui/CapsuleButton.h"
#include "app/ui/SearchField.h"
#include "core/preferences/Preferences.h"
#include "tests/support/MemoryStock.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTemporaryDir>
#include <QtGui/QTextDocumentFragment>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilterBarViewTest final : public QObject {
    Q_OBJECT

private slots:
    void capsulesOfferTheirEntries_data();
    void capsulesOfferTheirEntries();
    void choosingChangesOneCriterion();
    void capsulesShowWhatIsSet();
    void namesInMenusAreTakenLiterally();
    void cutNamesInMenusHaveToolTips();
    void typingAndEscapeEditTheSearch();
    void effacerShowsWhileAFilterIsActive();
    void theResultCountAgrees_data();
    void theResultCountAgrees();
    void theStarTellsAFavorite();
    void theFavoritesMenuHasItsEntries();
    void theBarWrapsInsteadOfCutting();
    void aFilterDoesNotMakeTheBarHigher();
};

Q_DECLARE_METATYPE(reelhouse::FilterSelection)

namespace {

struct FilterBarFixture {
    FilterBarFixture()
    {
        StoreContext& context = stock->context();
        for (const QString& name : {u"Tiroir 10"_s, u"tiroir 2"_s, u"Armoire"_s})
            context.insert(std::make_unique<Location>(name));
        pla = context.insert(std::make_unique<FilamentType>(u"PLA"_s, u"leaf.fill"_s)).id();
        bar.resize(1080, 48);
        bar.show();
    }

    CapsuleButton* capsule(const QString& field) const
    {
        const auto capsules = bar.findChildren<CapsuleButton*>();
        const auto found = std::ranges::find(capsules, field, &QWidget::accessibleName);
        return found == capsules.end() ? nullptr : *found;
    }
    /// The titles of a menu's entries, "-" for a separator and "✓" before a ticked one.
    static QStringList entries(QMenu* menu)
    {
        emit menu->aboutToShow();
        QStringList titles;
        for (const QAction* action : menu->actions())
            titles << (action->isSeparator()
                    ? u"-"_s
                    : (action->isChecked() ? u"✓"_s : u""_s) + action->text());
        return titles;
    }
    static void choose(QMenu* menu, const QString& title)
    {
        emit menu->aboutToShow();
        for (QAction* action : menu->actions()) {
            if (action->text() == title) {
                action->trigger();
                return;
            }
        }
        QFAIL("no such entry");
    }
    QPushButton* resetButton() const
    {
        for (QPushButton* button : bar.findChildren<QPushButton*>()) {
            if (button->text() == u"Effacer"_s)
                return button;
        }
        return nullptr;
    }

    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"preferences.ini"_s)};
    FilterFavoritesStore favorites{preferences};
    std::unique_ptr<StoreContainer> stock = tests::makeMemoryStock();
    FilamentTypeId pla;
    FilterBarView bar{stock->context(), favorites};
};

} // namespace

void FilterBarViewTest::aFilterDoesNotMakeTheBarHigher()
{
    FilterBarFixture fixture;
    const int atRest = fixture.bar.heightForWidth(1080);

    fixture.bar.setSelection({.type = fixture.pla, .searchText = {}});

    QVERIFY(fixture.resetButton()->isVisible());
    QCOMPARE(fixture.bar.heightForWidth(1080), atRest);
}

void FilterBarViewTest::capsulesOfferTheirEntries_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("types") << u"Type"_s << QStringList{u"✓Tous"_s, u"PLA"_s};
    QTest::newRow("no brand yet") << u"Marque"_s << QStringList{u"✓Tous"_s};
    QTest::newRow("no range yet") << u"Gamme"_s << QStringList{u"✓Tous"_s};
    QTest::newRow("locations as in a file browser")
        << u"Lieu"_s << QStringList{u"✓Tous"_s, u"Armoire"_s, u"tiroir 2"_s, u"Tiroir 10"_s};
    QTest::newRow("spools") << u"Bobines"_s
                            << QStringList{u"✓Toutes"_s, u"1"_s, u"2"_s, u"3"_s, u"4+"_s};
    QTest::newRow("opened") << u"Entamées"_s
                            << QStringList{u"✓Toutes"_s, u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"4+"_s};
}

void FilterBarViewTest::capsulesOfferTheirEntries()
{
    QFETCH(QString, field);
    const FilterBarFixture fixture;

    QTEST(FilterBarFixture::entries(fixture.capsule(field)->menu()), "expected");
}

void FilterBarViewTest::choosingChangesOneCriterion()
{
    FilterBarFixture fixture;
    FilterSelection selection{.opened = 0, .searchText = u"x"_s};
    fixture.bar.setSelection(selection);
    QSignalSpy edited(&fixture.bar, &FilterBarView::selectionEdited);
    const auto last = [&] { return edited.last().first().value<FilterSelection>(); };

    FilterBarFixture::choose(fixture.capsule(u"Type"_s)->menu(), u"PLA"_s);
    selection.type = fixture.pla;
    QCOMPARE(last(), selection);

    fixture.bar.setSelection(selection);
    FilterBarFixture::choose(fixture.capsule(u"Bobines"_s)->menu(), u"4+"_s);
    selection.spools = 99;
    QCOMPARE(last(), selection);

    fixture.bar.setSelection(selection);
    FilterBarFixture::choose(fixture.capsule(u"Entamées"_s)->menu(), u"Toutes"_s);
    selection.opened.reset();
    QCOMPARE(last(), selection);

    fixture.bar.setSelection(selection);
    FilterBarFixture::choose(fixture.capsule(u"Type"_s)->menu(), u"Tous"_s);
    selection.type = {};
    QCOMPARE(last(), selection);
    QCOMPARE(edited.count(), 4);
}

void FilterBarViewTest::capsulesShowWhatIsSet()
{
    FilterBarFixture fixture;

    fixture.bar.setSelection({.type = fixture.pla, .spools = 150, .opened = 0});

    QCOMPARE(fixture.capsule(u"Type"_s)->value(), u"PLA"_s);
    QCOMPARE(fixture.capsule(u"Type"_s)->accessibleDescription(), u"PLA"_s);
    QCOMPARE(fixture.capsule(u"Marque"_s)->accessibleDescription(), u"Tous"_s);
    QCOMPARE(fixture.capsule(u"Bobines"_s)->value(), u"4+"_s);
    QCOMPARE(fixture.capsule(u"Entamées"_s)->value(), u"0"_s);
    QVERIFY(FilterBarFixture::entries(fixture.capsule(u"Bobines"_s)->menu()).contains(u"✓4+"_s));
    QVERIFY(FilterBarFixture::entries(fixture.capsule(u"Type"_s)->menu()).contains(u"✓PLA"_s));

    fixture.stock->context().find(fixture.pla)->setName(u"PLA+"_s);
    fixture.bar.setSelection({.type = fixture.pla});
    QCOMPARE(fixture.capsule(u"Type"_s)->value(), u"PLA+"_s);
}

void FilterBarViewTest::namesInMenusAreTakenLiterally()
{
    const FilterBarFixture fixture;
    StoreContext& context = fixture.stock->context();
    context.insert(std::make_unique<Brand>(u"R&D"_s));
    context.insert(std::make_unique<Brand>(u"Un\tdeux"_s));
    context.insert(std::make_unique<Brand>(QString(70, u'z')));

    QCOMPARE(FilterBarFixture::entries(fixture.capsule(u"Marque"_s)->menu()),
        (QStringList{u"✓Tous"_s, u"R&&D"_s, u"Un deux"_s, QString(60, u'z') + u'…'}));
}

void FilterBarViewTest::cutNamesInMenusHaveToolTips()
{
    FilterBarFixture fixture;
    const QString markup = u"<b>"_s + QString(70, u'z');
    fixture.stock->context().insert(std::make_unique<Brand>(u"Acme"_s));
    fixture.stock->context().insert(std::make_unique<Brand>(markup));
    fixture.favorites.add(QString(70, u'y'), {.typeName = u"PLA"_s, .searchText = {}});
    fixture.bar.setSelection({.type = fixture.pla});
    // Of an entry without one of its own it is the title.
    const auto toolTipOf = [](QMenu* menu, int entry) {
        emit menu->aboutToShow();
        return QTextDocumentFragment::fromHtml(menu->actions().at(entry)->toolTip()).toPlainText();
    };
    auto* brands = fixture.capsule(u"Marque"_s)->menu();
    auto* favorites = fixture.bar.findChild<FavoritesMenu*>();

    QVERIFY(brands->toolTipsVisible());
    QCOMPARE(toolTipOf(brands, 1), markup);
    QCOMPARE(toolTipOf(brands, 2), u"Acme"_s);
    QVERIFY(favorites->toolTipsVisible());
    QCOMPARE(toolTipOf(favorites, 2), QString(70, u'y'));
    QCOMPARE(toolTipOf(favorites, 3), QString(70, u'y')); // The one to update it.
}

void FilterBarViewTest::typingAndEscapeEditTheSearch()
{
    FilterBarFixture fixture;
    QSignalSpy edited(&fixture.bar, &FilterBarView::selectionEdited);
    connect(
        &fixture.bar, &FilterBarView::selectionEdited, &fixture.bar, &FilterBarView::setSelection);
    auto* field = fixture.bar.findChild<SearchField*>();
    fixture.bar.activateWindow();
    fixture.bar.focusSearch();

    QTest::keyClicks(field, u" a "_s);
    QCOMPARE(edited.count(), 3);
    QCOMPARE(edited.last().first().value<FilterSelection>().searchText, u" a "_s);
    QCOMPARE(field->cursorPosition(), 3);

    QTest::keyClick(field, Qt::Key_Escape);
    QCOMPARE(edited.last().first().value<FilterSelection>(), FilterSelection());
    QCOMPARE(field->text(), QString());
}

void FilterBarViewTest::effacerShowsWhileAFilterIsActive()
{
    FilterBarFixture fixture;
    QSignalSpy reset(&fixture.bar, &FilterBarView::resetRequested);
    QVERIFY(!fixture.resetButton()->isVisible());
    const int height = fixture.bar.heightForWidth(4000);

    fixture.bar.setSelection({.searchText = u" "_s});

    QCOMPARE(fixture.bar.heightForWidth(4000), height); // What is below stays where it is.
    QVERIFY(fixture.resetButton()->isVisible());
    QCOMPARE(fixture.resetButton()->toolTip(), u"Réinitialiser les filtres"_s);
    QTest::mouseClick(fixture.resetButton(), Qt::LeftButton);
    QCOMPARE(reset.count(), 1);
}

void FilterBarViewTest::theResultCountAgrees_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expected");

    QTest::newRow("none") << 0 << u"0 résultat"_s;
    QTest::newRow("one") << 1 << u"1 résultat"_s;
    QTest::newRow("many") << 12000 << u"12000 résultats"_s;
}

void FilterBarViewTest::theResultCountAgrees()
{
    QFETCH(int, count);
    FilterBarFixture fixture;

    fixture.bar.setResultCount(count);

    QTEST(fixture.bar.findChild<QLabel*>()->text(), "expected");
}

void FilterBarViewTest::theStarTellsAFavorite()
{
    FilterBarFixture fixture;
    const FilterSelection selection{.type = fixture.pla};
    fixture.bar.setSelection(selection);
    auto* star = fixture.capsule(u"Filtres favoris"_s);
    QCOMPARE(star->symbol(), u"star"_s);

    const auto favorite = fixture.favorites.add(u"PLA"_s, {.typeName = u"PLA"_s, .searchText = {}});
    QCOMPARE(star->symbol(), u"star.fill"_s);

    fixture.bar.setSelection({.type = fixture.pla, .searchText = u"x"_s});
    QCOMPARE(star->symbol(), u"star"_s);
    fixture.bar.setSelection(selection);
    QCOMPARE(star->symbol(), u"star.fill"_s);
    fixture.favorites.remove(favorite->id);
    QCOMPARE(star->symbol(), u"star"_s);
}

void FilterBarViewTest::theFavoritesMenuHasItsEntries()
{
    FilterBarFixture fixture;
    auto* menu = fixture.bar.findChild<FavoritesMenu*>();
    QCOMPARE(FilterBarFixture::entries(menu),
        (QStringList{u"Enregistrer le filtre actuel…"_s, u"-"_s, u"Gérer les favoris…"_s}));
    QVERIFY(!menu->actions().first()->isEnabled());

    const auto noir = fixture.favorites.add(u"Noirs"_s, {.searchText = u"noir"_s});
    const auto pla = fixture.favorites.add(u"PLA"_s, {.typeName = u"PLA"_s, .searchText = {}});
    fixture.favorites.add(u"PLA encore"_s, pla->criteria);
    fixture.bar.setSelection({.type = fixture.pla});
    QCOMPARE(FilterBarFixture::entries(menu),
        (QStringList{u"Enregistrer le filtre actuel…"_s, u"-"_s, u"Noirs"_s, u"✓PLA"_s,
            u"✓PLA encore"_s, u"Mettre à jour « PLA »"_s, u"-"_s, u"Gérer les favoris…"_s}));
    QVERIFY(menu->actions().first()->isEnabled());

    QSignalSpy saved(&fixture.bar, &FilterBarView::saveFavoriteRequested);
    QSignalSpy chosen(&fixture.bar, &FilterBarView::favoriteChosen);
    QSignalSpy updated(&fixture.bar, &FilterBarView::favoriteUpdateRequested);
    QSignalSpy managed(&fixture.bar, &FilterBarView::manageFavoritesRequested);
    FilterBarFixture::choose(menu, u"Enregistrer le filtre actuel…"_s);
    FilterBarFixture::choose(menu, u"Noirs"_s);
    FilterBarFixture::choose(menu, u"Mettre à jour « PLA »"_s);
    FilterBarFixture::choose(menu, u"Gérer les favoris…"_s);
    QCOMPARE(saved.count(), 1);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen.first().first().value<FilterFavorite>(), *noir);
    QCOMPARE(updated.count(), 1);
    QCOMPARE(updated.first().first().value<FilterFavorite>(), *pla);
    QCOMPARE(managed.count(), 1);
}

void FilterBarViewTest::theBarWrapsInsteadOfCutting()
{
    FilterBarFixture fixture;
    const auto* field = fixture.bar.findChild<SearchField*>();
    const auto* type = fixture.capsule(u"Type"_s);
    const auto* opened = fixture.capsule(u"Entamées"_s);
    const int oneLine = fixture.bar.heightForWidth(4000);
    const int needed = fixture.bar.sizeHint().width();

    QCOMPARE(fixture.bar.heightForWidth(needed), oneLine);
    QVERIFY(fixture.bar.heightForWidth(needed - 1) > oneLine);

    fixture.bar.resize(needed, oneLine);
    QCoreApplication::processEvents();
    QCOMPARE(field->geometry().center().y(), type->geometry().center().y());
    QCOMPARE(field->width(), 128);
    fixture.bar.resize(needed - 1, fixture.bar.heightForWidth(needed - 1));
    QCoreApplication::processEvents();
    QVERIFY(field->y() > type->geometry().bottom());
    QCOMPARE(opened->y(), type->y());
    QVERIFY(field->width() > 128);

    const int narrow = needed / 3;
    fixture.bar.resize(narrow, fixture.bar.heightForWidth(narrow));
    QCoreApplication::processEvents();
    QVERIFY(opened->y() > type->y());
    for (const QWidget* child : fixture.bar.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (child->isVisible() && !child->isWindow())
            QVERIFY(fixture.bar.rect().contains(child->geometry()));
    }
}

REELHOUSE_TEST(FilterBarViewTest)

#include "FilterBarViewTest.moc"
