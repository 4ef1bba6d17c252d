#include "app/ui/Scrim.h"

#include "app/ui/ColorMath.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/Sheet.h"
#include "app/ui/Theme.h"

#include <QtCore/QEvent>
#include <QtCore/QVariantAnimation>
#include <QtGui/QPainter>
#include <QtWidgets/QStyle>

namespace reelhouse {

namespace {

constexpr int scrimFadeDuration = 140; // milliseconds

} // namespace

Scrim::Scrim(QWidget* window)
    : QWidget(window)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    window->installEventFilter(this);
    cover();
    show();
    raise();

    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) == 0) {
        m_strength = 1;
        return;
    }
    auto* animation = new QVariantAnimation(this);
    animation->setDuration(scrimFadeDuration);
    animation->setEasingCurve(QEasingCurve::OutQuad);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    connect(animation, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        m_strength = value.toReal();
        update();
    });
    animation->start();
}

void Scrim::cover()
{
    const auto* sheet = qobject_cast<const Sheet*>(parentWidget());
    setGeometry(sheet == nullptr ? parentWidget()->rect() : sheet->panelRect());
}

void Scrim::paintEvent(QPaintEvent*)
{
    const auto* sheet = qobject_cast<const Sheet*>(parentWidget());
    QPainter painter(this);
    paintRoundedPanel(painter, rect(), sheet == nullptr ? 0 : sheet->panelRadius(),
        faded(currentTheme().scrim, m_strength));
}

bool Scrim::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize)
        cover();
    return QWidget::eventFilter(watched, event);
}

} // namespace reelhouse
