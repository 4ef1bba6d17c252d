#pragma once

#include <QtWidgets/QMenu>

namespace reelhouse {

class CapsuleButton;

/// The menu of a capsule. It drops a little below the capsule, or rises above where the screen
/// ends.
class CapsuleMenu : public QMenu {
    Q_OBJECT

public:
    /// Which edges of the two lie one under the other.
    enum class Alignment { Left, Right };

    explicit CapsuleMenu(CapsuleButton* capsule, Alignment alignment = Alignment::Left);

    /// Between the capsule and its menu.
    static constexpr int gap = 5;

protected:
    void showEvent(QShowEvent* event) override;

private:
    const CapsuleButton& m_capsule;
    Alignment m_alignment;
};

} // namespace reelhouse
