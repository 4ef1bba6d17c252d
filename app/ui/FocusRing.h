#pragma once

#include <QtCore/QObject>
#include <QtCore/QRectF>

class QColor;
class QPainter;
class QStyleOption;

namespace reelhouse {

struct Theme;

/// Width taken by the ring and the gap inside it, on each side.
inline constexpr qreal focusRingInset = 4;

/// Whether the control has the focus and got it by the keyboard.
bool showsFocusRing(const QStyleOption& option);

/// Paints the ring along the inside of `rect`, the whole rectangle of a control whose corners are
/// rounded by `radius`. The control paints itself `focusRingInset` further in.
void paintFocusRing(QPainter& painter, const QRectF& rect, qreal radius, const Theme& theme);
/// The same in another colour, on grounds that the accent does not stand out from.
void paintFocusRing(QPainter& painter, const QRectF& rect, qreal radius, const QColor& color);

/// Watches every window: a press of the mouse takes its ring away, until the keyboard moves the
/// focus again. Qt would show it for ever after the first time.
class FocusRingWatch final : public QObject {
    Q_OBJECT

public:
    explicit FocusRingWatch(QObject* parent = nullptr);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace reelhouse
