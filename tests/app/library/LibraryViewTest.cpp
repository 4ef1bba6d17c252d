#include "app/library/LibraryView.h"

#include "app/library/FilterBarView.h"
#include "app/library/FilterFavoriteSaveView.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/library/ListView.h"
#include "app/printing/PrintOptionsView.h"
#include "app/ui/Alert.h"
#include "app/ui/SearchField.h"
#include "core/preferences/Preferences.h"
#include "tests/support/MemoryStock.h"
#include "tests/support/ShownButton.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

using namespace reelhouse;
using namespace Qt::StringLiterals;
using reelhouse::tests::shownButton;

class LibraryViewTest final : public QObject {
    Q_OBJECT

private slots:
    void theFirstAppearanceSeedsAFileStoreOnce();
    void theSampleIsCalledOneUntilItIsGone();
    void theTemporaryStoreIsNeverSeeded();
    void theSearchNarrowsTheList();
    void anEmptyStockSaysSo();
    void aSearchWithoutResultOffersToClearIt();
    void effacerClearsEveryFilter();
    void aDeletedReferenceLosesItsFilterForGood();
    void aFavoriteReplacesEveryFilter();
    void aPendingFavoriteWaitsUntilTheLibraryIsShown();
    void theFilterIsSavedAndUpdatedFromTheStar();
    void controlFGoesToTheSearch();
    void downGoesFromTheSearchToWhatWasFound_data();
    void downGoesFromTheSearchToWhatWasFound();
    void anEditIsShownWithTheNextTurn();
    void printingIsOfferedForWhatIsShown_data();
    void printingIsOfferedForWhatIsShown();
    void settingsAndAboutAreAskedFor();
    void deletingAsksFirst_data();
    void deletingAsksFirst();
};

namespace {

struct LibraryViewFixture {
    explicit LibraryViewFixture(StoreKind kind)
        : stock(tests::makeMemoryStock(kind))
        , library(*stock, preferences, favorites)
    {
        library.resize(1080, 800);
        library.show();
        QCoreApplication::processEvents();
    }

    int rows() const { return library.findChild<ListView*>()->model()->rowCount(); }
    void type(const QString& text)
    {
        auto* field = library.findChild<SearchField*>();
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, text);
    }
    QStringList shownTexts() const
    {
        QStringList texts;
        for (const QLabel* label : library.findChildren<QLabel*>()) {
            if (label->isVisible())
                texts << label->text();
        }
        return texts;
    }
    QPushButton* button(const QString& text) const { return shownButton(library, text); }

    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"preferences.conf"_s)};
    FilterFavoritesStore favorites{preferences};
    std::unique_ptr<StoreContainer> stock;
    LibraryView library;
};

} // namespace

void LibraryViewTest::theFirstAppearanceSeedsAFileStoreOnce()
{
    LibraryViewFixture fixture(StoreKind::File);
    QCOMPARE(fixture.rows(), 8);
    QVERIFY(fixture.preferences.didSeedSampleData());
    QVERIFY(fixture.shownTexts().contains(u"8 résultats"_s));
    QVERIFY(fixture.shownTexts().contains(u"12 bobines"_s));

    fixture.library.hide();
    fixture.library.show();

    QCOMPARE(fixture.rows(), 8);
}

void LibraryViewTest::theSampleIsCalledOneUntilItIsGone()
{
    LibraryViewFixture fixture(StoreKind::File);
    const QString note = u"Stock d'exemple, à essayer ou à effacer dans les réglages"_s;
    QVERIFY(fixture.shownTexts().contains(note));

    StoreContext& context = fixture.stock->context();
    context.insert(std::make_unique<Filament>(
        nullptr, nullptr, nullptr, nullptr, 1, 0, u"#FFFFFF"_s, QString(), QString()));
    std::vector<FilamentId> sample;
    for (const auto& filament : context.fetchAll<Filament>().first(8))
        sample.push_back(filament->id());
    for (const FilamentId id : sample) {
        QVERIFY(fixture.shownTexts().contains(note));
        context.remove(*context.find(id));
        QCoreApplication::processEvents();
    }
    QVERIFY(!fixture.shownTexts().contains(note));
    QVERIFY(fixture.shownTexts().contains(u"1 filament"_s));

    LibraryViewFixture old(StoreKind::Memory);
    QVERIFY(!old.shownTexts().contains(note));
}

