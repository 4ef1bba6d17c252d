#pragma once

#include "app/library/ViewMode.h"

#include <QtWidgets/QWidget>

class QAbstractButton;

namespace reelhouse {

class SegmentedPicker;

/// The line above the library: its title, the mode picker and what can be done with the stock.
class LibraryToolbar final : public QWidget {
    Q_OBJECT

public:
    explicit LibraryToolbar(QWidget* parent = nullptr);

    /// Shows another mode as chosen. Emits nothing.
    void setViewMode(ViewMode mode);

signals:
    void viewModeChosen(ViewMode mode);
    void additionRequested();
    void printRequested();
    void settingsRequested();
    void aboutRequested();

private:
    QAbstractButton* makeIconButton(const QString& symbol, const QString& name);

    SegmentedPicker* m_modes;
};

} // namespace reelhouse
