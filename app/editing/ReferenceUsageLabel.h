#pragma once

#include <QtCore/QString>

class QPainter;
class QRect;

namespace reelhouse::ReferenceUsageLabel {

/// "3 filaments · 12 bobines": how much of the stock uses an entry.
QString text(qint64 filamentCount, qint64 spoolCount);

/// The height of the line.
int height();

/// Paints the line, cut where it does not fit.
void paint(QPainter& painter, const QRect& rect, qint64 filamentCount, qint64 spoolCount);

} // namespace reelhouse::ReferenceUsageLabel
