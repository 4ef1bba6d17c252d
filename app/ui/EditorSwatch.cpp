#include "app/ui/EditorSwatch.h"

#include "app/ui/Swatch.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qreal editorSwatchRadius = 16;

} // namespace

EditorSwatch::EditorSwatch(int height, QWidget* parent)
    : QWidget(parent)
{
    setFixedHeight(height);
    setAccessibleName(u"Couleur"_s);
}

void EditorSwatch::setColor(const QString& code, const QString& name)
{
    m_color = colorFromHex(code);
    setAccessibleDescription(colorDescription(code, name));
    update();
}

void EditorSwatch::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    paintColorField(painter, rect(), editorSwatchRadius, m_color, currentTheme().canvas);
}

QString colorDescription(const QString& code, const QString& name)
{
    return name.trimmed().isEmpty() ? code : name.trimmed() + u", "_s + code;
}

} // namespace reelhouse
