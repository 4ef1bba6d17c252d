#pragma once

#include <QtWidgets/QWidget>

class QLabel;
class QVBoxLayout;

namespace reelhouse {

/// A calm strip at the top of the content, for what stays true for a while and matters: an orange
/// sign, and beside it the lines.
class NoticeStrip : public QWidget {
    Q_OBJECT

public:
    explicit NoticeStrip(QWidget* parent = nullptr);

protected:
    QVBoxLayout* lines() const { return m_lines; }
    /// A text in the strip's type and colour, which the caller puts into a layout.
    QLabel* makeText(const QString& text);
    /// Behind the lines.
    void addWidget(QWidget* widget);
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* m_lines;
};

} // namespace reelhouse
