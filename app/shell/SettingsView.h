#pragma once

#include "app/ui/Sheet.h"

#include <functional>

class QAbstractButton;
class QLabel;

namespace reelhouse {

class BackupReport;
class FormGroup;
struct Product;
class Preferences;
class Stepper;
class StoreContainer;
class Toggle;

/// The sheet of the preferences. It works on a copy: nothing is written before "Sauvegarder".
/// Its commands on backups, on the store and on the database act at once.
class SettingsView final : public Sheet {
    Q_OBJECT

public:
    /// What the desktop does for the sheet.
    struct Desktop {
        std::function<void(const QString& folder)> openFolder;
        std::function<void(const QString& file)> showFile;
    };

    SettingsView(StoreContainer& container, Preferences& preferences, const Product& product,
        Desktop desktop, QWidget* parent);

    void accept() override;

signals:
    void manageFavoritesRequested();

private:
    void addHeader(const Product& product);
    void addGeneralGroup();
    void addBackupGroup();
    void addStoreGroup();
    void addFavoritesGroup();
    void addDatabaseGroup();
    void addButtons();
    FormGroup* addGroup(const QString& heading = {});
    void load();
    void showBackupCount();
    void backUpNow();
    void purgeNow();
    void confirmClearing();
    void clearDatabase();

    StoreContainer& m_container;
    Preferences& m_preferences;
    Desktop m_desktop;
    Toggle* m_confirmOnQuit;
    Toggle* m_rememberWindowState;
    Toggle* m_backupOnLaunch;
    Toggle* m_backupOnQuit;
    Stepper* m_maxBackups;
    QLabel* m_backupCount;
    BackupReport* m_report;
};

} // namespace reelhouse
