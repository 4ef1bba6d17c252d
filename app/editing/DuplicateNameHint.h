#pragma once

#include <QtWidgets/QLabel>

namespace reelhouse {

/// Says that a name exists already, or nothing. Its room is kept, so that nothing jumps.
class DuplicateNameHint final : public QLabel {
    Q_OBJECT

public:
    explicit DuplicateNameHint(QWidget* parent = nullptr);

    void setDuplicate(bool isDuplicate);
};

} // namespace reelhouse
