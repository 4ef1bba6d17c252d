#pragma once

#include "app/editing/FilamentDetailView.h"
#include "tests/app/editing/EditorFixture.h"

namespace reelhouse::tests {

/// A filament in the stock, and its sheet once it is opened.
struct DetailFixture : EditorFixture {
    explicit DetailFixture(qint64 spools = 3, qint64 openedSpools = 1)
    {
        Filament::Values values;
        values.spoolsCount = spools;
        values.openedSpoolsCount = openedSpools;
        values.colorHex = QStringLiteral("#8E24AA");
        values.colorName = QStringLiteral("Violet améthyste");
        values.notes = QStringLiteral("TPU violet");
        Filament& filament = context.insert(std::make_unique<Filament>(values));
        id = filament.id();
        filament.setType(&pla2);
        filament.setBrand(&acme);
        filament.setLocation(&shelf);
        context.processPendingChanges();
        context.clearHistory();
    }

    EditorControls open()
    {
        sheet = std::make_unique<FilamentDetailView>(context, id, &window);
        sheet->open();
        QCoreApplication::processEvents();
        return EditorControls(*sheet);
    }
    Filament* filament() { return context.find(id); }

    FilamentId id;
    std::unique_ptr<FilamentDetailView> sheet;
};

} // namespace reelhouse::tests
