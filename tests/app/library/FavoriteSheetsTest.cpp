#include "app/library/FavoriteRow.h"
#include "app/library/FilterFavoriteSaveView.h"
#include "app/library/FilterFavoritesManagementView.h"
#include "app/library/FilterFavoritesStore.h"
#include "app/ui/Alert.h"
#include "core/preferences/Preferences.h"
#include "tests/support/ShownButton.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

using namespace reelhouse;
using namespace Qt::StringLiterals;
using reelhouse::tests::shownButton;

/// The sheet that saves a favourite and the one that manages them, worked as by a user.
class FavoriteSheetsTest final : public QObject {
    Q_OBJECT

private slots:
    void theNameIsSuggestedAndReturnSaves();
    void theSummaryStandsUnderTheField_data();
    void theSummaryStandsUnderTheField();
    void aTakenNameKeepsTheSheetOpen();
    void aBlankNameDoesNothing();
    void cancellingSavesNothing();
    void withoutFavoritesTheManagementSaysSo();
    void rowsStandInOrderWithTheirSummaries();
    void renamingByPencilAndReturn();
    void renamingByDoubleClickAndButton();
    void onlyOneRowIsRenamed();
    void wrongNamesAreRefusedInTheRow_data();
    void wrongNamesAreRefusedInTheRow();
    void escapeLeavesTheRenamingOnly();
    void deletingAsksFirst_data();
    void deletingAsksFirst();
    void draggingReorders_data();
    void draggingReorders();
    void theKeyboardReorders();
};

namespace {

QStringList shownTexts(const QWidget& widget)
{
    QStringList texts;
    for (const QLabel* label : widget.findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty())
            texts << label->text();
    }
    return texts;
}

struct SheetFixture {
    explicit SheetFixture(const QStringList& names = {})
    {
        for (const QString& name : names)
            favorites.add(name, {.searchText = name});
        window.resize(1000, 800);
        window.show();
    }

    FilterFavoriteSaveView& openSave(const FilterCriteria& criteria)
    {
        auto* sheet = new FilterFavoriteSaveView(favorites, criteria, &window);
        return open(*sheet);
    }
    FilterFavoritesManagementView& openManagement()
    {
        return open(*new FilterFavoritesManagementView(favorites, &window));
    }
    template <class T>
    static T& open(T& sheet)
    {
        sheet.open();
        sheet.activateWindow();
        [[maybe_unused]] const bool isActive = QTest::qWaitForWindowActive(&sheet);
        return sheet;
    }
    QString names() const
    {
        QStringList names;
        for (const FilterFavorite& favorite : favorites.favorites())
            names << favorite.name;
        return names.join(u' ');
    }
    /// In their order on the screen.
    QList<FavoriteRow*> rows() const
    {
        auto rows = window.findChildren<FavoriteRow*>();
        std::ranges::sort(rows, {}, [](const FavoriteRow* row) { return row->y(); });
        return rows;
    }
    QLineEdit* field() const
    {
        for (QLineEdit* field : window.findChildren<QLineEdit*>()) {
            if (field->isVisible())
                return field;
        }
        return nullptr;
    }

    QTemporaryDir folder;
    Preferences preferences{folder.filePath(u"preferences.ini"_s)};
    FilterFavoritesStore favorites{preferences};
    QWidget window;
};

} // namespace

void FavoriteSheetsTest::theNameIsSuggestedAndReturnSaves()
{
    SheetFixture fixture({u"petg · aucune ENTAMÉE"_s});
    const FilterCriteria criteria{.typeName = u"PETG"_s, .opened = 0, .searchText = {}};
    const auto& sheet = fixture.openSave(criteria);
    QCOMPARE(fixture.field()->text(), u"PETG · aucune entamée (2)"_s);
    QCOMPARE(fixture.field()->selectedText(), u"PETG · aucune entamée (2)"_s);

    QTest::keyClicks(fixture.field(), u" Secs "_s);
    QTest::keyClick(fixture.field(), Qt::Key_Return);

    QVERIFY(!sheet.isVisible());
    QCOMPARE(fixture.favorites.favorites().size(), 2);
    QCOMPARE(fixture.favorites.favorites().last().name, u"Secs"_s);
    QCOMPARE(fixture.favorites.favorites().last().criteria, criteria);
}

