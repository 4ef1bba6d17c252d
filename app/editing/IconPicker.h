#pragma once

#include <QtWidgets/QPushButton>

class QScrollArea;

namespace reelhouse {

/// One symbol to choose, in the grid of an IconPicker.
class IconCell final : public QPushButton {
    Q_OBJECT

public:
    explicit IconCell(const QString& symbol, QWidget* parent = nullptr);

    const QString& symbol() const { return m_symbol; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
};

/// The grid in which the symbol of a type is chosen, with the pointer or the arrow keys. As many
/// columns as fit; it scrolls when the rows are more than its height holds.
class IconPicker final : public QWidget {
    Q_OBJECT

public:
    /// Shows `selection` as chosen; nothing is when it is none of the symbols on offer.
    explicit IconPicker(const QString& selection, QWidget* parent = nullptr);

    const QString& selection() const { return m_selection; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    class Grid;

    void choose(const IconCell& cell);

    QString m_selection;
    QScrollArea* m_scrollArea;
};

} // namespace reelhouse
