#include "app/shell/SettingsView.h"

#include "app/backup/BackupService.h"
#include "app/backup/StockDocument.h"
#include "app/shell/BackupReport.h"
#include "app/shell/PathLabel.h"
#include "app/store/StoreContainer.h"
#include "app/ui/Alert.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/FocusRing.h"
#include "app/ui/FormGroup.h"
#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/Stepper.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Toggle.h"
#include "core/preferences/Preferences.h"
#include "core/product/Product.h"
#include "core/text/Plural.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int settingsWidth = 620;
constexpr int settingsSymbolSide = 24;
constexpr int mostBackups = 100;

/// "3 sauvegardes actuellement enregistrées"
QString backupCountText(int count)
{
    return counted(count, u"sauvegarde"_s) + u" actuellement "_s
        + agreeing(count, u"enregistrée"_s);
}

/// A row of buttons from the left on.
QWidget* buttonLine(const QList<QPushButton*>& buttons)
{
    auto* line = new QWidget;
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 4, 0, 4);
    row->setSpacing(8);
    for (QPushButton* button : buttons)
        row->addWidget(button);
    row->addStretch(1);
    return line;
}

} // namespace

SettingsView::SettingsView(StoreContainer& container, Preferences& preferences,
    const Product& product, Desktop desktop, QWidget* parent)
    : Sheet(u"Réglages"_s, settingsWidth, parent)
    , m_container(container)
    , m_preferences(preferences)
    , m_desktop(std::move(desktop))
    , m_confirmOnQuit(new Toggle)
    , m_rememberWindowState(new Toggle)
    , m_backupOnLaunch(new Toggle)
    , m_backupOnQuit(new Toggle)
    , m_maxBackups(new Stepper(u"Garder les "_s))
    , m_backupCount(new QLabel)
    , m_report(new BackupReport)
{
    body()->setSpacing(6);
    addHeader(product);
    addGeneralGroup();
    addBackupGroup();
    addStoreGroup();
    addFavoritesGroup();
    addDatabaseGroup();
    body()->addStretch(1);
    addButtons();
    load();
}

void SettingsView::addHeader(const Product& product)
{
    auto* version = new QLabel(product.version + u" (build "_s + product.build + u')');
    setTextTone(version, TextTone::Secondary);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(2, 0, 0, 8);
    row->setSpacing(12);
    row->addWidget(new IconView(symbolIcon(u"gearshape.fill"_s), settingsSymbolSide));
    row->addWidget(version, 1);
    body()->addLayout(row);
}

FormGroup* SettingsView::addGroup(const QString& heading)
{
    if (!heading.isEmpty()) {
        auto* label = new QLabel(heading);
        QFont font = fontOf(TextStyle::Caption);
        font.setWeight(QFont::DemiBold);
        label->setFont(font);
        label->setContentsMargins(14, 8, 0, 0);
        setTextTone(label, TextTone::Secondary);
        body()->addWidget(label);
    }
    auto* group = new FormGroup;
    body()->addWidget(group);
    return group;
}

void SettingsView::addGeneralGroup()
{
    FormGroup* group = addGroup();
    group->addRow(u"Confirmer avant de quitter l'application"_s, m_confirmOnQuit);
    group->addRow(u"Mémoriser la taille de la fenêtre et la dernière vue"_s, m_rememberWindowState);
}

void SettingsView::addBackupGroup()
{
    m_maxBackups->setSuffix(u" dernières sauvegardes"_s);
    m_maxBackups->setAccessibleName(u"Nombre de sauvegardes à garder"_s);
    m_maxBackups->setRange(1, mostBackups);
    auto* backUp = new QPushButton(u"Sauvegarder maintenant"_s);
    auto* purge = new QPushButton(u"Purger maintenant"_s);
    auto* open = new QPushButton(u"Ouvrir le dossier"_s);

    auto* backupLine = new QWidget;
    auto* backupRow = new QHBoxLayout(backupLine);
    backupRow->setContentsMargins(0, 0, 0, 0);
    backupRow->addWidget(m_backupCount);
    backupRow->addWidget(m_report, 1);

    FormGroup* group = addGroup(u"Sauvegarde"_s);
    group->addRow(u"Sauvegarder automatiquement au démarrage"_s, m_backupOnLaunch);
    group->addRow(u"Sauvegarder automatiquement en quittant"_s, m_backupOnQuit);
    group->addRow(m_maxBackups->label(), m_maxBackups);
    group->addRow(backupLine, int(focusRingInset));
    group->addRow(buttonLine({backUp, purge}));
    group->addRow(u"Dossier des sauvegardes"_s, open);

    connect(backUp, &QPushButton::clicked, this, &SettingsView::backUpNow);
    connect(purge, &QPushButton::clicked, this, &SettingsView::purgeNow);
    connect(open, &QPushButton::clicked, this,
        [this] { m_desktop.openFolder(BackupService::backupFolder(m_container)); });
}

