#include "core/filters/StockDistribution.h"

#include "core/model/StoreContext.h"
#include "core/text/NameOrder.h"

#include <QtCore/QHash>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// What a group shows beside its name.
QString groupIcon(const FilamentType& type)
{
    return type.iconName();
}

QString groupIcon(const FilamentContainer& /*entry*/)
{
    return {};
}

/// Orders the groups and leaves out the empty ones.
std::vector<StockGroup> finished(std::vector<StockGroup> groups)
{
    std::erase_if(groups, [](const StockGroup& group) { return group.count == 0; });
    const FileBrowserOrder isBefore;
    std::ranges::stable_sort(groups, [&](const StockGroup& left, const StockGroup& right) {
        return left.count != right.count ? left.count > right.count
                                         : isBefore(left.name, right.name);
    });
    return groups;
}

template <class T>
std::vector<StockGroup> groupsOf(StoreContext& context, const QString& nameOfNone,
    const QString& iconOfNone, EntityId<T> FilterSelection::*reference)
{
    std::vector<StockGroup> groups;
    qint64 withoutEntry = context.count<Filament>();
    QHash<QString, size_t> placeByName;
    const auto groupNamed = [&](const QString& name) -> StockGroup& {
        const auto known = placeByName.constFind(name);
        if (known != placeByName.cend())
            return groups[*known];
        placeByName.insert(name, groups.size());
        return groups.emplace_back(StockGroup{name});
    };
    for (const auto& entry : context.fetchAll<T>()) {
        StockGroup& group = groupNamed(entry->name());
        if (!(group.selection.*reference)) { // The first of that name.
            group.selection.*reference = entry->id();
            group.icon = groupIcon(*entry);
        }
        group.count += entry->filamentCount();
        withoutEntry -= entry->filamentCount();
    }
    StockGroup& none = groupNamed(nameOfNone);
    if (!none.selection.isActive())
        none.icon = iconOfNone;
    none.count += withoutEntry;
    return finished(std::move(groups));
}

} // namespace

StockDistribution stockDistribution(StoreContext& context)
{
    return {groupsOf(context, u"Sans type"_s, filamentTypeDefaultIcon(), &FilterSelection::type),
        groupsOf(context, u"Sans marque"_s, {}, &FilterSelection::brand),
        groupsOf(context, u"Sans lieu"_s, {}, &FilterSelection::location)};
}

} // namespace reelhouse
