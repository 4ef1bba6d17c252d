#pragma once

#include <QtWidgets/QHeaderView>

namespace reelhouse {

/// The titles over the columns of the list, each above the text of its cells.
class ListHeader final : public QHeaderView {
    Q_OBJECT

public:
    explicit ListHeader(QWidget* parent);

    QSize sizeHint() const override;

protected:
    /// As wide as the title.
    QSize sectionSizeFromContents(int column) const override;
    void paintSection(QPainter* painter, const QRect& rect, int column) const override;
    void paintEvent(QPaintEvent* event) override;
};

/// Goes on with the header over a scroll bar that stands beside the rows.
class HeaderEnd final : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace reelhouse
