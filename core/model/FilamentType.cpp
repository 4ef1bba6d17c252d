#include "core/model/FilamentType.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

QString filamentTypeDefaultIcon()
{
    return u"cube.fill"_s;
}

QStringList typeIconOptions()
{
    return {u"cube.fill"_s, u"cylinder.fill"_s, u"circle.fill"_s, u"triangle.fill"_s,
        u"hexagon.fill"_s, u"diamond.fill"_s, u"drop.fill"_s, u"flame.fill"_s, u"snowflake"_s,
        u"leaf.fill"_s, u"bolt.fill"_s, u"sparkles"_s, u"star.fill"_s, u"moon.fill"_s,
        u"sun.max.fill"_s, u"shield.fill"_s, u"capsule.fill"_s, u"seal.fill"_s,
        u"puzzlepiece.fill"_s, u"arrow.trianglehead.swap"_s};
}

FilamentType::FilamentType(QString name, QString iconName)
    : FilamentContainer(ReferenceKind::Type, std::move(name))
    , m_iconName(std::move(iconName))
{
}

void FilamentType::setName(const QString& newName)
{
    if (newName == name())
        return;
    willChange(*this);
    writeName(newName);
}

void FilamentType::setIconName(const QString& iconName)
{
    if (iconName == m_iconName)
        return;
    willChange(*this);
    m_iconName = iconName;
}

void FilamentType::apply(const Values& from, const Values& to)
{
    if (from.name != to.name)
        setName(to.name);
    if (from.iconName != to.iconName)
        setIconName(to.iconName);
}

} // namespace reelhouse
