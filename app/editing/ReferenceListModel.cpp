#include "app/editing/ReferenceListModel.h"

#include "app/editing/ReferenceUsageLabel.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

ReferenceListModel::ReferenceListModel(const ReferenceList& list, QObject* parent)
    : QAbstractListModel(parent)
    , m_list(list)
{
}

void ReferenceListModel::setRows(std::vector<ReferenceId> rows)
{
    if (rows == m_rows) {
        if (!m_rows.empty())
            emit dataChanged(index(0), index(int(m_rows.size()) - 1));
        return;
    }
    beginResetModel();
    m_rows = std::move(rows);
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
    return QString(entry->name() + u", "_s
        + ReferenceUsageLabel::text(entry->filamentCount(), entry->spoolCount()));
}

} // namespace reelhouse