void LibraryViewTest::theTemporaryStoreIsNeverSeeded()
{
    const LibraryViewFixture fixture(StoreKind::Memory);

    QCOMPARE(fixture.rows(), 0);
    QVERIFY(!fixture.preferences.didSeedSampleData());
}

void LibraryViewTest::theSearchNarrowsTheList()
{
    LibraryViewFixture fixture(StoreKind::File);

    fixture.type(u"etagere b"_s);
    QCOMPARE(fixture.rows(), 2);
    QVERIFY(fixture.shownTexts().contains(u"2 résultats"_s));

    fixture.type(u"#8e24"_s);
    QCOMPARE(fixture.rows(), 1);
    QVERIFY(fixture.shownTexts().contains(u"1 résultat"_s));
    QVERIFY(fixture.shownTexts().contains(u"12 bobines"_s));
}

void LibraryViewTest::anEmptyStockSaysSo()
{
    const LibraryViewFixture fixture(StoreKind::Memory);

    QVERIFY(fixture.shownTexts().contains(u"Stock vide"_s));
    QVERIFY(fixture.shownTexts().contains(u"0 résultat"_s));
    QVERIFY(fixture.button(u"Ajouter un filament"_s));
}

void LibraryViewTest::aSearchWithoutResultOffersToClearIt()
{
    LibraryViewFixture fixture(StoreKind::File);
    fixture.type(u"fluorescent"_s);
    QCOMPARE(fixture.rows(), 0);
    QVERIFY(!fixture.shownTexts().contains(u"Stock vide"_s));

    QTest::mouseClick(fixture.button(u"Effacer"_s), Qt::LeftButton);

    QCOMPARE(fixture.rows(), 8);
    QVERIFY(fixture.library.findChild<SearchField*>()->text().isEmpty());
}

void LibraryViewTest::effacerClearsEveryFilter()
{
    LibraryViewFixture fixture(StoreKind::File);
    fixture.library.applyFavorite({QUuid(), QString(),
        {u"PLA"_s, u"Bambu Lab"_s, u"PLA Basic"_s, u"Étagère A"_s, 2, 1, u"rouge"_s}});
    QCOMPARE(fixture.rows(), 1);
    QVERIFY(fixture.library.isFilterActive());

    QTest::mouseClick(fixture.button(u"Effacer"_s), Qt::LeftButton);

    QCOMPARE(fixture.rows(), 8);
    QVERIFY(!fixture.library.isFilterActive());
    QVERIFY(!fixture.button(u"Effacer"_s));
    QVERIFY(fixture.library.findChild<SearchField*>()->text().isEmpty());
}

void LibraryViewTest::aDeletedReferenceLosesItsFilterForGood()
{
    LibraryViewFixture fixture(StoreKind::File);
    StoreContext& context = fixture.stock->context();
    fixture.library.applyFavorite(
        {QUuid(), QString(), {.brandName = u"Bambu Lab"_s, .searchText = u"o"_s}});
    QCOMPARE(fixture.library.currentCriteria().brandName, u"Bambu Lab"_s);

    context.perform(u"Supprimer"_s, [&] { context.remove(*context.fetchAll<Brand>().front()); });
    QCoreApplication::processEvents();
    QCOMPARE(fixture.library.currentCriteria(), FilterCriteria{.searchText = u"o"_s});

    context.undo();
    QCoreApplication::processEvents();
    QCOMPARE(fixture.library.currentCriteria(), FilterCriteria{.searchText = u"o"_s});
}

void LibraryViewTest::aFavoriteReplacesEveryFilter()
{
    LibraryViewFixture fixture(StoreKind::File);
    fixture.type(u"etagere"_s);

    fixture.library.applyFavorite({QUuid(), QString(),
        {.typeName = u"PLA"_s, .brandName = u"Disparue"_s, .spools = 0, .searchText = {}}});

    QCOMPARE(fixture.library.currentCriteria(),
        (FilterCriteria{.typeName = u"PLA"_s, .spools = 0, .searchText = {}}));
    QCOMPARE(fixture.rows(), 0);
}

