#pragma once

#include "app/shell/NavItem.h"

#include <QtWidgets/QWidget>

#include <optional>

class QListView;
class QStandardItemModel;

namespace reelhouse {

/// The list of screens at the left of the window, in its sections. The selected entry is the screen
/// on show; section headers and hints cannot be chosen.
class SidebarView final : public QWidget {
    Q_OBJECT

public:
    explicit SidebarView(QWidget* parent = nullptr);

    /// Selects the entry of a screen; emits nothing.
    void setSelection(NavItem item);
    std::optional<NavItem> selection() const;

    QSize sizeHint() const override;

signals:
    /// The user chose another screen.
    void selectionEdited(NavItem item);

private:
    QStandardItemModel* m_entries;
    QListView* m_list;
};

} // namespace reelhouse
