#pragma once

#include "app/printing/ReportTextView.h"

#include <QtWidgets/QPushButton>

namespace reelhouse {

/// One of the two choices: the outline of a page beside its name.
class OrientationButton final : public QPushButton {
    Q_OBJECT

public:
    OrientationButton(PageOrientation orientation, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    PageOrientation m_orientation;
};

/// "Portrait" or "Paysage". Arrow keys move the choice; Tab passes by.
class OrientationPicker final : public QWidget {
    Q_OBJECT

public:
    /// Portrait is chosen.
    explicit OrientationPicker(QWidget* parent = nullptr);

    PageOrientation orientation() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void keepOneTabStop();

    OrientationButton* m_portrait;
    OrientationButton* m_landscape;
};

} // namespace reelhouse
