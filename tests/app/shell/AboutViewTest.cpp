#include "app/shell/AboutView.h"

#include "app/shell/NoticesView.h"
#include "tests/support/AccessibleTree.h"
#include "tests/support/TestMain.h"

#include <QtGui/QClipboard>
#include <QtGui/QDesktopServices>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>

using namespace reelhouse;
using namespace Qt::StringLiterals;

/// Stands for the desktop's browser: web sites are opened here.
class AboutViewTest final : public QObject {
    Q_OBJECT

public slots:
    void openWebsite(const QUrl& url) { m_openedWebsites += url.toString(); }

private slots:
    void itSaysWhatTheProgramIs();
    void theWebsiteIsOpened();
    void theAddressIsCopiedAndSaidSoForTwoSeconds();
    void itCloses_data();
    void itCloses();
    void everyControlHasAName();
    void theNoticesNameWhatTheProgramIsMadeOf();
    void theBuildKnowsItsProduct();

private:
    QStringList m_openedWebsites;
};

namespace {

const Product sampleProduct{
    .version = u"3.1.4"_s,
    .build = u"159"_s,
    .developer = u"Ada Exemple"_s,
    .website = u"https://bobines.example/accueil"_s,
    .email = u"ada@bobines.example"_s,
    .rightsHolder = u"Atelier Exemple"_s,
    .rightsYear = u"2025"_s,
};

const QString copied = u"Adresse e-mail copiée dans le presse-papier"_s;

struct AboutFixture {
    AboutFixture()
    {
        window.resize(1100, 800);
        window.show();
        sheet.open();
    }

    QStringList texts() const
    {
        QStringList texts;
        for (const QLabel* label : sheet.findChildren<QLabel*>()) {
            if (label->isVisible())
                texts += label->text();
        }
        return texts;
    }
    QPushButton& button(const QString& text)
    {
        const auto buttons = sheet.findChildren<QPushButton*>();
        const auto found = std::ranges::find(buttons, text, &QPushButton::text);
        Q_ASSERT(found != buttons.end());
        return **found;
    }

    QWidget window;
    AboutView sheet{sampleProduct, &window};
};

} // namespace

void AboutViewTest::itSaysWhatTheProgramIs()
{
    const AboutFixture fixture;

    QCOMPARE(fixture.sheet.windowTitle(), u"À propos de Spoolwright"_s);
    QCOMPARE(fixture.sheet.panelRect().width(), 360);
    QCOMPARE(fixture.texts(),
        QStringList({u"Spoolwright"_s, u"Version 3.1.4 (159)"_s,
            u"Gérez facilement votre stock de filaments\npour vos imprimantes 3D."_s,
            u"Développé par Ada Exemple"_s, u"© 2025 Atelier Exemple. Tous droits réservés."_s}));
}

void AboutViewTest::theWebsiteIsOpened()
{
    AboutFixture fixture;
    m_openedWebsites.clear();
    QDesktopServices::setUrlHandler(u"https"_s, this, "openWebsite");

    fixture.button(u"bobines.example"_s).click();

    QDesktopServices::unsetUrlHandler(u"https"_s);
    QCOMPARE(m_openedWebsites, QStringList{u"https://bobines.example/accueil"_s});
}

void AboutViewTest::theAddressIsCopiedAndSaidSoForTwoSeconds()
{
    AboutFixture fixture;
    QVERIFY(!fixture.texts().contains(copied));

    fixture.button(u"ada@bobines.example"_s).click();
    QCOMPARE(QGuiApplication::clipboard()->text(), u"ada@bobines.example"_s);
    QVERIFY(fixture.texts().contains(copied));
    const QSize before = fixture.sheet.size();

    QTRY_VERIFY_WITH_TIMEOUT(!fixture.texts().contains(copied), 20000);
    QCOMPARE(fixture.sheet.size(), before);
}

void AboutViewTest::itCloses_data()
{
    QTest::addColumn<QKeySequence>("key");

    QTest::newRow("Escape") << QKeySequence(Qt::Key_Escape);
    QTest::newRow("Control Escape") << QKeySequence(Qt::CTRL | Qt::Key_Escape);
    QTest::newRow("Fermer") << QKeySequence();
}

void AboutViewTest::itCloses()
{
    QFETCH(QKeySequence, key);
    AboutFixture fixture;
    QTRY_COMPARE(QApplication::activeWindow(), &fixture.sheet);

    if (key.isEmpty())
        fixture.button(u"Fermer"_s).click();
    else
        QTest::keyClick(&fixture.sheet, key[0].key(), key[0].keyboardModifiers());

    QVERIFY(!fixture.sheet.isVisible());
}

void AboutViewTest::everyControlHasAName()
{
    AboutFixture fixture;

    QCOMPARE(tests::unnamedControls(&fixture.sheet), QStringList());
}

void AboutViewTest::theNoticesNameWhatTheProgramIsMadeOf()
{
    AboutFixture fixture;

    fixture.button(u"Composants tiers"_s).click();

    auto* sheet = fixture.sheet.findChild<NoticesView*>();
    QVERIFY(sheet && sheet->isVisible());
    QCOMPARE(sheet->panelRect().size(), QSize(600, 560));
    QCOMPARE(tests::unnamedControls(sheet), QStringList());
    const QString text = sheet->findChild<QPlainTextEdit*>()->toPlainText();
    for (const QString& part : {u"Qt 6\n"_s, u"\nSQLite\n"_s, u"\nsimdjson\n"_s, u"\nSQLiteCpp\n"_s,
             u"\nBootstrap Icons\n"_s, u"LGPL"_s, u"Permission is hereby granted"_s})
        QVERIFY2(text.contains(part), qPrintable(part));
    QTRY_COMPARE(QApplication::activeWindow(), sheet);
    QTest::keyClick(sheet, Qt::Key_Escape);
    QVERIFY(!sheet->isVisible());
    QVERIFY(fixture.sheet.isVisible());
}

void AboutViewTest::theBuildKnowsItsProduct()
{
    const Product product = Product::ofThisBuild();

    QVERIFY(!product.version.isEmpty() && !product.build.isEmpty());
    QVERIFY(!product.developer.isEmpty());
    QVERIFY(!product.websiteHost().isEmpty());
    QVERIFY(product.email.contains(u'@'));
    QVERIFY(product.rightsLine().startsWith(u"© "_s));
    QVERIFY(product.rightsLine().endsWith(u". Tous droits réservés."_s));
}

REELHOUSE_TEST(AboutViewTest)

#include "AboutViewTest.moc"
