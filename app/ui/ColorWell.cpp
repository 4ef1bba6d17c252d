#include "app/ui/ColorWell.h"

#include "app/ui/ColorMath.h"
#include "app/ui/FocusRing.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Swatch.h"
#include "app/ui/Theme.h"

#include <QtGui/QPainter>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QStyleOptionButton>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr QSize colorWellSize(48, 28);
constexpr qreal colorWellRadius = 8;
constexpr int colorWellRim = 2;

} // namespace

ColorWell::ColorWell(QWidget* parent)
    : QPushButton(parent)
{
    setAccessibleName(u"Couleur"_s);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setContentsMargins(focusRingInset, focusRingInset, focusRingInset, focusRingInset);
    connect(this, &QPushButton::clicked, this, &ColorWell::openDialog);
}

void ColorWell::setColor(const QColor& color)
{
    m_color = color;
    update();
}

QSize ColorWell::sizeHint() const
{
    const QMargins ring = contentsMargins();
    return colorWellSize + QSize(ring.left() + ring.right(), ring.top() + ring.bottom());
}

void ColorWell::openDialog()
{
    if (m_dialog)
        return;
    m_dialog = new QColorDialog(this);
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialog->setWindowTitle(u"Couleur"_s);
    m_dialog->setOptions(QColorDialog::ShowAlphaChannel | QColorDialog::NoButtons
        | QColorDialog::DontUseNativeDialog);
    m_dialog->setCurrentColor(m_color); // After the options: without them its alpha is lost.
    connect(m_dialog, &QColorDialog::currentColorChanged, this, [this](const QColor& picked) {
        if (picked == m_color)
            return;
        setColor(picked);
        emit colorEdited(picked);
    });
    m_dialog->open();
}

void ColorWell::paintEvent(QPaintEvent*)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    const Theme& theme = currentTheme();
    QPainter painter(this);
    if (!isEnabled())
        painter.setOpacity(disabledOpacity);
    if (showsFocusRing(option))
        paintFocusRing(painter, rect(), colorWellRadius + focusRingInset, theme);
    const QRect body = contentsRect();
    const bool isPressed = (option.state & QStyle::State_Sunken) != 0;
    const bool isHovered = isEnabled() && (option.state & QStyle::State_MouseOver) != 0;
    const QColor ground = isPressed ? theme.sunken
        : isHovered                 ? blended(theme.hover, theme.surface)
                                    : theme.surface;
    paintRoundedPanel(painter, body, colorWellRadius, ground, theme.line);
    paintColorField(painter,
        body.adjusted(colorWellRim, colorWellRim, -colorWellRim, -colorWellRim),
        colorWellRadius - colorWellRim, m_color, ground);
}

} // namespace reelhouse