void FavoriteSheetsTest::theSummaryStandsUnderTheField_data()
{
    QTest::addColumn<FilterCriteria>("criteria");
    QTest::addColumn<QString>("expected");

    QTest::newRow("some") << FilterCriteria{.typeName = u"PLA"_s, .spools = 99, .searchText = {}}
                          << u"Type : PLA — Bobines : 4+"_s;
    QTest::newRow("none") << FilterCriteria{.searchText = {}} << u"Tous les filaments"_s;
}

void FavoriteSheetsTest::theSummaryStandsUnderTheField()
{
    QFETCH(FilterCriteria, criteria);
    QFETCH(QString, expected);
    SheetFixture fixture;
    const auto& sheet = fixture.openSave(criteria);

    QCOMPARE(shownTexts(sheet),
        (QStringList{u"Enregistrer un favori"_s, u"Nom du favori"_s, expected,
            u"Le favori apparaîtra sous la barre de filtres, dans les vues Liste et Cartes."_s}));
}

void FavoriteSheetsTest::aTakenNameKeepsTheSheetOpen()
{
    SheetFixture fixture({u"Noir"_s});
    const auto& sheet = fixture.openSave({.searchText = u"x"_s});
    const int height = sheet.height();

    QTest::keyClicks(fixture.field(), u"NOIR"_s);
    QTest::mouseClick(shownButton(sheet, u"Enregistrer"_s), Qt::LeftButton);

    QVERIFY(sheet.isVisible());
    QCOMPARE(shownTexts(sheet).last(), u"Un favori porte déjà ce nom."_s);
    QCOMPARE(sheet.height(), height);
    QCOMPARE(fixture.names(), u"Noir"_s);
    QTest::keyClicks(fixture.field(), u"s"_s);
    QVERIFY(!shownTexts(sheet).contains(u"Un favori porte déjà ce nom."_s));
}

void FavoriteSheetsTest::aBlankNameDoesNothing()
{
    SheetFixture fixture;
    const auto& sheet = fixture.openSave({.searchText = u"x"_s});

    QTest::keyClicks(fixture.field(), u"  "_s);
    QTest::keyClick(fixture.field(), Qt::Key_Return);

    QVERIFY(sheet.isVisible());
    QCOMPARE(fixture.names(), QString());
}

void FavoriteSheetsTest::cancellingSavesNothing()
{
    SheetFixture fixture;
    const auto& sheet = fixture.openSave({.searchText = u"x"_s});

    QTest::mouseClick(shownButton(sheet, u"Annuler"_s), Qt::LeftButton);

    QVERIFY(!sheet.isVisible());
    QCOMPARE(fixture.names(), QString());
}

void FavoriteSheetsTest::withoutFavoritesTheManagementSaysSo()
{
    SheetFixture fixture;
    const auto& sheet = fixture.openManagement();

    QCOMPARE(shownTexts(sheet),
        (QStringList{u"Filtres favoris"_s, u"Aucun favori"_s,
            u"Sélectionnez des filtres puis cliquez sur l'étoile + pour les enregistrer."_s}));
    QTest::mouseClick(shownButton(sheet, u"Fermer"_s), Qt::LeftButton);
    QVERIFY(!sheet.isVisible());
}

void FavoriteSheetsTest::rowsStandInOrderWithTheirSummaries()
{
    SheetFixture fixture({u"Noir"_s});
    fixture.favorites.add(u"Tout"_s, {.searchText = {}});
    const auto& sheet = fixture.openManagement();

    QCOMPARE(shownTexts(sheet),
        (QStringList{u"Filtres favoris"_s, u"Noir"_s, u"Recherche : « Noir »"_s, u"Tout"_s,
            u"Tous les filaments"_s,
            u"Faites glisser un favori pour le réordonner. Un double-clic sur son nom permet de le renommer."_s}));
    QVERIFY(shownButton(sheet, u"Renommer « Noir »"_s));
    QVERIFY(shownButton(sheet, u"Supprimer « Tout »"_s));
}

