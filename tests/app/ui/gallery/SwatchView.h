#pragma once

#include "app/ui/Swatch.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

namespace reelhouse::tests {

/// One colour as a spool with its code below, as a chip, or as a field.
class SwatchView final : public QWidget {
public:
    enum class Shape { Spool, Chip, Field };

    SwatchView(const QString& code, Shape shape)
        : m_code(code)
        , m_shape(shape)
    {
        const QSize sizes[] = {{60, 52}, {16, 16}, {98, 40}};
        setFixedSize(sizes[static_cast<int>(shape)]);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        const Theme& theme = currentTheme();
        const QColor color = colorFromHex(m_code);
        QPainter painter(this);
        switch (m_shape) {
        case Shape::Spool:
            paintSpool(painter, QRectF(14, 0, 32, 32), color, theme.canvas);
            painter.setFont(fontOf(TextStyle::Code));
            painter.setPen(theme.textTertiary);
            painter.drawText(rect(), Qt::AlignHCenter | Qt::AlignBottom, m_code);
            return;
        case Shape::Chip:
            paintChip(painter, rect(), color, theme.canvas);
            return;
        case Shape::Field:
            paintColorField(painter, rect(), 10, color, theme.canvas);
            return;
        }
    }

private:
    QString m_code;
    Shape m_shape;
};

} // namespace reelhouse::tests
