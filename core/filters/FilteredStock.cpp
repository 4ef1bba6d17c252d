#include "core/filters/FilteredStock.h"

#include "core/model/StoreContext.h"
#include "core/text/Folding.h"
#include "core/text/NameOrder.h"

namespace reelhouse {

namespace {

bool isInBucket(std::optional<qint64> bucket, qint64 count)
{
    if (!bucket)
        return true;
    return *bucket >= fourOrMoreBucket ? count >= 4 : count == *bucket;
}

/// One selection made ready for many filaments: what concerns a reference is found out once.
class StockFilter final {
public:
    StockFilter(StoreContext& context, const FilterSelection& selection)
        : m_selected{context.find(selection.type), context.find(selection.brand),
            context.find(selection.range), context.find(selection.location)}
        , m_spools(selection.spools)
        , m_opened(selection.opened)
        , m_pattern(selection.searchText)
    {
        if (m_pattern.matchesEverything())
            return;
        m_isFoundInName
            = {namesWithPattern<FilamentType>(context), namesWithPattern<Brand>(context),
                namesWithPattern<FilamentRange>(context), namesWithPattern<Location>(context)};
    }

    bool accepts(const Filament& filament) const
    {
        for (size_t kind = 0; kind < m_selected.size(); ++kind) {
            if (m_selected[kind] && filament.reference(ReferenceKind(kind)) != m_selected[kind])
                return false;
        }
        return isInBucket(m_spools, filament.spoolsCount())
            && isInBucket(m_opened, filament.openedSpoolsCount()) && isFound(filament);
    }

private:
    /// Nothing when no name has it, so that no filament need be asked for its entry.
    template <class T>
    std::vector<bool> namesWithPattern(StoreContext& context) const
    {
        std::vector<bool> found;
        for (const auto& entry : context.fetchAll<T>())
            found.push_back(m_pattern.isFoundIn(entry->name()));
        return std::ranges::count(found, true) > 0 ? found : std::vector<bool>();
    }

    bool isFound(const Filament& filament) const
    {
        if (m_pattern.matchesEverything())
            return true;
        for (size_t kind = 0; kind < m_isFoundInName.size(); ++kind) {
            if (m_isFoundInName[kind].empty())
                continue;
            const FilamentContainer* entry = filament.reference(ReferenceKind(kind));
            if (entry && m_isFoundInName[kind][entry->row()])
                return true;
        }
        return m_pattern.isFoundIn(filament.notes()) || m_pattern.isFoundIn(filament.colorName())
            || m_pattern.isFoundIn(filament.colorHex());
    }

    std::array<const FilamentContainer*, referenceKindCount> m_selected;
    std::optional<qint64> m_spools;
    std::optional<qint64> m_opened;
    SearchPattern m_pattern;
    std::array<std::vector<bool>, referenceKindCount> m_isFoundInName; ///< By row of the entry.
};

struct RankedFilament {
    quint32 typeRank;
    quint32 brandRank;
    FilamentId id;
};

/// The rank of each entry's name, by its row.
template <class T>
std::vector<quint32> ranksByRow(StoreContext& context)
{
    std::vector<QString> names;
    for (const auto& entry : context.fetchAll<T>())
        names.push_back(entry->name());
    return nameRanks(names);
}

quint32 rankOf(const FilamentContainer* entry, const std::vector<quint32>& ranks)
{
    return entry ? ranks[entry->row()] : 0;
}

/// A stable counting sort by `rank`, whose values lie between 0 and `greatest`.
std::vector<RankedFilament> sortedByRank(
    const std::vector<RankedFilament>& filaments, quint32 RankedFilament::*rank, size_t greatest)
{
    std::vector<size_t> places(greatest + 2, 0);
    for (const RankedFilament& filament : filaments)
        ++places[filament.*rank + 1];
    for (size_t value = 1; value < places.size(); ++value)
        places[value] += places[value - 1];
    std::vector<RankedFilament> sorted(filaments.size());
    for (const RankedFilament& filament : filaments)
        sorted[places[filament.*rank]++] = filament;
    return sorted;
}

} // namespace

std::vector<FilamentId> filteredStock(StoreContext& context, const FilterSelection& selection)
{
    const StockFilter filter(context, selection);
    std::vector<quint32> typeRanks;
    std::vector<quint32> brandRanks;
    std::vector<RankedFilament> kept;
    for (const auto& filament : context.fetchAll<Filament>()) {
        if (!filter.accepts(*filament))
            continue;
        if (kept.empty()) { // Nothing is ranked for a search without result.
            typeRanks = ranksByRow<FilamentType>(context);
            brandRanks = ranksByRow<Brand>(context);
        }
        kept.push_back({rankOf(filament->type(), typeRanks), rankOf(filament->brand(), brandRanks),
            filament->id()});
    }
    kept = sortedByRank(kept, &RankedFilament::brandRank, brandRanks.size());
    kept = sortedByRank(kept, &RankedFilament::typeRank, typeRanks.size());

    std::vector<FilamentId> ids;
    ids.reserve(kept.size());
    for (const RankedFilament& filament : kept)
        ids.push_back(filament.id);
    return ids;
}

} // namespace reelhouse
