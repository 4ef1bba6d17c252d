#include "app/editing/FilamentForm.h"

#include "app/ui/EditorSwatch.h"
#include "tests/app/editing/EditorFixture.h"
#include "tests/support/TestMain.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class FilamentFormTest final : public QObject {
    Q_OBJECT

private slots:
    void theSwatchHasTheHeightOfItsSheet_data();
    void theSwatchHasTheHeightOfItsSheet();
    void theSwatchFollowsEveryColor();
    void changesAreFollowedOnceItIsSeenAgain();
    void aCutColorCodeIsToldInATip();
    void aVeryLongColorNameIsNotCut();
};

namespace {

struct FormFixture : EditorFixture {
    explicit FormFixture(FilamentFormKind kind = FilamentFormKind::StockedFilament)
        : form(context, kind)
    {
        form.resize(440, 560);
        form.show();
        QCoreApplication::processEvents();
    }

    void show(const QString& colorHex, const QString& colorName = {})
    {
        FilamentDraft draft;
        draft.colorHex = colorHex;
        draft.colorName = colorName;
        form.setDraft(draft);
    }
    EditorSwatch& swatch() { return *form.findChild<EditorSwatch*>(); }
    QColor seenColor() { return swatch().grab().toImage().pixelColor(swatch().rect().center()); }

    FilamentForm form;
    EditorControls controls{form};
};

} // namespace

void FilamentFormTest::theSwatchHasTheHeightOfItsSheet_data()
{
    QTest::addColumn<FilamentFormKind>("kind");
    QTest::addColumn<int>("height");

    QTest::newRow("a new filament") << FilamentFormKind::NewFilament << 60;
    QTest::newRow("a filament of the stock") << FilamentFormKind::StockedFilament << 80;
}

void FilamentFormTest::theSwatchHasTheHeightOfItsSheet()
{
    QFETCH(FilamentFormKind, kind);
    QFETCH(int, height);
    FormFixture fixture(kind);

    QCOMPARE(fixture.swatch().size(), QSize(440, height));
    QCOMPARE(fixture.swatch().pos(), QPoint(0, 0));
}

void FilamentFormTest::theSwatchFollowsEveryColor()
{
    FormFixture fixture;
    fixture.show(u"#8E24AA"_s);
    QCOMPARE(fixture.seenColor(), QColor(0x8E24AA));

    for (const QColor& color : {QColor(0xE53935), QColor(0x43A047), QColor(0x1E88E5)}) {
        emit fixture.controls.color()->colorEdited(color);
        QCOMPARE(fixture.seenColor(), color);
    }
    fixture.show(u"#FFF"_s);
    QCOMPARE(fixture.seenColor(), QColor(Qt::black));
}

void FilamentFormTest::changesAreFollowedOnceItIsSeenAgain()
{
    FormFixture fixture;
    FilamentDraft draft;
    draft.reference(ReferenceKind::Brand) = fixture.acme.id().value;
    fixture.form.setDraft(draft);
    const Picker& brands = *fixture.controls.picker(u"Marque"_s);
    const QSignalSpy changes(&fixture.form, &FilamentForm::draftChanged);

    fixture.form.hide();
    fixture.context.remove(fixture.acme);
    fixture.context.insert(std::make_unique<Brand>(u"Basf"_s));
    fixture.context.processPendingChanges();
    QCOMPARE(changes.count(), 0);
    fixture.form.show();

    QCOMPARE(EditorControls::choices(brands), (QStringList{u"Aucune"_s, u"Basf"_s, u"Zénith"_s}));
    QCOMPARE(brands.choice(), 0);
    QCOMPARE(fixture.form.draft().reference(ReferenceKind::Brand), 0);
    QCOMPARE(changes.count(), 1);

    fixture.form.hide();
    fixture.form.show();
    QCOMPARE(changes.count(), 1);
}

void FilamentFormTest::aCutColorCodeIsToldInATip()
{
    FormFixture fixture;
    fixture.show(u"<b>rouge\nvif "_s + QString(200, u'W'));
    const QLabel* code = fixture.controls.colorCode();
    QVERIFY(code->text().startsWith(u"<b>rouge vif W"_s));
    QVERIFY(code->text().endsWith(u'…'));
    QCOMPARE(code->toolTip(), u"<p>&lt;b&gt;rouge vif "_s + QString(200, u'W') + u"</p>"_s);

    emit fixture.controls.color()->colorEdited(QColor(0x112233));

    QCOMPARE(code->text(), u"#112233"_s);
    QCOMPARE(code->toolTip(), QString());
}

void FilamentFormTest::aVeryLongColorNameIsNotCut()
{
    const QString name(40000, u'n');
    FormFixture fixture;
    fixture.show(u"#8E24AA"_s, name);

    QTest::keyClick(fixture.controls.colorName(), Qt::Key_X);

    QVERIFY(fixture.form.draft().colorName == u'x' + name);
}

REELHOUSE_TEST(FilamentFormTest)

#include "FilamentFormTest.moc"
