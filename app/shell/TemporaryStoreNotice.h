#pragma once

#include <QtWidgets/QWidget>

namespace reelhouse {

/// The calm line at the top of the content while the stock is the temporary one.
class TemporaryStoreNotice final : public QWidget {
    Q_OBJECT

public:
    explicit TemporaryStoreNotice(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace reelhouse
