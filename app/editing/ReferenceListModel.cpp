#include "app/editing/ReferenceListModel.h"

#include "app/editing/ReferenceUsageLabel.h"
#include "core/model/Filament.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

ReferenceUsage usageOf(const FilamentContainer& entry)
{
    ReferenceUsage usage{entry.filamentCount(), entry.spoolCount(), {}};
    std::vector<const Filament*> oldest(
        std::min(entry.filaments().size(), size_t(ReferenceUsage::mostColors)));
    std::ranges::partial_sort_copy(entry.filaments(), oldest, {}, &Filament::id, &Filament::id);
    for (const Filament* filament : oldest)
        usage.oldestColors << filament->colorHex();
    return usage;
}

} // namespace

ReferenceListModel::ReferenceListModel(const ReferenceList& list, QObject* parent)
    : QAbstractListModel(parent)
    , m_list(list)
{
}

void ReferenceListModel::setRows(std::vector<ReferenceId> rows)
{
    if (rows == m_rows) {
        m_usages.assign(m_rows.size(), std::nullopt);
        if (!m_rows.empty())
            emit dataChanged(index(0), index(int(m_rows.size()) - 1));
        return;
    }
    beginResetModel();
    m_rows = std::move(rows);
    m_usages.assign(m_rows.size(), std::nullopt);
    endResetModel();
}

ReferenceId ReferenceListModel::idAt(int row) const
{
    return row >= 0 && row < int(m_rows.size()) ? m_rows[size_t(row)] : ReferenceId{};
}

int ReferenceListModel::rowOf(ReferenceId id) const
{
    const auto found = std::ranges::find(m_rows, id);
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

const ReferenceUsage& ReferenceListModel::usageAt(int row) const
{
    static const ReferenceUsage none;
    const FilamentContainer* entry = entryAt(row);
    if (!entry)
        return none;
    std::optional<ReferenceUsage>& usage = m_usages[size_t(row)];
    if (!usage)
        usage = usageOf(*entry);
    return *usage;
}

int ReferenceListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant ReferenceListModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)
        return {};
    const FilamentContainer* entry = entryAt(index.row());
    if (!entry)
        return {};
    if (role == Qt::DisplayRole)
        return entry->name();
    // A screen reader hears a whole row: also what is painted under its name.
    const ReferenceUsage& usage = usageAt(index.row());
    return QString(
        entry->name() + u", "_s + ReferenceUsageLabel::text(usage.filamentCount, usage.spoolCount));
}

} // namespace reelhouse
