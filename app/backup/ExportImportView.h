#pragma once

#include "app/backup/TransferScreen.h"

namespace reelhouse {

struct ExportData;
class Preferences;
class StoreContainer;

/// The screen "Export et Import": saves the whole stock as a document, or replaces it by one.
class ExportImportView final : public TransferScreen {
    Q_OBJECT

public:
    /// `preferences` says how many backups an import keeps.
    ExportImportView(
        StoreContainer& container, const Preferences& preferences, QWidget* parent = nullptr);

    // While an export or import is under way these do nothing.

    /// Asks for a file and writes the stock into it.
    void exportStock();
    /// Asks for a file and imports it.
    void chooseDocument();
    /// The first stage of an import: reads the file, then asks before anything is replaced.
    void importFile(const QString& path);

private:
    void confirm(const std::shared_ptr<const ExportData>& pending);
    void replaceStock(const ExportData& document);

    StoreContainer& m_container;
    const Preferences& m_preferences;
};

} // namespace reelhouse
