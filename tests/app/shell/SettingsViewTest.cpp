#include "app/shell/SettingsView.h"

#include "app/shell/BackupReport.h"
#include "app/store/SqliteStore.h"
#include "app/store/StoreContainer.h"
#include "app/ui/Alert.h"
#include "app/ui/Stepper.h"
#include "app/ui/Toggle.h"
#include "core/preferences/Preferences.h"
#include "core/product/Product.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/TestMain.h"

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class SettingsViewTest final : public QObject {
    Q_OBJECT

private slots:
    void absentPreferencesShowTheirDefaults();
    void theCopyIsWrittenOnlyWhenSaved_data();
    void theCopyIsWrittenOnlyWhenSaved();
    void theStepperStaysBetweenOneAndAHundred();
    void backupsAreCountedInWords_data();
    void backupsAreCountedInWords();
    void aBackupSaysWhenItWasMade();
    void aBackupThatFailsSaysWhy();
    void theTemporaryStockIsNotBackedUp();
    void whatIsReportedNeverWidensTheSheet();
    void tabReachesWhatIsReported();
    void purgingTakesTheUnsavedCount();
    void theDesktopShowsFolderAndFile();
    void favoritesAreAskedFor();
    void clearingAsksAndEmptiesTheStock();
    void clearingCanBeCalledOff();
    void everyControlHasAName();
    void aLongPathIsCutInTheMiddle();
};

namespace {

struct SettingsFixture {
    explicit SettingsFixture(StoreKind kind = StoreKind::File)
    {
        auto container = StoreContainer::load(std::move(SqliteStore::openInMemory().value()), kind,
            folder.filePath(u"Spoolwright.store"_s));
        stock = std::move(container.value());
    }

    SettingsView& open()
    {
        window.resize(1100, 900);
        window.show();
        sheet = new SettingsView(*stock, preferences, {.version = u"1.2.3"_s, .build = u"45"_s},
            {.openFolder = [this](const QString& path) { openedFolders += path; },
                .showFile = [this](const QString& path) { shownFiles += path; }},
            &window);
        sheet->open();
        return *sheet;
    }

    QStringList texts() const
    {
        QStringList texts;
        for (const QLabel* label : sheet->findChildren<QLabel*>())
            texts += label->text();
        return texts;
    }
    QPushButton& button(const QString& text, const QWidget* parent = nullptr) const
    {
        const auto buttons = (parent ? parent : sheet)->findChildren<QPushButton*>();
        const auto found = std::ranges::find_if(buttons, [&](const QPushButton* tested) {
            return tested->text() == text || tested->accessibleName() == text;
        });
        Q_ASSERT(found != buttons.end());
        return **found;
    }
    Toggle& toggle(const QString& label) const
    {
        const auto labels = sheet->findChildren<QLabel*>();
        const auto found = std::ranges::find(labels, label, &QLabel::text);
        Q_ASSERT(found != labels.end());
        return *static_cast<Toggle*>((*found)->buddy());
    }
    QList<bool> shownSwitches() const
    {
        return {toggle(u"Confirmer avant de quitter l'application"_s).isChecked(),
            toggle(u"Sauvegarder automatiquement au démarrage"_s).isChecked(),
            toggle(u"Sauvegarder automatiquement en quittant"_s).isChecked(),
            toggle(u"Mémoriser la taille de la fenêtre et la dernière vue"_s).isChecked()};
    }
    QList<bool> savedSwitches() const
    {
        const Preferences saved(preferencesFile);
        return {saved.confirmOnQuit(), saved.autoBackupOnLaunch(), saved.autoBackupOnQuit(),
            saved.rememberWindowState()};
    }
    QString report() const { return sheet->findChild<BackupReport*>()->text(); }
    void makeBackups(int count) const
    {
        QDir(folder.path()).mkpath(u"Backups"_s);
        for (int number = 0; number < count; ++number) {
            QFile file(folder.filePath(u"Backups/ancien_%1.json"_s.arg(number)));
            QVERIFY(file.open(QIODevice::WriteOnly));
        }
    }
    qsizetype backups() const
    {
        return QDir(folder.filePath(u"Backups"_s)).entryList({u"*.json"_s}).size();
    }

