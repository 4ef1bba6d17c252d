#pragma once

#include "app/library/CardGrid.h"

namespace reelhouse {

class AddCardButton;

/// The stock as cards, and after the last one a place to add another. The button lies above the
/// grid, not in it: assistive technology sees nothing but the cards in there.
class CardView final : public QWidget {
    Q_OBJECT

public:
    CardView(StoreContext& context, SpoolActions& actions, QWidget* parent = nullptr);

    CardGrid& grid() { return *m_grid; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void placeButton();

    CardGrid* m_grid;
    AddCardButton* m_addButton;
};

} // namespace reelhouse
