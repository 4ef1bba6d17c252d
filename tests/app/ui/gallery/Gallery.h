#pragma once

#include <QtWidgets/QWidget>

class QVBoxLayout;

namespace reelhouse::tests {

/// Every component of app/ui in its states, one section below the other.
class Gallery final : public QWidget {
public:
    explicit Gallery(QWidget* parent = nullptr);

private:
    void addSection(const QString& title, const QList<QList<QWidget*>>& rows);
    void addButtons();
    void addCapsules();
    void addSearchFields();
    void addSwatches();
    void addSmallControls();
    void addForm();
    void addTexts();
    void addStatusLines();
    void addEmptyState();
    void addMenuAndAlerts();

    QVBoxLayout* m_column;
};

} // namespace reelhouse::tests
