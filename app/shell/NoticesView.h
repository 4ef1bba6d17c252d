#pragma once

#include "app/ui/Sheet.h"

namespace reelhouse {

/// The sheet that names what the program is made of besides its own code, with the licences.
class NoticesView final : public Sheet {
    Q_OBJECT

public:
    explicit NoticesView(QWidget* parent);
};

} // namespace reelhouse
