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

    /// The first stage of an import: reads the file, then asks before anything is replaced.
    /// Does nothing while another export or import is under way.
    void importFile(const QString& path);

private:
    void exportStock();
    void chooseDocument();
    void confirm(const std::shared_ptr<const ExportData>& pending);
    void replaceStock(const ExportData& document);

    StoreContainer& m_container;
    const Preferences& m_preferences;
};

} // namespace reelhouse
