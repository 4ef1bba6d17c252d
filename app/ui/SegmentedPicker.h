#pragma once

#include <QtCore/QList>
#include <QtWidgets/QPushButton>

namespace reelhouse {

/// One choice of a SegmentedPicker: a symbol, and the label that stands for it in words.
struct Segment {
    QString symbol;
    QString label; ///< Tooltip and accessible name.
};

/// One of the buttons inside a SegmentedPicker.
class SegmentButton : public QPushButton {
    Q_OBJECT

public:
    explicit SegmentButton(const Segment& segment, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_symbol;
};

/// Shows icons side by side, one of them chosen. Arrow keys move the choice; Tab passes by.
class SegmentedPicker final : public QWidget {
    Q_OBJECT

public:
    /// The first segment is chosen.
    explicit SegmentedPicker(const QList<Segment>& segments, QWidget* parent = nullptr);

    /// The index of the chosen segment.
    int selection() const { return m_shown; }
    /// Shows another choice. Emits nothing.
    void setSelection(int index);

signals:
    /// The user chose the segment `index`, which was not the chosen one.
    void selectionChosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void choose(int index);

    QList<SegmentButton*> m_buttons;
    int m_shown = 0;
};

} // namespace reelhouse
