#pragma once

#include "core/model/EntityId.h"

#include <QtCore/QObject>

class QWidget;

namespace reelhouse {

class SpoolActions;
class StoreContext;

/// Opens over a window what SpoolActions asks for: the sheet of a new filament, the sheet of one in
/// stock, the question before one is deleted.
class FilamentSheets final : public QObject {
    Q_OBJECT

public:
    /// Belongs to `screen` and lays the sheets over its window.
    FilamentSheets(StoreContext& context, SpoolActions& actions, QWidget* screen);

private:
    void openAddition();
    void openDetail(FilamentId id);

    StoreContext& m_context;
    QWidget* m_screen;
};

} // namespace reelhouse
