#pragma once

#include "app/editing/ReferenceList.h"

#include <QtWidgets/QListView>

namespace reelhouse {

class ReferenceListModel;

/// A reference list on the screen, as high as its rows while there is room. The selection goes by
/// identity and holds, with the scroll position, when the list changes.
class ReferenceListView final : public QListView {
    Q_OBJECT

public:
    explicit ReferenceListView(const ReferenceList& list, QWidget* parent = nullptr);

    /// Shows the list as it is now.
    void refresh();
    /// The selected entry, or nothing.
    ReferenceId selectedEntry() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// The user wants to change the entry.
    void editRequested(ReferenceId id);
    /// The user wants the entry deleted; to be confirmed first.
    void deletionRequested(ReferenceId id);

protected:
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    using Request = void (ReferenceListView::*)(ReferenceId);

    void addCommand(
        const QString& symbol, const QString& text, const QKeySequence& key, Request request);
    void enableCommands();

    ReferenceListModel* m_model;
};

} // namespace reelhouse
