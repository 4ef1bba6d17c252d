#include "app/editing/ReferenceTexts.h"

#include "app/editing/ReferenceUsageLabel.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class ReferenceTextsTest final : public QObject {
    Q_OBJECT

private slots:
    void everyListHasItsOwnTexts_data();
    void everyListHasItsOwnTexts();
    void theQuestionSaysHowManyFilamentsUseTheEntry_data();
    void theQuestionSaysHowManyFilamentsUseTheEntry();
    void usageIsCountedInWords_data();
    void usageIsCountedInWords();
};

void ReferenceTextsTest::everyListHasItsOwnTexts_data()
{
    QTest::addColumn<ReferenceKind>("kind");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("types") << ReferenceKind::Type
                           << QStringList{u"Types de filament"_s, u"Ajouter un type"_s, u""_s,
                                  u"Aucun type"_s, u"square.3.layers.3d.down.right"_s,
                                  u"Ajoutez votre premier type de filament."_s, u"Nouveau type"_s,
                                  u"Nom du type"_s, u"Modifier le type"_s, u"Supprimer le type"_s,
                                  u"Supprimer ce type ?"_s};
    QTest::newRow("brands") << ReferenceKind::Brand
                            << QStringList{u"Marques"_s, u"Ajouter une marque"_s, u"tag.fill"_s,
                                   u"Aucune marque"_s, u"tag.fill"_s,
                                   u"Ajoutez votre première marque de filament."_s,
                                   u"Nouvelle marque"_s, u"Nom de la marque"_s,
                                   u"Modifier la marque"_s, u"Supprimer la marque"_s,
                                   u"Supprimer cette marque ?"_s};
    QTest::newRow("ranges") << ReferenceKind::Range
                            << QStringList{u"Gammes"_s, u"Ajouter une gamme"_s, u"list.star"_s,
                                   u"Aucune gamme"_s, u"list.star"_s,
                                   u"Ajoutez votre première gamme de filament."_s,
                                   u"Nouvelle gamme"_s, u"Nom de la gamme"_s,
                                   u"Modifier la gamme"_s, u"Supprimer la gamme"_s,
                                   u"Supprimer cette gamme ?"_s};
    QTest::newRow("locations") << ReferenceKind::Location
                               << QStringList{u"Lieux"_s, u"Ajouter un lieu"_s, u"map.fill"_s,
                                      u"Aucun lieu"_s, u"map.fill"_s,
                                      u"Ajoutez votre premier lieu de stockage."_s,
                                      u"Nouveau lieu"_s, u"Nom du lieu"_s, u"Modifier le lieu"_s,
                                      u"Supprimer le lieu"_s, u"Supprimer ce lieu ?"_s};
}

void ReferenceTextsTest::everyListHasItsOwnTexts()
{
    QFETCH(ReferenceKind, kind);
    const ReferenceTexts texts = referenceTexts(kind);

    const QStringList shown{texts.title, texts.addCommand, texts.rowSymbol, texts.emptyTitle,
        texts.emptySymbol, texts.emptyDescription, texts.addTitle, texts.namePlaceholder,
        texts.editTitle, texts.deleteAction, texts.deleteTitle};
    QTEST(shown, "expected");
}

void ReferenceTextsTest::theQuestionSaysHowManyFilamentsUseTheEntry_data()
{
    QTest::addColumn<ReferenceKind>("kind");
    QTest::addColumn<qint64>("filaments");
    QTest::addColumn<QString>("expected");

    using enum ReferenceKind;
    QTest::newRow("type, not in use")
        << Type << qint64(0) << u"Voulez-vous vraiment supprimer ce type ?"_s;
    QTest::newRow("brand, not in use")
        << Brand << qint64(0) << u"Voulez-vous vraiment supprimer cette marque ?"_s;
    QTest::newRow("range, not in use")
        << Range << qint64(0) << u"Voulez-vous vraiment supprimer cette gamme ?"_s;
    QTest::newRow("location, not in use")
        << Location << qint64(0) << u"Voulez-vous vraiment supprimer ce lieu ?"_s;
    QTest::newRow("type, used once")
        << Type << qint64(1) << u"Ce type est utilisé par 1 filament. Ils perdront leur type."_s;
    QTest::newRow("brand, used once")
        << Brand << qint64(1)
        << u"Cette marque est utilisée par 1 filament. Ils perdront leur marque."_s;
    QTest::newRow("brand, used twice")
        << Brand << qint64(2)
        << u"Cette marque est utilisée par 2 filaments. Ils perdront leur marque."_s;
    QTest::newRow("range, used often")
        << Range << qint64(13)
        << u"Cette gamme est utilisée par 13 filaments. Ils perdront leur gamme."_s;
    QTest::newRow("location, used twice")
        << Location << qint64(2)
        << u"Ce lieu est utilisé par 2 filaments. Ils perdront leur lieu."_s;
}

void ReferenceTextsTest::theQuestionSaysHowManyFilamentsUseTheEntry()
{
    QFETCH(ReferenceKind, kind);
    QFETCH(qint64, filaments);

    QTEST(deletionQuestion(referenceTexts(kind), filaments), "expected");
}

void ReferenceTextsTest::usageIsCountedInWords_data()
{
    QTest::addColumn<qint64>("filaments");
    QTest::addColumn<qint64>("spools");
    QTest::addColumn<QString>("expected");

    QTest::newRow("none") << qint64(0) << qint64(0) << u"0 filament · 0 bobine"_s;
    QTest::newRow("one spool") << qint64(0) << qint64(1) << u"0 filament · 1 bobine"_s;
    QTest::newRow("one filament, two spools")
        << qint64(1) << qint64(2) << u"1 filament · 2 bobines"_s;
    QTest::newRow("many") << qint64(3) << qint64(12) << u"3 filaments · 12 bobines"_s;
}

void ReferenceTextsTest::usageIsCountedInWords()
{
    QFETCH(qint64, filaments);
    QFETCH(qint64, spools);

    QTEST(ReferenceUsageLabel::text(filaments, spools), "expected");
}

REELHOUSE_TEST(ReferenceTextsTest)

#include "ReferenceTextsTest.moc"
