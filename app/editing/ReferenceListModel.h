#pragma once

#include "app/editing/ReferenceList.h"

#include <QtCore/QAbstractListModel>
#include <QtCore/QStringList>

#include <optional>
#include <vector>

namespace reelhouse {

/// What a row shows of the filaments that use its entry.
struct ReferenceUsage {
    static constexpr int mostColors = 9;

    qint64 filamentCount = 0;
    qint64 spoolCount = 0;
    QStringList oldestColors; ///< The colour codes of the oldest of them, the oldest first.
};

/// The entries of a reference list, one a row. Rows are identities: names are read from the stock
/// at each call, and a row whose entry is gone has none. The usage of a row is counted when it is
/// first looked at, and again after `setRows`.
class ReferenceListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    ReferenceListModel(const ReferenceList& list, QObject* parent);

    /// Shows these entries, in this order. The same rows again only announce that values changed.
    void setRows(std::vector<ReferenceId> rows);
    /// The entry of a row; nothing's identity for a row that is none.
    ReferenceId idAt(int row) const;
    /// The row of an entry, or -1.
    int rowOf(ReferenceId id) const;
    /// The entry shown in a row, or null once it was removed. Not to be kept.
    const FilamentContainer* entryAt(int row) const { return m_list.find(idAt(row)); }
    /// How the entry of a row is used; nothing for one that was removed.
    const ReferenceUsage& usageAt(int row) const;
    const ReferenceList& list() const { return m_list; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    ReferenceList m_list;
    std::vector<ReferenceId> m_rows;
    /// Those counted so far: painting a row must not walk through all its filaments.
    mutable std::vector<std::optional<ReferenceUsage>> m_usages;
};

} // namespace reelhouse
