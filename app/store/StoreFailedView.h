#pragma once

#include <QtWidgets/QWidget>

namespace reelhouse {

/// Fills the window when no store at all could be opened. There is no way on but to quit.
class StoreFailedView final : public QWidget {
    Q_OBJECT

public:
    /// `message` may hold several paragraphs; it can be selected and copied.
    explicit StoreFailedView(const QString& message, QWidget* parent = nullptr);

signals:
    void openDataFolderRequested();
};

} // namespace reelhouse
