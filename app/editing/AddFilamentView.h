#pragma once

#include "app/ui/Sheet.h"

namespace reelhouse {

class FilamentForm;
class StoreContext;

/// The sheet that puts a new filament into the stock. "Ajouter" waits for a type and a brand.
class AddFilamentView final : public Sheet {
    Q_OBJECT

public:
    explicit AddFilamentView(StoreContext& context, QWidget* parent = nullptr);

private:
    void add();

    StoreContext& m_context;
    FilamentForm* m_form;
};

} // namespace reelhouse