    QTemporaryDir folder;
    QString preferencesFile = folder.filePath(u"preferences.ini"_s);
    Preferences preferences{preferencesFile};
    std::unique_ptr<StoreContainer> stock;
    QStringList openedFolders;
    QStringList shownFiles;
    QWidget window;
    SettingsView* sheet = nullptr;
};

} // namespace

void SettingsViewTest::absentPreferencesShowTheirDefaults()
{
    SettingsFixture fixture;
    const SettingsView& sheet = fixture.open();

    QCOMPARE(fixture.shownSwitches(), QList<bool>({true, true, true, true}));
    QVERIFY(fixture.texts().contains(u"1.2.3 (build 45)"_s));
    QVERIFY(fixture.texts().contains(u"Garder les 20 dernières sauvegardes"_s));
    QVERIFY(fixture.texts().contains(u"0 sauvegarde actuellement enregistrée"_s));
    QVERIFY(fixture.texts().contains(fixture.folder.filePath(u"Spoolwright.store"_s)));
    QCOMPARE(sheet.panelRect().width(), 620);
    QVERIFY(!QFile::exists(fixture.preferencesFile));
}

void SettingsViewTest::theCopyIsWrittenOnlyWhenSaved_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<QList<bool>>("switches");
    QTest::addColumn<int>("backups");

    QTest::newRow("Annuler") << u"Annuler"_s << QList<bool>{true, true, true, true} << 20;
    QTest::newRow("Sauvegarder") << u"Sauvegarder"_s << QList<bool>{false, true, false, true} << 21;
}

void SettingsViewTest::theCopyIsWrittenOnlyWhenSaved()
{
    QFETCH(QString, answer);
    SettingsFixture fixture;
    const SettingsView& sheet = fixture.open();
    fixture.toggle(u"Confirmer avant de quitter l'application"_s).click();
    fixture.toggle(u"Sauvegarder automatiquement en quittant"_s).click();
    sheet.findChild<Stepper*>()->step(1);
    QVERIFY(fixture.texts().contains(u"Garder les 21 dernières sauvegardes"_s));
    QCOMPARE(fixture.savedSwitches(), QList<bool>({true, true, true, true}));

    fixture.button(answer).click();

    QVERIFY(!sheet.isVisible());
    QTEST(fixture.savedSwitches(), "switches");
    QTEST(Preferences(fixture.preferencesFile).maxBackups(), "backups");
}

void SettingsViewTest::theStepperStaysBetweenOneAndAHundred()
{
    SettingsFixture fixture;
    auto& stepper = *fixture.open().findChild<Stepper*>();

    stepper.step(1000);
    QCOMPARE(stepper.value(), 100);
    stepper.step(-1000);
    QCOMPARE(stepper.value(), 1);
}

void SettingsViewTest::backupsAreCountedInWords_data()
{
    QTest::addColumn<int>("backups");
    QTest::addColumn<QString>("expected");

    QTest::newRow("none") << 0 << u"0 sauvegarde actuellement enregistrée"_s;
    QTest::newRow("one") << 1 << u"1 sauvegarde actuellement enregistrée"_s;
    QTest::newRow("two") << 2 << u"2 sauvegardes actuellement enregistrées"_s;
}

void SettingsViewTest::backupsAreCountedInWords()
{
    QFETCH(int, backups);
    QFETCH(QString, expected);
    SettingsFixture fixture;
    fixture.makeBackups(backups);

    fixture.open();

    QVERIFY2(fixture.texts().contains(expected), qPrintable(fixture.texts().join(u'|')));
}