void FavoriteSheetsTest::renamingByPencilAndReturn()
{
    SheetFixture fixture({u"Noir"_s, u"PLA"_s});
    const auto& sheet = fixture.openManagement();

    QTest::mouseClick(shownButton(sheet, u"Renommer « PLA »"_s), Qt::LeftButton);
    QVERIFY(fixture.field());
    QCOMPARE(fixture.field()->text(), u"PLA"_s);
    QCOMPARE(fixture.field()->placeholderText(), u"Nom du favori"_s);
    QVERIFY(fixture.field()->hasFocus());
    QTest::keyClicks(fixture.field(), u"pla"_s); // Other capitals are allowed.
    QTest::keyClick(fixture.field(), Qt::Key_Return);

    QVERIFY(!fixture.field());
    QCOMPARE(fixture.names(), u"Noir pla"_s);
    QVERIFY(sheet.isVisible());
    QVERIFY(shownTexts(sheet).contains(u"pla"_s));
}

void FavoriteSheetsTest::renamingByDoubleClickAndButton()
{
    SheetFixture fixture({u"Noir"_s});
    const auto& sheet = fixture.openManagement();
    QLabel* name = sheet.findChild<FavoriteRow*>()->findChild<QLabel*>();
    QCOMPARE(name->text(), u"Noir"_s);

    QTest::mouseDClick(name, Qt::LeftButton);
    QVERIFY(fixture.field());
    fixture.field()->setText(u" Gris "_s);
    QTest::mouseClick(shownButton(sheet, u"Renommer"_s), Qt::LeftButton);

    QVERIFY(!fixture.field());
    QCOMPARE(fixture.names(), u"Gris"_s);
}

void FavoriteSheetsTest::onlyOneRowIsRenamed()
{
    SheetFixture fixture({u"A"_s, u"B"_s});
    const auto& sheet = fixture.openManagement();

    QTest::mouseClick(shownButton(sheet, u"Renommer « A »"_s), Qt::LeftButton);
    QTest::mouseClick(shownButton(sheet, u"Renommer « B »"_s), Qt::LeftButton);

    QVERIFY(!fixture.rows().at(0)->isRenaming());
    QVERIFY(fixture.rows().at(1)->isRenaming());
    QTest::mouseClick(shownButton(sheet, u"Annuler"_s), Qt::LeftButton);
    QVERIFY(!fixture.rows().at(1)->isRenaming());
    QCOMPARE(fixture.names(), u"A B"_s);
}

void FavoriteSheetsTest::wrongNamesAreRefusedInTheRow_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("expectedError");

    QTest::newRow("blank") << u"  "_s << u"Le nom ne peut pas être vide."_s;
    QTest::newRow("taken") << u"NOIR"_s << u"Un favori porte déjà ce nom."_s;
}

void FavoriteSheetsTest::wrongNamesAreRefusedInTheRow()
{
    QFETCH(QString, name);
    QFETCH(QString, expectedError);
    SheetFixture fixture({u"Noir"_s, u"PLA"_s});
    const auto& sheet = fixture.openManagement();

    QTest::mouseClick(shownButton(sheet, u"Renommer « PLA »"_s), Qt::LeftButton);
    QTest::keyClicks(fixture.field(), name);
    QTest::keyClick(fixture.field(), Qt::Key_Return);

    QVERIFY(shownTexts(sheet).contains(expectedError));
    QVERIFY(fixture.rows().at(1)->isRenaming());
    QCOMPARE(fixture.names(), u"Noir PLA"_s);
    QTest::keyClicks(fixture.field(), u"+"_s);
    QVERIFY(!shownTexts(sheet).contains(expectedError));
}

void FavoriteSheetsTest::escapeLeavesTheRenamingOnly()
{
    SheetFixture fixture({u"Noir"_s});
    const auto& sheet = fixture.openManagement();
    QTest::mouseClick(shownButton(sheet, u"Renommer « Noir »"_s), Qt::LeftButton);

    QTest::keyClicks(fixture.field(), u"x"_s);
    QTest::keyClick(fixture.field(), Qt::Key_Escape);
    QVERIFY(sheet.isVisible());
    QVERIFY(!fixture.field());
    QCOMPARE(fixture.names(), u"Noir"_s);
    QCOMPARE(QApplication::focusWidget(), shownButton(sheet, u"Renommer « Noir »"_s));

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!sheet.isVisible());
}