void SettingsView::addStoreGroup()
{
    auto* path = new PathLabel(m_container.storeFile());
    setTextTone(path, TextTone::Secondary);
    auto* show = new QPushButton(symbolIcon(u"folder"_s, &Theme::textPrimary), {});
    show->setAccessibleName(u"Afficher dans le gestionnaire de fichiers"_s);
    show->setToolTip(show->accessibleName());
    auto* line = new QWidget;
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 2, 0, 2);
    row->setSpacing(12);
    row->addWidget(path, 1);
    row->addWidget(show);
    addGroup(u"Emplacement du stockage"_s)->addRow(line);
    connect(
        show, &QPushButton::clicked, this, [this] { m_desktop.showFile(m_container.storeFile()); });
}

void SettingsView::addFavoritesGroup()
{
    auto* text = new QLabel(u"Renommer, réordonner ou supprimer les filtres favoris"_s);
    auto* hint = new QLabel(u"Enregistrez un filtre avec l'étoile de la barre de filtres"_s);
    setTextStyle(hint, TextStyle::Caption);
    setTextTone(hint, TextTone::Secondary);
    auto* manage = new QPushButton(u"Gérer les favoris…"_s);
    auto* texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addWidget(text);
    texts->addWidget(hint);
    auto* line = new QWidget;
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 5, 0, 5);
    row->addLayout(texts, 1);
    row->addWidget(manage);
    addGroup(u"Favoris (filtre)"_s)->addRow(line);
    connect(manage, &QPushButton::clicked, this, &SettingsView::manageFavoritesRequested);
}

void SettingsView::addDatabaseGroup()
{
    auto* clear = new QPushButton(symbolIcon(u"trash"_s, &Theme::red), u"Effacer la base"_s);
    setButtonLook(clear, ButtonLook::Destructive);
    addGroup(u"Base de données"_s)->addRow(buttonLine({clear}));
    connect(clear, &QPushButton::clicked, this, &SettingsView::confirmClearing);
}

void SettingsView::addButtons()
{
    auto* cancel = new QPushButton(u"Annuler"_s, this);
    auto* save = new QPushButton(u"Sauvegarder"_s, this);
    buttonRow()->addStretch(1);
    buttonRow()->addWidget(cancel);
    buttonRow()->addWidget(save);
    for (QPushButton* button : findChildren<QPushButton*>()) {
        button->setAutoDefault(false);
        if (button != cancel && button != save)
            setSmallButton(button);
    }
    setConfirmButton(save);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    connect(save, &QPushButton::clicked, this, &QDialog::accept);
}

void SettingsView::load()
{
    m_confirmOnQuit->setChecked(m_preferences.confirmOnQuit());
    m_rememberWindowState->setChecked(m_preferences.rememberWindowState());
    m_backupOnLaunch->setChecked(m_preferences.autoBackupOnLaunch());
    m_backupOnQuit->setChecked(m_preferences.autoBackupOnQuit());
    m_maxBackups->setValue(m_preferences.maxBackups());
    showBackupCount();
}

void SettingsView::accept()
{
    m_preferences.setConfirmOnQuit(m_confirmOnQuit->isChecked());
    m_preferences.setAutoBackupOnLaunch(m_backupOnLaunch->isChecked());
    m_preferences.setAutoBackupOnQuit(m_backupOnQuit->isChecked());
    m_preferences.setRememberWindowState(m_rememberWindowState->isChecked());
    m_preferences.setMaxBackups(int(m_maxBackups->value()));
    Sheet::accept();
}

void SettingsView::showBackupCount()
{
    m_backupCount->setText(backupCountText(BackupService::storedBackupCount(m_container)));
}

void SettingsView::backUpNow()
{
    const QDateTime now = QDateTime::currentDateTime();
    const auto backup = BackupService::performBackup(m_container, m_preferences.maxBackups(), now);
    if (!backup) {
        m_report->showMessage(BackupOutcome::Failed, backup.error().description());
    } else if (!backup.value()) {
        m_report->showMessage(
            BackupOutcome::Skipped, u"Aucune sauvegarde n'a été créée (mode base temporaire)."_s);
    } else {
        m_report->showMessage(
            BackupOutcome::Done, u"Sauvegarde effectuée à "_s + now.toString(u"HH:mm:ss"_s));
    }
    showBackupCount();
}

void SettingsView::purgeNow()
{
    BackupService::pruneBackups(m_container, int(m_maxBackups->value()));
    m_report->showMessage(BackupOutcome::Done, u"Anciennes sauvegardes supprimées"_s);
    showBackupCount();
}

void SettingsView::confirmClearing()
{
    askBeforeDestroying(u"Effacer toute la base de données ?"_s,
        u"Cette action supprime définitivement tous les filaments, types, marques, gammes et "
        "lieux. Cette action est irréversible."_s,
        u"Effacer"_s, this, [this] { clearDatabase(); });
}

void SettingsView::clearDatabase()
{
    // A save that fails is tried again with the next change and when the program ends.
    StockDocument::replaceStock(m_container.context(), {});
    m_preferences.setDidSeedSampleData(true);
}

} // namespace reelhouse
