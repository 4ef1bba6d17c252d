#pragma once

#include "core/model/EntityId.h"

#include <QtCore/QObject>

#include <vector>

class QAbstractItemView;
class QContextMenuEvent;

namespace reelhouse {

class FilamentTableModel;
class SpoolActions;

/// What the list and the cards have in common: the selection goes by identity, so that it and the
/// scroll position hold across edits and filters. A filament that a filter hides is selected again
/// when it comes back, until the user selects another.
class SelectedFilament final : public QObject {
    Q_OBJECT

public:
    /// Belongs to `view`, whose model is `model`. The selected filament becomes the target of
    /// `actions`, and an activated one asks for its sheet.
    SelectedFilament(QAbstractItemView& view, FilamentTableModel& model, SpoolActions& actions);

    /// The selected filament, on show or not; nothing when the user has selected none.
    FilamentId id() const { return m_id; }
    /// Selects it now, or as soon as it is on show.
    void select(FilamentId id);
    /// The selected filament, or nothing while it is not on show.
    FilamentId shownId() const;
    /// Gives the view the keyboard; the first filament is selected where none on show is.
    void takeKeyboard();
    /// Shows these filaments, in this order; called again after every change of the stock.
    void showRows(std::vector<FilamentId> rows);
    /// Selects the filament under the pointer, or the current one, and opens its menu.
    void openMenu(const QContextMenuEvent& event);

private:
    void restore(int column);

    QAbstractItemView& m_view;
    FilamentTableModel& m_model;
    SpoolActions& m_actions;
    FilamentId m_id;
};

} // namespace reelhouse
