#pragma once

#include "app/ui/Sheet.h"
#include "core/product/Product.h"

#include <QtCore/QTimer>

class QGraphicsOpacityEffect;

namespace reelhouse {

/// The sheet that says what the program is, who made it and how to reach them.
class AboutView final : public Sheet {
    Q_OBJECT

public:
    AboutView(const Product& product, QWidget* parent);

private:
    void addTexts(const Product& product);
    void addContacts(const Product& product);
    QWidget* makeCopyConfirmation();
    void copy(const QString& email);
    void showNotices();
    void fadeConfirmation(qreal strength);

    QWidget* m_confirmation;
    QGraphicsOpacityEffect* m_confirmationStrength;
    QTimer m_confirmationTime;
};

} // namespace reelhouse
