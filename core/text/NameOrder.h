#pragma once

#include <QtCore/QCollator>
#include <QtCore/QString>

#include <compare>
#include <vector>

namespace reelhouse {

/// Compares by Unicode code points after canonical composition, in no language's alphabet: "Zeta"
/// comes before "abs". The order of the stock.
std::strong_ordering compareByCodePoints(const QString& left, const QString& right);

/// For each name its rank in the order of `compareByCodePoints`, equal names sharing one.
/// Rank 0 is kept for the empty name, whether it occurs or not; no rank exceeds the number of
/// names.
std::vector<quint32> nameRanks(const std::vector<QString>& names);

/// The order of names in a French file browser: case counts for nothing and numbers count by value,
/// so "Tiroir 2" comes before "tiroir 10". Fit for `std::ranges::stable_sort`.
class FileBrowserOrder final {
public:
    FileBrowserOrder();

    bool operator()(const QString& left, const QString& right) const;
    /// What stands for a name that is compared often: keys compare faster than names, and alike.
    QCollatorSortKey keyOf(const QString& name) const { return m_collator.sortKey(name); }

private:
    QCollator m_collator;
};

/// The places of the names in that order; equal names keep the order in which they came.
std::vector<size_t> fileBrowserOrder(const std::vector<QString>& names);

} // namespace reelhouse
