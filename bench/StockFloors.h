#pragma once

#include "core/model/StoreContext.h"
#include "core/text/Folding.h"
#include "core/text/NameOrder.h"

#include <ctime>

/// The least that searching and ordering a stock can cost, to measure beside.
namespace reelhouse::bench {

/// The seconds that the processor works on `work`, which waits for nothing: other programs may run.
template <class Work>
double processorSecondsOf(Work work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
    };
    const double start = now();
    work();
    return now() - start;
}

/// The least that a search can do: each unit of European text is folded through a table once and
/// compared at once, without trimming, letters that fold to several, or any other script.
class BareSearch final {
public:
    explicit BareSearch(QString foldedQuery)
        : m_query(std::move(foldedQuery))
    {
        for (size_t unit = 0; unit < m_table.size(); ++unit) {
            const QString folded = normalizedForSearch(QString(QChar(char16_t(unit))));
            m_table[unit] = folded.size() == 1 ? folded[0].unicode() : char16_t(unit);
        }
    }

    /// Good enough for a query in which no beginning comes again.
    bool isFoundIn(QStringView text) const
    {
        qsizetype matched = 0;
        for (const QChar unit : text) {
            const char16_t folded
                = unit.unicode() < m_table.size() ? m_table[unit.unicode()] : unit.unicode();
            if (folded == m_query[matched]) {
                if (++matched == m_query.size())
                    return true;
            } else {
                matched = folded == m_query[0] ? 1 : 0;
            }
        }
        return false;
    }

    template <class T>
    std::vector<char> isFoundInNames(StoreContext& context) const
    {
        std::vector<char> found;
        for (const auto& entry : context.fetchAll<T>())
            found.push_back(isFoundIn(entry->name()) ? 1 : 0);
        return found;
    }

private:
    QString m_query;
    std::array<char16_t, 0x250> m_table;
};

/// The filaments in which the query is found; calls `take` with each.
template <class Take>
void bareSearch(StoreContext& context, const BareSearch& search, Take take)
{
    const std::array<std::vector<char>, referenceKindCount> isFoundInName{
        search.isFoundInNames<FilamentType>(context), search.isFoundInNames<Brand>(context),
        search.isFoundInNames<FilamentRange>(context), search.isFoundInNames<Location>(context)};
    for (const auto& filament : context.fetchAll<Filament>()) {
        bool isFound = search.isFoundIn(filament->notes())
            || search.isFoundIn(filament->colorName()) || search.isFoundIn(filament->colorHex());
        for (size_t kind = 0; kind < isFoundInName.size() && !isFound; ++kind) {
            const FilamentContainer* entry = filament->reference(ReferenceKind(kind));
            isFound = entry && isFoundInName[kind][entry->row()] != 0;
        }
        if (isFound)
            take(*filament);
    }
}

/// For information: a search in texts that were folded beforehand. A library would have to keep
/// them, and to renew them with every edit.
class ReadyKeys final {
public:
    explicit ReadyKeys(StoreContext& context)
    {
        for (const auto& filament : context.fetchAll<Filament>()) {
            QStringList texts{filament->notes(), filament->colorName(), filament->colorHex()};
            for (int kind = 0; kind < referenceKindCount; ++kind) {
                if (const auto* entry = filament->reference(ReferenceKind(kind)))
                    texts << entry->name();
            }
            m_keys.push_back(normalizedForSearch(texts.join(u'\n')));
        }
    }

    template <class Take>
    void search(StoreContext& context, const QString& foldedQuery, Take take) const
    {
        const auto filaments = context.fetchAll<Filament>();
        for (size_t row = 0; row < filaments.size(); ++row) {
            if (m_keys[row].contains(foldedQuery))
                take(*filaments[row]);
        }
    }

private:
    std::vector<QString> m_keys;
};

template <class T>
std::vector<quint32> ranksByRow(StoreContext& context)
{
    std::vector<QString> names;
    for (const auto& entry : context.fetchAll<T>())
        names.push_back(entry->name());
    return nameRanks(names);
}

struct RankedFilament {
    quint32 type;
    quint32 brand;
    FilamentId id;
};

inline void sortByRank(
    std::vector<RankedFilament>& filaments, quint32 RankedFilament::*rank, size_t ranks)
{
    std::vector<size_t> places(ranks + 2, 0);
    for (const RankedFilament& filament : filaments)
        ++places[filament.*rank + 1];
    for (size_t value = 1; value < places.size(); ++value)
        places[value] += places[value - 1];
    std::vector<RankedFilament> sorted(filaments.size());
    for (const RankedFilament& filament : filaments)
        sorted[places[filament.*rank]++] = filament;
    filaments.swap(sorted);
}

/// The ranks of the names that the order of the stock goes by, found beforehand.
struct ReadyRanks {
    explicit ReadyRanks(StoreContext& context)
        : types(ranksByRow<FilamentType>(context))
        , brands(ranksByRow<Brand>(context))
    {
    }

    RankedFilament of(const Filament& filament) const
    {
        return {filament.type() ? types[filament.type()->row()] : 0,
            filament.brand() ? brands[filament.brand()->row()] : 0, filament.id()};
    }

    std::vector<quint32> types;
    std::vector<quint32> brands;
};

/// Some filaments in order, when the ranks of the names are known.
inline std::vector<FilamentId> orderByReadyRanks(
    std::vector<RankedFilament> filaments, const ReadyRanks& ranks)
{
    sortByRank(filaments, &RankedFilament::brand, ranks.brands.size());
    sortByRank(filaments, &RankedFilament::type, ranks.types.size());
    std::vector<FilamentId> ids;
    ids.reserve(filaments.size());
    for (const RankedFilament& filament : filaments)
        ids.push_back(filament.id);
    return ids;
}

/// The whole stock.
inline std::vector<FilamentId> orderByReadyRanks(StoreContext& context, const ReadyRanks& ranks)
{
    std::vector<RankedFilament> filaments;
    for (const auto& filament : context.fetchAll<Filament>())
        filaments.push_back(ranks.of(*filament));
    return orderByReadyRanks(std::move(filaments), ranks);
}

} // namespace reelhouse::bench
