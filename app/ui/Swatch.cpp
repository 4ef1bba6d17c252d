#include "app/ui/Swatch.h"

#include "app/ui/ColorMath.h"
#include "app/ui/Theme.h"

#include <QtCore/QtMath>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <algorithm>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr qreal hubShare = 0.31;
constexpr qreal grooveShare = 0.62;
constexpr qreal checkerSide = 4;
constexpr qreal leastContrast = 1.5;
constexpr qreal ringOpacity = 0.35;
constexpr qreal strongDiscRing = 0.85;
constexpr qreal strongFieldRing = 0.55;

/// The characters of `text` between its first and its last letter or digit.
QList<uint> strippedCharacters(const QString& text)
{
    const auto isKept = [](uint character) { return QChar::isLetterOrNumber(character); };
    const QList<uint> all = text.toUcs4();
    const auto first = std::find_if(all.begin(), all.end(), isKept);
    const auto last = std::find_if(all.rbegin(), std::make_reverse_iterator(first), isKept).base();
    return QList<uint>(first, last);
}

/// The value of a hexadecimal digit, nothing for every other character.
std::optional<quint32> hexDigit(uint character)
{
    if (character >= u'0' && character <= u'9')
        return character - u'0';
    if (character >= u'a' && character <= u'f')
        return character - u'a' + 10;
    if (character >= u'A' && character <= u'F')
        return character - u'A' + 10;
    return std::nullopt;
}

/// The hexadecimal number that starts the text, 0 where none does.
quint32 scannedHex(const QList<uint>& characters)
{
    quint32 value = 0;
    for (const uint character : characters) {
        const std::optional<quint32> digit = hexDigit(character);
        if (!digit)
            break;
        value = value * 16 + *digit;
    }
    return value;
}

int byteOf(float channel)
{
    return std::clamp(qRound(channel * 255), 0, 255);
}

/// `color` as it looks where it is painted; with alpha it lies over a checkerboard.
QColor visibleColor(const QColor& color)
{
    return color.alpha() == 255 ? color : blended(color, currentTheme().surface);
}

/// The winding's inner edge, darker than the filament or, on a dark one, lighter.
QColor grooveOn(const QColor& color)
{
    const QColor ground = visibleColor(color);
    const bool isDark = contrastRatio(ground, Qt::white) > contrastRatio(ground, Qt::black);
    return isDark ? faded(Qt::white, 0.13) : faded(Qt::black, 0.10);
}

QColor ringColor(const QColor& color, const QColor& ground, qreal strongOpacity)
{
    const bool isAlike = contrastRatio(visibleColor(color), ground) < leastContrast;
    return faded(QColor(0x808080), isAlike ? strongOpacity : ringOpacity);
}

QPainterPath circle(const QPointF& centre, qreal radius)
{
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
}

void fillShape(QPainter& painter, const QPainterPath& shape, const QColor& color)
{
    if (color.alpha() < 255) {
        const Theme& theme = currentTheme();
        const QRectF box = shape.boundingRect();
        painter.fillPath(shape, theme.surface);
        painter.save();
        painter.setClipPath(shape, Qt::IntersectClip);
        const int rows = qCeil(box.height() / checkerSide);
        const int columns = qCeil(box.width() / checkerSide);
        for (int row = 0; row < rows; ++row) {
            for (int column = row % 2; column < columns; column += 2)
                painter.fillRect(QRectF(box.left() + column * checkerSide,
                                     box.top() + row * checkerSide, checkerSide, checkerSide),
                    theme.sunken);
        }
        painter.restore();
    }
    painter.fillPath(shape, color);
}

void strokeCircle(QPainter& painter, const QPointF& centre, qreal radius, const QColor& color)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, 1));
    painter.drawEllipse(centre, radius, radius);
}

} // namespace

QColor colorFromHex(const QString& text)
{
    const QList<uint> code = strippedCharacters(text);
    const quint32 value = scannedHex(code);
    if (code.size() == 8)
        return QColor::fromRgba(value);
    if (code.size() == 6)
        return QColor::fromRgb(value);
    return QColor(Qt::black);
}

QString toHex(const QColor& color)
{
    if (!color.isValid())
        return u"#000000"_s;
    // Not the bytes of QColor: it cuts where the nearest is wanted.
    const QColor rgb = color.spec() == QColor::ExtendedRgb ? color : color.toRgb();
    return QString::asprintf(
        "#%02X%02X%02X", byteOf(rgb.redF()), byteOf(rgb.greenF()), byteOf(rgb.blueF()));
}

void paintSpool(QPainter& painter, const QRectF& rect, const QColor& color, const QColor& ground)
{
    const QPointF centre = rect.center();
    const qreal radius = std::min(rect.width(), rect.height()) / 2;
    const qreal hub = radius * hubShare;
    const QColor ring = ringColor(color, ground, strongDiscRing);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath winding = circle(centre, radius);
    winding.addEllipse(centre, hub, hub); // What lies inside both stays free.
    fillShape(painter, winding, color);
    strokeCircle(painter, centre, radius * grooveShare, grooveOn(color));
    strokeCircle(painter, centre, radius - 0.5, ring);
    strokeCircle(painter, centre, hub + 0.5, ring);
    painter.restore();
}

void paintChip(QPainter& painter, const QRectF& rect, const QColor& color, const QColor& ground)
{
    const qreal radius = std::min(rect.width(), rect.height()) / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    fillShape(painter, circle(rect.center(), radius), color);
    strokeCircle(painter, rect.center(), radius - 0.5, ringColor(color, ground, strongDiscRing));
    painter.restore();
}

void paintColorField(
    QPainter& painter, const QRectF& rect, qreal radius, const QColor& color, const QColor& ground)
{
    QPainterPath shape;
    shape.addRoundedRect(rect, radius, radius);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    fillShape(painter, shape, color);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ringColor(color, ground, strongFieldRing), 1));
    const qreal rounded = std::max(radius - 0.5, 0.0);
    painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), rounded, rounded);
    painter.restore();
}

QColor textOnColor(const QColor& color)
{
    const QColor ink(0x0B0C0E);
    const QColor ground = visibleColor(color);
    return contrastRatio(ground, ink) >= contrastRatio(ground, Qt::white) ? ink : QColor(Qt::white);
}

} // namespace reelhouse
