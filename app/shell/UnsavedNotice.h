#pragma once

#include "app/shell/NoticeStrip.h"

namespace reelhouse {

class StoreContext;

/// Stands at the top of the content while changes could not be saved, and says why. Hidden
/// otherwise.
class UnsavedNotice final : public NoticeStrip {
    Q_OBJECT

public:
    explicit UnsavedNotice(const StoreContext& context, QWidget* parent = nullptr);

private:
    void showOutcome(const QString& failure);

    QLabel* m_text;
};

} // namespace reelhouse
