#pragma once

#include "app/editing/ReferenceList.h"

#include <QtCore/QAbstractListModel>

namespace reelhouse {

/// The entries of a reference list, one a row. Rows are identities: the values are read from the
/// stock at each call, and a row whose entry is gone has none.
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
    const ReferenceList& list() const { return m_list; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    ReferenceList m_list;
    std::vector<ReferenceId> m_rows;
};

} // namespace reelhouse
