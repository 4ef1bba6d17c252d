#pragma once

#include "app/backup/TransferScreen.h"

namespace reelhouse {

class StoreContainer;

/// The screen "Export CSV": saves the stock as a table for spreadsheet programs, newest first.
class CsvExportView final : public TransferScreen {
    Q_OBJECT

public:
    explicit CsvExportView(StoreContainer& container, QWidget* parent = nullptr);

    /// Asks for a file and writes the table into it; does nothing while another is being written.
    void exportStock();

private:
    StoreContainer& m_container;
};

} // namespace reelhouse
