#pragma once

#include <QtWidgets/QWidget>

namespace reelhouse {

/// Fills the window while the store is being opened. Says so once that takes long enough to notice.
class StoreLoadingView final : public QWidget {
    Q_OBJECT

public:
    explicit StoreLoadingView(QWidget* parent = nullptr);
};

} // namespace reelhouse
