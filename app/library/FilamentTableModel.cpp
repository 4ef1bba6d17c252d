#include "app/library/FilamentTableModel.h"

#include "app/library/FilamentTexts.h"
#include "core/model/StoreContext.h"
#include "core/text/Plural.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int columns = 5;

QString spokenProduct(const Filament& filament)
{
    QString text = FilamentTexts::typeName(filament) + u", "_s + FilamentTexts::brandName(filament);
    if (filament.range())
        text += u", "_s + filament.range()->name();
    return text;
}

QString spokenSpools(const Filament& filament)
{
    QString text = counted(filament.spoolsCount(), u"bobine"_s);
    if (filament.openedSpoolsCount() >= 1)
        text += u", "_s + counted(filament.openedSpoolsCount(), u"entamée"_s);
    return text;
}

QString displayText(const Filament& filament, int column)
{
    switch (FilamentTableModel::Column(column)) {
    case FilamentTableModel::Product:
        return FilamentTexts::typeName(filament);
    case FilamentTableModel::Spools:
        return QString::number(filament.spoolsCount());
    case FilamentTableModel::Place:
        return FilamentTexts::place(filament);
    case FilamentTableModel::ColorName:
        return FilamentTexts::colorName(filament);
    case FilamentTableModel::Notes:
        return filament.notes();
    }
    Q_UNREACHABLE();
}

/// A screen reader hears a whole cell: also what is painted beside its text.
QString spokenText(const Filament& filament, int column)
{
    switch (FilamentTableModel::Column(column)) {
    case FilamentTableModel::Product:
        return spokenProduct(filament);
    case FilamentTableModel::Spools:
        return spokenSpools(filament);
    case FilamentTableModel::Place:
        return filament.location() ? filament.location()->name() : u"Sans lieu"_s;
    case FilamentTableModel::ColorName:
        return QString(filament.colorName() + u' ' + filament.colorHex()).trimmed();
    case FilamentTableModel::Notes:
        return filament.notes();
    }
    Q_UNREACHABLE();
}

/// Everything that a card shows.
QString spokenCard(const Filament& filament)
{
    QStringList texts;
    for (const auto column : {FilamentTableModel::Product, FilamentTableModel::ColorName,
             FilamentTableModel::Spools, FilamentTableModel::Place, FilamentTableModel::Notes})
        texts << spokenText(filament, column);
    texts.removeAll(QString());
    return texts.join(u", "_s);
}

} // namespace

FilamentTableModel::FilamentTableModel(StoreContext& context, Shape shape, QObject* parent)
    : QAbstractTableModel(parent)
    , m_context(context)
    , m_shape(shape)
{
}

void FilamentTableModel::setRows(std::vector<FilamentId> rows)
{
    if (rows == m_rows) {
        if (!m_rows.empty())
            emit dataChanged(index(0, 0), index(int(m_rows.size()) - 1, columnCount() - 1));
        return;
    }
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

FilamentId FilamentTableModel::idAt(int row) const
{
    return row >= 0 && row < int(m_rows.size()) ? m_rows[size_t(row)] : FilamentId{};
}

int FilamentTableModel::rowOf(FilamentId id) const
{
    const auto found = std::ranges::find(m_rows, id);
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

const Filament* FilamentTableModel::filamentAt(int row) const
{
    return m_context.find(idAt(row));
}

int FilamentTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int FilamentTableModel::columnCount(const QModelIndex& parent) const
{
    if (parent.isValid())
        return 0;
    return m_shape == Shape::Table ? columns : 1;
}

QVariant FilamentTableModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)
        return {};
    const Filament* filament = filamentAt(index.row());
    if (!filament)
        return {};
    if (role == Qt::DisplayRole)
        return displayText(*filament, index.column());
    return m_shape == Shape::Table ? spokenText(*filament, index.column()) : spokenCard(*filament);
}

QVariant FilamentTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (Column(section)) {
    case Product:
        return u"Type / Marque / Gamme"_s;
    case Spools:
        return u"Bobines"_s;
    case Place:
        return u"Lieu"_s;
    case ColorName:
        return u"Nom de la couleur"_s;
    case Notes:
        return u"Notes"_s;
    }
    return {};
}

} // namespace reelhouse
