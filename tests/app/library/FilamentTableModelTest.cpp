#include "app/library/FilamentTableModel.h"

#include "tests/support/MemoryStock.h"
#include "tests/support/TestMain.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilamentTableModelTest final : public QObject {
    Q_OBJECT

private slots:
    void headersNameTheColumns();
    void cellsSpeakForWhatIsPainted_data();
    void cellsSpeakForWhatIsPainted();
    void aRowWhoseFilamentIsGoneIsEmpty();
    void theSameRowsOnlyAnnounceNewValues();
};

namespace {

QStringList spokenRow(const FilamentTableModel& model, int row)
{
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts << model.index(row, column).data(Qt::AccessibleTextRole).toString();
    return texts;
}

} // namespace

void FilamentTableModelTest::headersNameTheColumns()
{
    const auto stock = tests::makeMemoryStock();
    const FilamentTableModel model(stock->context(), FilamentTableModel::Shape::Table, nullptr);

    QStringList headers;
    for (int column = 0; column < model.columnCount(); ++column)
        headers << model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();

    QCOMPARE(headers,
        (QStringList{u"Type / Marque / Gamme"_s, u"Bobines"_s, u"Lieu"_s, u"Nom de la couleur"_s,
            u"Notes"_s}));
}

void FilamentTableModelTest::cellsSpeakForWhatIsPainted_data()
{
    QTest::addColumn<bool>("hasReferences");
    QTest::addColumn<qint64>("spools");
    QTest::addColumn<qint64>("opened");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("everything known")
        << true << 2LL << 1LL
        << QStringList{u"PLA, Bambu Lab, PLA Basic"_s, u"2 bobines, 1 entamée"_s, u"Étagère A"_s,
               u"Rouge #E53935"_s, u"Neuf"_s};
    QTest::newRow("no reference, none opened")
        << false << 1LL << 0LL
        << QStringList{u"Sans type, Sans marque"_s, u"1 bobine"_s, u"Sans lieu"_s,
               u"Rouge #E53935"_s, u"Neuf"_s};
    QTest::newRow("two opened") << false << 4LL << 2LL
                                << QStringList{u"Sans type, Sans marque"_s,
                                       u"4 bobines, 2 entamées"_s, u"Sans lieu"_s,
                                       u"Rouge #E53935"_s, u"Neuf"_s};
}

void FilamentTableModelTest::cellsSpeakForWhatIsPainted()
{
    QFETCH(bool, hasReferences);
    QFETCH(qint64, spools);
    QFETCH(qint64, opened);
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    auto& type = context.insert(std::make_unique<FilamentType>(u"PLA"_s));
    auto& brand = context.insert(std::make_unique<Brand>(u"Bambu Lab"_s));
    auto& range = context.insert(std::make_unique<FilamentRange>(u"PLA Basic"_s));
    auto& location = context.insert(std::make_unique<Location>(u"Étagère A"_s));
    const auto& filament = context.insert(std::make_unique<Filament>(
        hasReferences ? &type : nullptr, hasReferences ? &brand : nullptr,
        hasReferences ? &range : nullptr, hasReferences ? &location : nullptr, spools, opened,
        u"#E53935"_s, u"Rouge"_s, u"Neuf"_s));
    FilamentTableModel model(context, FilamentTableModel::Shape::Table, nullptr);
    const QAbstractItemModelTester tester(&model);

    model.setRows({filament.id()});

    QTEST(spokenRow(model, 0), "expected");
}

void FilamentTableModelTest::aRowWhoseFilamentIsGoneIsEmpty()
{
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    auto& filament = context.insert(std::make_unique<Filament>(
        nullptr, nullptr, nullptr, nullptr, 1, 0, u"#000000"_s, u"Noir"_s, QString()));
    FilamentTableModel model(context, FilamentTableModel::Shape::Table, nullptr);
    model.setRows({filament.id()});

    context.remove(filament);

    QCOMPARE(model.rowCount(), 1);
    QVERIFY(!model.index(0, 0).data().isValid());
    QVERIFY(!model.filamentAt(0));
}

void FilamentTableModelTest::theSameRowsOnlyAnnounceNewValues()
{
    const auto stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    auto& filament = context.insert(std::make_unique<Filament>(
        nullptr, nullptr, nullptr, nullptr, 1, 0, u"#000000"_s, u"Noir"_s, QString()));
    FilamentTableModel model(context, FilamentTableModel::Shape::Table, nullptr);
    model.setRows({filament.id()});
    QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);

    model.setRows({filament.id()});

    QCOMPARE(reset.count(), 0);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().at(1).toModelIndex(), model.index(0, 4));
}

REELHOUSE_TEST(FilamentTableModelTest)

#include "FilamentTableModelTest.moc"
