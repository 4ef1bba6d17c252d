#include <QtCore/QAbstractTableModel>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QTableView>

namespace {

class NumberedCells final : public QAbstractTableModel {
public:
    int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 1000; }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 7; }

    QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(index.row() * 7 + index.column()) : QVariant();
    }
};

} // namespace

/// The floor of a start: what the quickest program with a window and a table of 1,000 rows needs
/// on this machine.
int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    NumberedCells cells;
    QMainWindow window;
    auto* table = new QTableView(&window);
    table->setModel(&cells);
    window.setCentralWidget(table);
    window.setWindowTitle(QStringLiteral("empty-table"));
    window.resize(1300, 850);
    window.show();
    return QApplication::exec();
}
