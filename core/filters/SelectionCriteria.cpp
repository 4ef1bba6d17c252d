#include "core/filters/SelectionCriteria.h"

#include "core/model/StoreContext.h"

namespace reelhouse {

namespace {

template <class T>
std::optional<QString> nameOf(StoreContext& context, EntityId<T> id)
{
    const T* entry = context.find(id);
    return entry ? std::optional(entry->name()) : std::nullopt;
}

template <class T>
EntityId<T> firstNamed(StoreContext& context, const std::optional<QString>& name)
{
    if (!name)
        return {};
    const auto entries = context.fetchAll<T>();
    const auto found = std::ranges::find_if(
        entries, [&](const std::unique_ptr<T>& entry) { return entry->name() == *name; });
    return found == entries.end() ? EntityId<T>{} : (*found)->id();
}

template <class T>
void clearDeleted(StoreContext& context, EntityId<T>& id)
{
    if (!context.find(id))
        id = {};
}

} // namespace

FilterCriteria criteriaOf(StoreContext& context, const FilterSelection& selection)
{
    return {nameOf(context, selection.type), nameOf(context, selection.brand),
        nameOf(context, selection.range), nameOf(context, selection.location), selection.spools,
        selection.opened, selection.searchText};
}

FilterSelection selectionOf(StoreContext& context, const FilterCriteria& criteria)
{
    return {firstNamed<FilamentType>(context, criteria.typeName),
        firstNamed<Brand>(context, criteria.brandName),
        firstNamed<FilamentRange>(context, criteria.rangeName),
        firstNamed<Location>(context, criteria.locationName), criteria.spools, criteria.opened,
        criteria.searchText};
}

FilterSelection withoutDeleted(StoreContext& context, FilterSelection selection)
{
    clearDeleted(context, selection.type);
    clearDeleted(context, selection.brand);
    clearDeleted(context, selection.range);
    clearDeleted(context, selection.location);
    return selection;
}

} // namespace reelhouse
