#include "app/editing/FilamentDeletion.h"

#include "app/ui/Alert.h"
#include "tests/app/editing/EditorFixture.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class FilamentDeletionTest final : public QObject {
    Q_OBJECT

private slots:
    void theQuestionNamesTheType();
    void itDeletesWhenConfirmed();
    void itKeepsOtherwise_data();
    void itKeepsOtherwise();
    void nothingIsAskedAboutWhatIsGone();
    void whatLeftMeanwhileCountsAsDeleted();
};

namespace {

struct DeletionFixture : EditorFixture {
    DeletionFixture()
    {
        Filament& filament = context.insert(std::make_unique<Filament>(
            &pla2, nullptr, nullptr, nullptr, 1, 0, u"#FFFFFF"_s, QString(), QString()));
        id = filament.id();
        context.processPendingChanges();
        context.clearHistory();
    }

    void ask()
    {
        askToDelete(context, id, &window, [this] { ++deletions; });
        alert = window.findChild<Alert*>();
    }
    void answer(const QString& text) const { EditorControls(*alert).button(text)->click(); }

    FilamentId id;
    int deletions = 0;
    Alert* alert = nullptr;
};

} // namespace

void FilamentDeletionTest::theQuestionNamesTheType()
{
    DeletionFixture fixture;
    Filament& filament = *fixture.context.find(fixture.id);
    QCOMPARE(deletionQuestion(filament), u"Voulez-vous vraiment supprimer pla 2 ?"_s);

    filament.setType(nullptr);

    QCOMPARE(deletionQuestion(filament), u"Voulez-vous vraiment supprimer ce filament ?"_s);
}

void FilamentDeletionTest::itDeletesWhenConfirmed()
{
    DeletionFixture fixture;
    fixture.ask();
    QCOMPARE(fixture.alert->windowTitle(), u"Supprimer ce filament ?"_s);
    QVERIFY(fixture.context.find(fixture.id));

    fixture.answer(u"Supprimer"_s);

    QVERIFY(!fixture.context.find(fixture.id));
    QCOMPARE(fixture.deletions, 1);
    QCOMPARE(fixture.context.undoActionName(), u"Supprimer"_s);
}

void FilamentDeletionTest::itKeepsOtherwise_data()
{
    QTest::addColumn<bool>("byKey");

    QTest::newRow("its button") << false;
    QTest::newRow("Escape") << true;
}

void FilamentDeletionTest::itKeepsOtherwise()
{
    QFETCH(bool, byKey);
    DeletionFixture fixture;
    fixture.ask();

    if (byKey)
        QTest::keyClick(fixture.alert, Qt::Key_Escape);
    else
        fixture.answer(u"Annuler"_s);

    QVERIFY(!fixture.alert->isVisible());
    QVERIFY(fixture.context.find(fixture.id));
    QCOMPARE(fixture.deletions, 0);
    QCOMPARE(fixture.context.undoActionName(), QString());
}

void FilamentDeletionTest::nothingIsAskedAboutWhatIsGone()
{
    DeletionFixture fixture;
    fixture.context.remove(*fixture.context.find(fixture.id));

    fixture.ask();

    QCOMPARE(fixture.alert, nullptr);
    QCOMPARE(fixture.deletions, 0);
}

void FilamentDeletionTest::whatLeftMeanwhileCountsAsDeleted()
{
    DeletionFixture fixture;
    fixture.ask();
    fixture.context.remove(*fixture.context.find(fixture.id));
    fixture.context.processPendingChanges();

    fixture.answer(u"Supprimer"_s);

    QCOMPARE(fixture.deletions, 1);
    QCOMPARE(fixture.context.undoActionName(), QString());
}

REELHOUSE_TEST(FilamentDeletionTest)

#include "FilamentDeletionTest.moc"