void LibraryViewTest::aPendingFavoriteWaitsUntilTheLibraryIsShown()
{
    LibraryViewFixture fixture(StoreKind::File);
    const FilterFavorite favorite{QUuid(), QString(), {.typeName = u"PLA"_s, .searchText = {}}};
    fixture.library.hide();

    fixture.library.setPendingFavorite(favorite);
    QVERIFY(!fixture.library.isFilterActive());
    fixture.library.show();
    QCOMPARE(fixture.library.currentCriteria(), favorite.criteria);

    fixture.library.resetFilters();
    fixture.library.hide();
    fixture.library.show();
    QVERIFY(!fixture.library.isFilterActive());
    fixture.library.setPendingFavorite(favorite);
    QCOMPARE(fixture.library.currentCriteria(), favorite.criteria);
}

void LibraryViewTest::theFilterIsSavedAndUpdatedFromTheStar()
{
    LibraryViewFixture fixture(StoreKind::File);
    fixture.type(u"rouge"_s);
    auto* bar = fixture.library.findChild<FilterBarView*>();

    emit bar->saveFavoriteRequested();
    auto* sheet = fixture.library.findChild<FilterFavoriteSaveView*>();
    QVERIFY(sheet);
    QTest::keyClick(sheet->findChild<QLineEdit*>(), Qt::Key_Return);

    QCOMPARE(fixture.favorites.favorites().size(), 1);
    const FilterFavorite saved = fixture.favorites.favorites().first();
    QCOMPARE(saved.name, u"« rouge »"_s);
    QCOMPARE(saved.criteria, FilterCriteria{.searchText = u"rouge"_s});

    fixture.type(u"bleu"_s);
    emit bar->favoriteUpdateRequested(saved);
    QCOMPARE(
        fixture.favorites.favorites().first().criteria, FilterCriteria{.searchText = u"bleu"_s});
}

void LibraryViewTest::controlFGoesToTheSearch()
{
    LibraryViewFixture fixture(StoreKind::File);
    fixture.library.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&fixture.library));
    fixture.library.findChild<ListView*>()->setFocus();

    QTest::keyClick(&fixture.library, Qt::Key_F, Qt::ControlModifier);

    QVERIFY(fixture.library.findChild<SearchField*>()->hasFocus());
}

void LibraryViewTest::downGoesFromTheSearchToWhatWasFound_data()
{
    QTest::addColumn<Qt::Key>("mode");

    QTest::newRow("list") << Qt::Key_1;
    QTest::newRow("cards") << Qt::Key_2;
}

void LibraryViewTest::downGoesFromTheSearchToWhatWasFound()
{
    QFETCH(Qt::Key, mode);
    LibraryViewFixture fixture(StoreKind::File);
    QTest::keyClick(&fixture.library, mode, Qt::ControlModifier);
    auto* field = fixture.library.findChild<SearchField*>();

    fixture.type(u"introuvable"_s);
    QTest::keyClick(field, Qt::Key_Down);
    QVERIFY(field->hasFocus());

    fixture.type(u"petg"_s);
    QTest::keyClick(field, Qt::Key_Down);
    auto* view = qobject_cast<QAbstractItemView*>(QApplication::focusWidget());
    QVERIFY(view);
    QCOMPARE(view->selectionModel()->selectedRows().value(0).row(), 0);

    QTest::keyClick(view, mode == Qt::Key_1 ? Qt::Key_Down : Qt::Key_Right);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Down);
    QVERIFY(view->hasFocus());
    QCOMPARE(view->selectionModel()->selectedRows().value(0).row(), 1);
}

void LibraryViewTest::anEditIsShownWithTheNextTurn()
{
    LibraryViewFixture fixture(StoreKind::File);
    StoreContext& context = fixture.stock->context();

    context.remove(*context.fetchAll<Filament>().front());
    QCoreApplication::processEvents();

    QCOMPARE(fixture.rows(), 7);
    QVERIFY(fixture.shownTexts().contains(u"7 filaments"_s));
}

