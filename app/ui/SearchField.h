#pragma once

#include <QtWidgets/QLineEdit>

namespace reelhouse {

/// The search field of the filter bar, with a button to empty it while it holds text. Emptying it
/// so is an edit like typing: `textEdited` is emitted.
class SearchField : public QLineEdit {
    Q_OBJECT

public:
    explicit SearchField(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
};

} // namespace reelhouse
