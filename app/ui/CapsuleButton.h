#pragma once

#include "app/ui/Theme.h"

#include <QtWidgets/QPushButton>

namespace reelhouse {

/// A filter of the filter bar: a rounded button with a symbol, and usually a menu. Grey at rest, it
/// takes its tint once a value is set. Its field is its accessible name, its value the description.
class CapsuleButton : public QPushButton {
    Q_OBJECT

public:
    /// `field` is shown until a value is set, `unsetValue` ("Tous" or "Toutes") only spoken.
    CapsuleButton(const QString& symbol, const QString& field, const QString& unsetValue,
        CapsuleTint Theme::*tint, QWidget* parent = nullptr);
    /// A capsule that shows its symbol alone, with `field` as tooltip and accessible name.
    CapsuleButton(const QString& symbol, const QString& field, QWidget* parent = nullptr);

    /// Shows the chosen value, cut with "…" beyond 112 pixels; an empty one shows the field again.
    void setValue(const QString& value);
    const QString& value() const { return m_value; }

    /// For a capsule without text: what stands in it, and whether it marks something active.
    void setSymbol(const QString& symbol, bool isActive);
    const QString& symbol() const { return m_symbol; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool showsText() const { return m_tint != nullptr; }
    bool isSet() const { return showsText() ? !m_value.isEmpty() : m_isActive; }
    QFont textFont() const;
    QString shownText() const;
    void updateToolTip();

    QString m_symbol;
    QString m_field;
    QString m_unsetValue;
    QString m_value;
    CapsuleTint Theme::*m_tint; ///< Null for a capsule without text.
    bool m_isActive = false;
};

} // namespace reelhouse