void SettingsViewTest::aBackupSaysWhenItWasMade()
{
    SettingsFixture fixture;
    fixture.open();

    fixture.button(u"Sauvegarder maintenant"_s).click();

    static const QRegularExpression sentence(
        u"^Sauvegarde effectuée à ([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]$"_s);
    QVERIFY2(sentence.match(fixture.report()).hasMatch(), qPrintable(fixture.report()));
    QCOMPARE(fixture.backups(), 1);
    QVERIFY(fixture.texts().contains(u"1 sauvegarde actuellement enregistrée"_s));
    QVERIFY(fixture.sheet->isVisible());
}

void SettingsViewTest::aBackupThatFailsSaysWhy()
{
    SettingsFixture fixture;
    QFile inTheWay(fixture.folder.filePath(u"Backups"_s));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    fixture.open();

    fixture.button(u"Sauvegarder maintenant"_s).click();

    QVERIFY2(fixture.report().startsWith(u"La sauvegarde n'a pas pu être écrite : "_s),
        qPrintable(fixture.report()));
    QVERIFY(fixture.texts().contains(u"0 sauvegarde actuellement enregistrée"_s));
}

void SettingsViewTest::theTemporaryStockIsNotBackedUp()
{
    SettingsFixture fixture(StoreKind::Memory);
    fixture.open();

    fixture.button(u"Sauvegarder maintenant"_s).click();

    QCOMPARE(fixture.report(), u"Aucune sauvegarde n'a été créée (mode base temporaire)."_s);
    QVERIFY(!QFile::exists(fixture.folder.filePath(u"Backups"_s)));
}

void SettingsViewTest::whatIsReportedNeverWidensTheSheet()
{
    SettingsFixture fixture(StoreKind::Memory);
    fixture.makeBackups(100);
    const SettingsView& sheet = fixture.open();
    const auto* area = sheet.findChild<QScrollArea*>();
    const int before = area->widget()->width();

    fixture.button(u"Sauvegarder maintenant"_s).click();
    QCoreApplication::processEvents();

    QCOMPARE(area->widget()->width(), before);
    QVERIFY(area->widget()->width() <= area->viewport()->width());
    const auto& report = *sheet.findChild<BackupReport*>();
    const auto* text = report.findChild<QLabel*>();
    QVERIFY(report.rect().contains(text->geometry()));
    QVERIFY(text->heightForWidth(text->width()) <= text->height());
}

void SettingsViewTest::tabReachesWhatIsReported()
{
    SettingsFixture fixture(StoreKind::Memory);
    const SettingsView& sheet = fixture.open();
    QPushButton& button = fixture.button(u"Sauvegarder maintenant"_s);
    button.click();
    const auto* text = sheet.findChild<BackupReport*>()->findChild<QLabel*>();
    QTRY_COMPARE(QApplication::activeWindow(), &sheet);
    button.setFocus();

    QTest::keyClick(&button, Qt::Key_Backtab, Qt::ShiftModifier);

    QCOMPARE(QApplication::focusWidget(), text);
    QCOMPARE(text->selectedText(), u"Aucune sauvegarde n'a été créée (mode base temporaire)."_s);
}

void SettingsViewTest::purgingTakesTheUnsavedCount()
{
    SettingsFixture fixture;
    fixture.makeBackups(9);
    auto& stepper = *fixture.open().findChild<Stepper*>();
    stepper.step(-18);
    QCOMPARE(stepper.value(), 2);

    fixture.button(u"Purger maintenant"_s).click();

    QCOMPARE(fixture.backups(), 2);
    QCOMPARE(fixture.report(), u"Anciennes sauvegardes supprimées"_s);
    QVERIFY(fixture.texts().contains(u"2 sauvegardes actuellement enregistrées"_s));
    QCOMPARE(fixture.preferences.maxBackups(), 20);
}

void SettingsViewTest::theDesktopShowsFolderAndFile()
{
    SettingsFixture fixture;
    fixture.open();

    fixture.button(u"Ouvrir le dossier"_s).click();
    fixture.button(u"Afficher dans le gestionnaire de fichiers"_s).click();

    QCOMPARE(fixture.openedFolders, QStringList{fixture.folder.filePath(u"Backups"_s)});
    QCOMPARE(fixture.shownFiles, QStringList{fixture.folder.filePath(u"Spoolwright.store"_s)});
}