void LibraryViewTest::printingIsOfferedForWhatIsShown_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("Imprimer") << false;
    QTest::newRow("Ctrl+P") << true;
}

void LibraryViewTest::printingIsOfferedForWhatIsShown()
{
    QFETCH(bool, byKey);
    LibraryViewFixture fixture(StoreKind::File);
    fixture.type(u"petg"_s);
    const QString count = QString::number(fixture.rows()) + u" filament(s) à imprimer"_s;
    QCOMPARE(fixture.button(u"Imprimer"_s)->toolTip(), u"Imprimer la liste du stock"_s);
    QVERIFY(QTest::qWaitForWindowActive(&fixture.library));

    if (byKey)
        QTest::keyClick(&fixture.library, Qt::Key_P, Qt::ControlModifier);
    else
        fixture.button(u"Imprimer"_s)->click();

    const auto* sheet = fixture.library.findChild<PrintOptionsView*>();
    QVERIFY(sheet);
    QVERIFY(sheet->isVisible());
    QStringList texts;
    for (const QLabel* label : sheet->findChildren<QLabel*>())
        texts << label->text();
    QVERIFY2(texts.contains(count), qPrintable(texts.join(u'|')));
    QVERIFY2(texts.contains(u"Recherche : « petg »"_s), qPrintable(texts.join(u'|')));
}

void LibraryViewTest::settingsAndAboutAreAskedFor()
{
    const LibraryViewFixture fixture(StoreKind::File);
    QSignalSpy settings(&fixture.library, &LibraryView::settingsRequested);
    QSignalSpy about(&fixture.library, &LibraryView::aboutRequested);
    QAbstractButton* settingsButton = fixture.button(u"Réglages"_s);
    QAbstractButton* aboutButton = fixture.button(u"À propos de Spoolwright"_s);
    QCOMPARE(settingsButton->toolTip(), u"Réglages"_s);
    QCOMPARE(aboutButton->toolTip(), u"À propos de Spoolwright"_s);

    settingsButton->click();
    QCOMPARE(settings.count(), 1);
    aboutButton->click();
    QCOMPARE(about.count(), 1);
}

void LibraryViewTest::deletingAsksFirst_data()
{
    QTest::addColumn<bool>("hasType");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("expectedQuestion");
    QTest::addColumn<int>("expectedRows");

    QTest::newRow("confirmed") << true << u"Supprimer"_s
                               << u"Voulez-vous vraiment supprimer ASA ?"_s << 7;
    QTest::newRow("cancelled") << true << u"Annuler"_s << u"Voulez-vous vraiment supprimer ASA ?"_s
                               << 8;
    QTest::newRow("without a type")
        << false << u"Supprimer"_s << u"Voulez-vous vraiment supprimer ce filament ?"_s << 7;
}

void LibraryViewTest::deletingAsksFirst()
{
    QFETCH(bool, hasType);
    QFETCH(QString, answer);
    QFETCH(QString, expectedQuestion);
    LibraryViewFixture fixture(StoreKind::File);
    auto* list = fixture.library.findChild<ListView*>();
    list->selectRow(0);
    if (!hasType) {
        fixture.stock->context().find(list->selectedFilament())->setType(nullptr);
        QCoreApplication::processEvents();
    }

    list->setFocus();
    QTest::keyClick(list, Qt::Key_Delete);

    auto* alert = fixture.library.findChild<Alert*>();
    QVERIFY(alert);
    QStringList texts;
    for (const QLabel* label : alert->findChildren<QLabel*>())
        texts << label->text();
    QCOMPARE(texts, (QStringList{u"Supprimer ce filament ?"_s, expectedQuestion}));
    for (QPushButton* button : alert->findChildren<QPushButton*>()) {
        if (button->text() == answer)
            button->click();
    }
    QCoreApplication::processEvents();
    QTEST(fixture.rows(), "expectedRows");
}

REELHOUSE_TEST(LibraryViewTest)

#include "LibraryViewTest.moc"
