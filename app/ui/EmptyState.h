#pragma once

#include <QtWidgets/QWidget>

class QAbstractButton;
class QVBoxLayout;

namespace reelhouse {

/// What stands in the middle of an area that has nothing to show.
class EmptyState final : public QWidget {
    Q_OBJECT

public:
    /// An empty description takes no room.
    EmptyState(const QString& symbol, const QString& title, const QString& description = {},
        QWidget* parent = nullptr);

    /// Sets a button below the texts and takes it as a child.
    void setButton(QAbstractButton* button);

private:
    QVBoxLayout* m_column;
};

} // namespace reelhouse