void FavoriteSheetsTest::deletingAsksFirst_data()
{
    QTest::addColumn<bool>("byKeyboard");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QString>("expectedNames");

    QTest::newRow("confirmed") << false << u"Supprimer"_s << u"B"_s;
    QTest::newRow("cancelled") << false << u"Annuler"_s << u"A B"_s;
    QTest::newRow("by the key") << true << u"Supprimer"_s << u"B"_s;
}

void FavoriteSheetsTest::deletingAsksFirst()
{
    QFETCH(bool, byKeyboard);
    QFETCH(QString, answer);
    SheetFixture fixture({u"A"_s, u"B"_s});
    const auto& sheet = fixture.openManagement();

    if (byKeyboard)
        QTest::keyClick(shownButton(sheet, u"Renommer « A »"_s), Qt::Key_Delete);
    else
        QTest::mouseClick(shownButton(sheet, u"Supprimer « A »"_s), Qt::LeftButton);
    auto* alert = sheet.findChild<Alert*>();
    QVERIFY(alert);
    QCOMPARE(shownTexts(*alert),
        (QStringList{u"Supprimer le favori « A » ?"_s,
            u"Le filtre sera retiré des raccourcis. Les données des filaments ne sont pas modifiées."_s}));
    QTest::mouseClick(shownButton(*alert, answer), Qt::LeftButton);

    QTEST(fixture.names(), "expectedNames");
    QCOMPARE(shownTexts(sheet).contains(u"A"_s), fixture.names().contains(u'A'));
}

void FavoriteSheetsTest::draggingReorders_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("ontoRow");
    QTest::addColumn<bool>("lowerHalf");
    QTest::addColumn<QString>("expected");

    QTest::newRow("below the next") << 0 << 1 << true << u"B A C"_s;
    QTest::newRow("to the end") << 0 << 2 << true << u"B C A"_s;
    QTest::newRow("to the start") << 2 << 0 << false << u"C A B"_s;
    QTest::newRow("above its neighbour") << 2 << 1 << false << u"A C B"_s;
    QTest::newRow("back to its place") << 1 << 0 << true << u"A B C"_s;
}

void FavoriteSheetsTest::draggingReorders()
{
    QFETCH(int, from);
    QFETCH(int, ontoRow);
    QFETCH(bool, lowerHalf);
    SheetFixture fixture({u"A"_s, u"B"_s, u"C"_s});
    fixture.openManagement();
    FavoriteRow* row = fixture.rows().at(from);
    const FavoriteRow* target = fixture.rows().at(ontoRow);
    const int drop = target->y() + (lowerHalf ? target->height() - 8 : 8) - row->y();

    const QPoint grip(14, row->height() / 2);
    QTest::mousePress(row, Qt::LeftButton, {}, grip);
    QTest::mouseMove(row, QPoint(14, drop));
    QTest::mouseMove(row, QPoint(15, drop));
    QTest::mouseRelease(row, Qt::LeftButton, {}, QPoint(15, drop));

    QTEST(fixture.names(), "expected");
    QStringList shown;
    QCoreApplication::processEvents();
    for (const FavoriteRow* each : fixture.rows())
        shown << fixture.favorites.find(each->favoriteId())->name;
    QCOMPARE(shown.join(u' '), fixture.names());
}

void FavoriteSheetsTest::theKeyboardReorders()
{
    SheetFixture fixture({u"A"_s, u"B"_s, u"C"_s});
    const auto& sheet = fixture.openManagement();
    auto* pencil = shownButton(sheet, u"Renommer « A »"_s);
    pencil->setFocus();

    QTest::keyClick(pencil, Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(fixture.names(), u"A B C"_s);
    QTest::keyClick(pencil, Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(fixture.names(), u"B A C"_s);
    QTest::keyClick(pencil, Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(pencil, Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(fixture.names(), u"B C A"_s);
    QVERIFY(pencil->hasFocus());

    QTest::keyClick(pencil, Qt::Key_F2);
    QVERIFY(fixture.rows().at(2)->isRenaming());
}

REELHOUSE_TEST(FavoriteSheetsTest)

#include "FavoriteSheetsTest.moc"
