#include "core/filters/SelectionCriteria.h"

#include "core/model/StoreContext.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class SelectionCriteriaTest final : public QObject {
    Q_OBJECT

private slots:
    void aSelectionBecomesItsNames();
    void criteriaSelectTheFirstEntryOfExactlyThatName();
    void aNameThatIsGoneClearsOnlyItsOwnCriterion();
    void aRenamedReferenceStaysSelected();
    void aDeletedReferenceIsClearedAndNotRevived();
};

namespace {

struct NamedStock {
    NamedStock() { context.insert(std::make_unique<Location>(u"Armoire"_s)); }

    tests::RecordingStore store;
    StoreContext context{store};
    FilamentType& type = context.insert(std::make_unique<FilamentType>(u"PLA"_s));
    FilamentType& twin = context.insert(std::make_unique<FilamentType>(u"PLA"_s));
    Brand& brand = context.insert(std::make_unique<Brand>(u"Acme"_s));
    FilamentRange& range = context.insert(std::make_unique<FilamentRange>(u"Mat"_s));
    Location& location = context.insert(std::make_unique<Location>(u"Tiroir"_s));

    FilterSelection selection() const
    {
        return {type.id(), brand.id(), range.id(), location.id(), 99, 0, u" rouge "_s};
    }
};

} // namespace

void SelectionCriteriaTest::aSelectionBecomesItsNames()
{
    NamedStock stock;

    QCOMPARE(criteriaOf(stock.context, {}), FilterCriteria{.searchText = {}});
    QCOMPARE(criteriaOf(stock.context, stock.selection()),
        (FilterCriteria{u"PLA"_s, u"Acme"_s, u"Mat"_s, u"Tiroir"_s, 99, 0, u" rouge "_s}));
}

void SelectionCriteriaTest::criteriaSelectTheFirstEntryOfExactlyThatName()
{
    NamedStock stock;

    QCOMPARE(selectionOf(
                 stock.context, {u"PLA"_s, u"Acme"_s, u"Mat"_s, u"Tiroir"_s, 99, 0, u" rouge "_s}),
        stock.selection());
    QCOMPARE(selectionOf(stock.context, {.searchText = {}}), FilterSelection());
    const FilterSelection unlike
        = selectionOf(stock.context, {u"pla"_s, u"Acme "_s, u"Mât"_s, QString(), {}, {}, {}});
    QCOMPARE(unlike, FilterSelection());
}

void SelectionCriteriaTest::aNameThatIsGoneClearsOnlyItsOwnCriterion()
{
    NamedStock stock;
    const FilterCriteria criteria = criteriaOf(stock.context, stock.selection());
    stock.context.remove(stock.brand);

    FilterSelection expected = stock.selection();
    expected.brand = {};
    QCOMPARE(selectionOf(stock.context, criteria), expected);
}

void SelectionCriteriaTest::aRenamedReferenceStaysSelected()
{
    NamedStock stock;
    stock.type.setName(u"PLA+"_s);

    QCOMPARE(withoutDeleted(stock.context, stock.selection()), stock.selection());
    QCOMPARE(criteriaOf(stock.context, stock.selection()).typeName, u"PLA+"_s);
}

void SelectionCriteriaTest::aDeletedReferenceIsClearedAndNotRevived()
{
    NamedStock stock;
    stock.context.remove(stock.location);
    stock.context.insert(std::make_unique<Location>(u"Tiroir"_s));

    FilterSelection expected = stock.selection();
    expected.location = {};
    QCOMPARE(withoutDeleted(stock.context, stock.selection()), expected);
    QCOMPARE(criteriaOf(stock.context, stock.selection()).locationName, std::nullopt);
}

REELHOUSE_TEST(SelectionCriteriaTest)

#include "SelectionCriteriaTest.moc"
