#include "app/ui/SelectableLabel.h"

#include "app/ui/FocusRing.h"
#include "app/ui/Theme.h"
#include "app/ui/ViewPainting.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QStyleOption>

namespace reelhouse {

SelectableLabel::SelectableLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus); // Qt would leave it to the mouse to bring the keyboard there.
    setMargin(int(focusRingInset));
}

void SelectableLabel::focusInEvent(QFocusEvent* event)
{
    QLabel::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason)
        setSelection(0, int(text().size()));
}

void SelectableLabel::focusOutEvent(QFocusEvent* event)
{
    QLabel::focusOutEvent(event);
    // Its own menu copies what is selected, and another window takes it from there.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        setSelection(0, 0);
}

void SelectableLabel::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    QStyleOption option;
    option.initFrom(this);
    if (!showsFocusRing(option))
        return;
    QPainter painter(this);
    paintFocusRing(painter, rect(), ViewPainting::itemRadius, currentTheme());
}

} // namespace reelhouse
