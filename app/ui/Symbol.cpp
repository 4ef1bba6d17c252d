#include "app/ui/Symbol.h"

#include "app/ui/ColorMath.h"

#include <QtCore/QFile>
#include <QtGui/QIconEngine>
#include <QtGui/QPainter>
#include <QtGui/QPixmapCache>
#include <QtSvg/QSvgRenderer>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// The build gives each embedded drawing the name of its symbol.
QString drawingOf(const QString& name)
{
    const QString path = u":/symbols/"_s + name + u".svg"_s;
    // A stored name is only a name: one with a slash in it leads nowhere else.
    return !name.contains(u'/') && QFile::exists(path) ? path : u":/symbols/cube.fill.svg"_s;
}

/// A square pixmap with the symbol in `color`, `side` device pixels wide.
QPixmap tintedSymbol(const QString& name, int side, const QColor& color)
{
    const QString key = u"symbol/%1/%2/%3"_s.arg(name).arg(side).arg(color.rgba(), 0, 16);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;

    pixmap = QPixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(drawingOf(name)).render(&painter, QRectF(0, 0, side, side));
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

/// Draws one symbol in a colour of the theme in use at that moment.
class SymbolIconEngine final : public QIconEngine {
public:
    SymbolIconEngine(QString name, ColorRole role)
        : m_name(std::move(name))
        , m_role(role)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        paintSymbol(*painter, rect, m_name, colorFor(mode));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paintSymbol(painter, pixmap.rect(), m_name, colorFor(mode));
        return pixmap;
    }

    QIconEngine* clone() const override { return new SymbolIconEngine(m_name, m_role); }
    QString iconName() override { return m_name; }
    bool isNull() override { return false; }

private:
    QColor colorFor(QIcon::Mode mode) const
    {
        const QColor color = currentTheme().*m_role;
        return mode == QIcon::Disabled ? faded(color, disabledOpacity) : color;
    }

    QString m_name;
    ColorRole m_role;
};

/// Draws the application icon, which has colours of its own.
class ApplicationIconEngine final : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        QSvgRenderer(u":/icons/app-icon.svg"_s).render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new ApplicationIconEngine; }
    bool isNull() override { return false; }
};

struct SpokenName {
    QLatin1StringView symbol;
    QStringView name;
};

constexpr std::array<SpokenName, 20> typeIcons{{
    {"cube.fill"_L1, u"Cube"},
    {"cylinder.fill"_L1, u"Cylindre"},
    {"circle.fill"_L1, u"Cercle"},
    {"triangle.fill"_L1, u"Triangle"},
    {"hexagon.fill"_L1, u"Hexagone"},
    {"diamond.fill"_L1, u"Losange"},
    {"drop.fill"_L1, u"Goutte"},
    {"flame.fill"_L1, u"Flamme"},
    {"snowflake"_L1, u"Flocon"},
    {"leaf.fill"_L1, u"Feuille"},
    {"bolt.fill"_L1, u"Éclair"},
    {"sparkles"_L1, u"Étincelles"},
    {"star.fill"_L1, u"Étoile"},
    {"moon.fill"_L1, u"Lune"},
    {"sun.max.fill"_L1, u"Soleil"},
    {"shield.fill"_L1, u"Bouclier"},
    {"capsule.fill"_L1, u"Capsule"},
    {"seal.fill"_L1, u"Sceau"},
    {"puzzlepiece.fill"_L1, u"Pièce de puzzle"},
    {"arrow.trianglehead.swap"_L1, u"Échange"},
}};

} // namespace

void paintSymbol(QPainter& painter, const QRectF& rect, const QString& name, const QColor& color)
{
    const qreal ratio = painter.device()->devicePixelRatio();
    const qreal length = std::min(rect.width(), rect.height());
    const int side = static_cast<int>(std::ceil(length * ratio));
    if (side <= 0)
        return;
    QPixmap pixmap = tintedSymbol(name, side, color);
    pixmap.setDevicePixelRatio(ratio);

    // Drawn on whole device pixels, so that it is as sharp as it was rendered.
    const QPointF corner = rect.center() - QPointF(length, length) / 2;
    const QPointF aligned(
        std::round(corner.x() * ratio) / ratio, std::round(corner.y() * ratio) / ratio);
    painter.drawPixmap(aligned, pixmap);
}

QIcon symbolIcon(const QString& name, ColorRole role)
{
    return QIcon(new SymbolIconEngine(name, role));
}

QString typeIconAccessibleName(const QString& name)
{
    const auto known = std::find_if(typeIcons.begin(), typeIcons.end(),
        [&name](const SpokenName& candidate) { return candidate.symbol == name; });
    return (known == typeIcons.end() ? typeIcons.front() : *known).name.toString();
}

QIcon applicationIcon()
{
    return QIcon(new ApplicationIconEngine);
}

} // namespace reelhouse
