#pragma once

#include "app/backup/TransferScreen.h"

namespace reelhouse {

class StoreContainer;

/// The screen "Export CSV": saves the stock as a table for spreadsheet programs, newest first.
class CsvExportView final : public TransferScreen {
    Q_OBJECT

public:
    explicit CsvExportView(StoreContainer& container, QWidget* parent = nullptr);

private:
    void exportStock();

    StoreContainer& m_container;
};

} // namespace reelhouse