void SettingsViewTest::favoritesAreAskedFor()
{
    SettingsFixture fixture;
    QSignalSpy asked(&fixture.open(), &SettingsView::manageFavoritesRequested);
    QVERIFY(fixture.texts().contains(u"Renommer, réordonner ou supprimer les filtres favoris"_s));
    QVERIFY(
        fixture.texts().contains(u"Enregistrez un filtre avec l'étoile de la barre de filtres"_s));

    fixture.button(u"Gérer les favoris…"_s).click();

    QCOMPARE(asked.count(), 1);
}

void SettingsViewTest::clearingAsksAndEmptiesTheStock()
{
    SettingsFixture fixture;
    StoreContext& context = fixture.stock->context();
    fixture.makeBackups(1);
    fixture.preferences.setFilterFavorites("[]");
    context.perform(u"Ajouter"_s, [&] {
        auto& type = context.insert(std::make_unique<FilamentType>(u"PLA"_s));
        auto& brand = context.insert(std::make_unique<Brand>(u"Sunlu"_s));
        context.insert(std::make_unique<FilamentRange>(u"Mate"_s));
        context.insert(std::make_unique<Location>(u"Cave"_s));
        context.insert(std::make_unique<Filament>(
            &type, &brand, nullptr, nullptr, 3, 1, u"#FFFFFF"_s, QString(), QString()));
    });
    const SettingsView& sheet = fixture.open();

    fixture.button(u"Effacer la base"_s).click();
    const auto* alert = sheet.findChild<Alert*>();
    QCOMPARE(alert->windowTitle(), u"Effacer toute la base de données ?"_s);
    QCOMPARE(alert->accessibleDescription(),
        u"Cette action supprime définitivement tous les filaments, types, marques, gammes et "
        u"lieux. "
        "Cette action est irréversible."_s);
    QCOMPARE(context.count<Filament>(), 1);
    fixture.button(u"Effacer"_s, alert).click();

    QCOMPARE(context.count<Filament>() + context.count<FilamentType>() + context.count<Brand>()
            + context.count<FilamentRange>() + context.count<Location>(),
        0);
    QVERIFY(!context.hasUnsavedChanges());
    QCOMPARE(context.undoActionName(), QString());
    QVERIFY(Preferences(fixture.preferencesFile).didSeedSampleData());
    QCOMPARE(Preferences(fixture.preferencesFile).filterFavorites(), QByteArray("[]"));
    QCOMPARE(fixture.backups(), 1);
}

void SettingsViewTest::clearingCanBeCalledOff()
{
    SettingsFixture fixture;
    fixture.stock->context().insert(std::make_unique<Brand>(u"Sunlu"_s));
    const SettingsView& sheet = fixture.open();

    fixture.button(u"Effacer la base"_s).click();
    fixture.button(u"Annuler"_s, sheet.findChild<Alert*>()).click();

    QCOMPARE(fixture.stock->context().count<Brand>(), 1);
    QVERIFY(!fixture.preferences.didSeedSampleData());
    QVERIFY(sheet.isVisible());
}

void SettingsViewTest::everyControlHasAName()
{
    SettingsFixture fixture;

    QCOMPARE(tests::unnamedControls(&fixture.open()), QStringList());
}

void SettingsViewTest::aLongPathIsCutInTheMiddle()
{
    SettingsFixture fixture;
    const QString path = u'/' + QString(400, u'x') + u"/Spoolwright.store"_s;
    fixture.stock = std::move(StoreContainer::load(
        std::move(SqliteStore::openInMemory().value()), StoreKind::Memory, path)
                                  .value());
    const SettingsView& sheet = fixture.open();

    const auto labels = sheet.findChildren<QLabel*>();
    const auto found = std::ranges::find(labels, path, &QLabel::text);
    QVERIFY(found != labels.end());
    QVERIFY((*found)->width() < 600);
    QCOMPARE((*found)->toolTip(), path);
}

REELHOUSE_TEST(SettingsViewTest)

#include "SettingsViewTest.moc"
