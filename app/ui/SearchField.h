#pragma once

#include <QtWidgets/QLineEdit>

namespace reelhouse {

/// The search field of the filter bar, with a button to empty it while it holds text; Escape
/// empties it too. Emptying it so is an edit like typing: `textEdited` is emitted.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    explicit SearchField(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    /// Down was pressed: the user wants to go on in what was found.
    void resultsRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void empty();
};

} // namespace reelhouse
