#pragma once

#include <QtWidgets/QLayout>

#include <vector>

namespace reelhouse {

/// The arrangement of the filter bar: the capsules, the search field, and what stands at its right.
/// All of it stands on one line while it fits at its size hints; otherwise the capsules come first,
/// on as many lines as they need, and the search field and the rest have the last line.
class FilterBarLayout final : public QLayout {
    Q_OBJECT

public:
    explicit FilterBarLayout(QWidget* parent);
    ~FilterBarLayout() override;

    /// Capsules are all items before this call.
    void beginSearchLine() { m_searchPlace = count(); }

    void addItem(QLayoutItem* item) override;
    int count() const override { return int(m_items.size()); }
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    void setGeometry(const QRect& rect) override;

private:
    /// Some items one beside the other, from `first` up to and without `last`.
    struct Line {
        int first;
        int last;
        int width = 0; ///< At the size hints.
        int height = 0;
    };

    Line lineOf(int first, int last) const;
    std::vector<Line> linesWithin(int width) const;
    void place(const Line& line, const QRect& rect, bool isOnlyLine);

    QList<QLayoutItem*> m_items;
    int m_searchPlace = 0;
};

} // namespace reelhouse
