#pragma once

#include "core/model/EntityId.h"

#include <QtCore/QAbstractTableModel>

#include <vector>

namespace reelhouse {

class Filament;
class StoreContext;

/// The filaments on show, one a row, as the list and the cards read them. Rows are identities: the
/// values are read from the stock at each call, and a row whose filament is gone has none.
class FilamentTableModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column : quint8 { Product, Spools, Place, ColorName, Notes };
    /// A table has every column; cards have the first one only, which then speaks for all.
    enum class Shape : quint8 { Table, Cards };

    FilamentTableModel(StoreContext& context, Shape shape, QObject* parent);

    /// Shows these filaments, in this order. The same rows again only announce that values changed.
    void setRows(std::vector<FilamentId> rows);
    FilamentId idAt(int row) const;
    /// The row of a filament, or -1.
    int rowOf(FilamentId id) const;
    /// The filament shown in a row, or null once it was removed. Not to be kept.
    const Filament* filamentAt(int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    StoreContext& m_context;
    Shape m_shape;
    std::vector<FilamentId> m_rows;
};

} // namespace reelhouse
