#pragma once

#include "app/ui/Sheet.h"
#include "core/model/EntityId.h"

class QPushButton;

namespace reelhouse {

class FilamentForm;
class StoreContext;

/// The sheet in which a filament of the stock is changed or deleted. Nothing is written before
/// "Enregistrer", which waits for a change. Should the filament leave the stock meanwhile, the
/// sheet stays and can only be closed.
class FilamentDetailView final : public Sheet {
    Q_OBJECT

public:
    FilamentDetailView(StoreContext& context, FilamentId filament, QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void loadOnce();
    void refreshButtons();
    void save();
    void confirmDeletion();

    StoreContext& m_context;
    FilamentId m_filament;
    bool m_didLoad = false;
    FilamentForm* m_form;
    QPushButton* m_deleteButton = nullptr;
    QPushButton* m_saveButton = nullptr;
};

} // namespace reelhouse
