#include "app/editing/FilamentCopy.h"

#include "app/editing/FilamentDeletion.h"
#include "core/model/StoreContext.h"
#include "tests/support/RecordingStore.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FilamentCopyTest final : public QObject {
    Q_OBJECT

private slots:
    void theNotesNameTheOriginal_data();
    void theNotesNameTheOriginal();
    void aCopySharesReferencesAndColor();
    void aCopyIsOneAction();
    void aFilamentThatIsGoneIsNotCopied();
    void theQuestionNamesTheType();
};

namespace {

struct CopyFixture {
    Filament& insert(const QString& present)
    {
        return context.insert(std::make_unique<Filament>(present.contains(u't') ? &type : nullptr,
            present.contains(u'b') ? &brand : nullptr, present.contains(u'r') ? &range : nullptr,
            present.contains(u'l') ? &location : nullptr, 5, 3, u"80FF0000"_s, u"Rouge"_s,
            u"à garder"_s));
    }

    tests::RecordingStore store;
    StoreContext context{store};
    FilamentType& type{context.insert(std::make_unique<FilamentType>(u"PLA"_s))};
    Brand& brand{context.insert(std::make_unique<Brand>(u"Acme"_s))};
    FilamentRange& range{context.insert(std::make_unique<FilamentRange>(u"Mat"_s))};
    Location& location{context.insert(std::make_unique<Location>(u"Étagère 2"_s))};
};

} // namespace

void FilamentCopyTest::theNotesNameTheOriginal_data()
{
    QTest::addColumn<QString>("present");
    QTest::addColumn<QString>("expected");

    QTest::newRow("all four") << u"tbrl"_s << u"Copie de PLA Acme Mat Étagère 2"_s;
    QTest::newRow("without a range") << u"tbl"_s << u"Copie de PLA Acme Étagère 2"_s;
    QTest::newRow("a brand alone") << u"b"_s << u"Copie de Acme"_s;
    QTest::newRow("a place alone") << u"l"_s << u"Copie de Étagère 2"_s;
    QTest::newRow("none") << QString() << u"Copie"_s;
}

void FilamentCopyTest::theNotesNameTheOriginal()
{
    QFETCH(QString, present);
    CopyFixture fixture;

    QTEST(notesOfCopy(fixture.insert(present)), "expected");
}

void FilamentCopyTest::aCopySharesReferencesAndColor()
{
    CopyFixture fixture;
    Filament& original = fixture.insert(u"tbl"_s);
    original.setDateAdded(QDateTime::fromMSecsSinceEpoch(5));

    const FilamentId id = duplicateFilament(fixture.context, original.id());

    const Filament* copy = fixture.context.find(id);
    QVERIFY(copy);
    QVERIFY(copy != &original);
    QCOMPARE(copy->type(), &fixture.type);
    QCOMPARE(copy->brand(), &fixture.brand);
    QVERIFY(!copy->range());
    QCOMPARE(copy->location(), &fixture.location);
    QCOMPARE(copy->spoolsCount(), 1);
    QCOMPARE(copy->openedSpoolsCount(), 0);
    QCOMPARE(copy->colorHex(), u"80FF0000"_s);
    QCOMPARE(copy->colorName(), QString());
    QCOMPARE(copy->notes(), u"Copie de PLA Acme Étagère 2"_s);
    QVERIFY(copy->dateAdded().secsTo(QDateTime::currentDateTimeUtc()) < 60);
    QCOMPARE(original.notes(), u"à garder"_s);
    QCOMPARE(original.spoolsCount(), 5);
}

void FilamentCopyTest::aCopyIsOneAction()
{
    CopyFixture fixture;
    const FilamentId original = fixture.insert(u"t"_s).id();
    fixture.context.clearHistory();

    duplicateFilament(fixture.context, original);

    QCOMPARE(fixture.context.undoActionName(), u"Dupliquer le filament"_s);
    fixture.context.undo();
    QCOMPARE(fixture.context.count<Filament>(), 1);
    QVERIFY(fixture.context.find(original));
    QCOMPARE(fixture.type.filamentCount(), 1);
}

void FilamentCopyTest::aFilamentThatIsGoneIsNotCopied()
{
    CopyFixture fixture;
    Filament& original = fixture.insert(u"t"_s);
    const FilamentId id = original.id();
    fixture.context.remove(original);

    QVERIFY(!duplicateFilament(fixture.context, id));
    QCOMPARE(fixture.context.count<Filament>(), 0);
}

void FilamentCopyTest::theQuestionNamesTheType()
{
    CopyFixture fixture;

    QCOMPARE(deletionQuestion(fixture.insert(u"tb"_s)), u"Voulez-vous vraiment supprimer PLA ?"_s);
    QCOMPARE(deletionQuestion(fixture.insert(u"b"_s)),
        u"Voulez-vous vraiment supprimer ce filament ?"_s);
}

REELHOUSE_TEST(FilamentCopyTest)

#include "FilamentCopyTest.moc"
