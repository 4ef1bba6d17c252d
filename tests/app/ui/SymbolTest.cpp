#include "app/ui/Symbol.h"

#include "core/model/FilamentType.h"
#include "tests/support/TestMain.h"

#include <QtCore/QDir>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class SymbolTest final : public QObject {
    Q_OBJECT

private slots:
    void everySymbolIsDrawn_data();
    void everySymbolIsDrawn();
    void nothingElseIsEmbedded();
    void anUnknownNameDrawsACube_data();
    void anUnknownNameDrawsACube();
    void everyOfferedTypeIconHasItsOwnDrawingAndName();
    void typeIconsHaveFrenchNames_data();
    void typeIconsHaveFrenchNames();
    void aSymbolIsPaintedInTheGivenColor();
    void anIconIsSharpOnADenseScreen();
    void aDisabledIconIsFaded();
    void theApplicationIconIsDrawn();
    void theLicenceOfTheDrawingsIsEmbedded();
};

namespace {

const QStringList& symbolNames()
{
    static const QStringList names{u"cube.fill"_s, u"cylinder.fill"_s, u"circle.fill"_s,
        u"triangle.fill"_s, u"hexagon.fill"_s, u"diamond.fill"_s, u"drop.fill"_s, u"flame.fill"_s,
        u"snowflake"_s, u"leaf.fill"_s, u"bolt.fill"_s, u"sparkles"_s, u"star.fill"_s,
        u"moon.fill"_s, u"sun.max.fill"_s, u"shield.fill"_s, u"capsule.fill"_s, u"seal.fill"_s,
        u"puzzlepiece.fill"_s, u"arrow.trianglehead.swap"_s, u"books.vertical.fill"_s,
        u"square.3.layers.3d.down.right"_s, u"tag.fill"_s, u"list.star"_s, u"map.fill"_s,
        u"square.and.arrow.down.on.square"_s, u"tablecells"_s, u"slider.horizontal.3"_s, u"star"_s,
        u"checkmark"_s, u"number.circle.fill"_s, u"scissors"_s, u"magnifyingglass"_s,
        u"xmark.circle.fill"_s, u"plus"_s, u"printer"_s, u"gearshape"_s, u"gearshape.fill"_s,
        u"info.circle"_s, u"spool.fill"_s, u"spool"_s, u"note.text"_s, u"plus.circle"_s,
        u"minus.circle"_s, u"doc.on.doc"_s, u"trash"_s, u"pencil"_s, u"checkmark.circle.fill"_s,
        u"chart.bar.xaxis"_s, u"chart.bar.fill"_s, u"circle.grid.2x2.fill"_s,
        u"square.stack.3d.up.fill"_s, u"square.and.arrow.up"_s, u"square.and.arrow.down"_s,
        u"doc.richtext"_s, u"globe"_s, u"envelope"_s, u"exclamationmark.triangle.fill"_s,
        u"view.list"_s, u"view.cards"_s, u"view.statistics"_s, u"chevron.down"_s,
        u"chevron.expand"_s, u"stepper.minus"_s, u"folder"_s, u"grip"_s, u"reset"_s};
    return names;
}

QImage painted(const QString& name, int side = 48, const QColor& color = Qt::black)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    paintSymbol(painter, QRectF(0, 0, side, side), name, color);
    return image;
}

int coveredPixels(const QImage& image)
{
    int covered = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            covered += qAlpha(image.pixel(x, y)) > 127 ? 1 : 0;
    return covered;
}

} // namespace

void SymbolTest::everySymbolIsDrawn_data()
{
    QTest::addColumn<QString>("name");
    for (const QString& name : symbolNames())
        QTest::newRow(qPrintable(name)) << name;
}

void SymbolTest::everySymbolIsDrawn()
{
    QFETCH(QString, name);

    const QImage image = painted(name);

    // The thinnest one, a chevron, covers about a twentieth of its square.
    const int covered = coveredPixels(image);
    QVERIFY2(covered > 60, qPrintable(u"only %1 pixels"_s.arg(covered)));
    if (name != "cube.fill"_L1)
        QVERIFY2(image != painted(u"cube.fill"_s), "the drawing is missing");
}

void SymbolTest::nothingElseIsEmbedded()
{
    QStringList expected;
    for (const QString& name : symbolNames())
        expected << name + u".svg"_s;
    expected.sort();
    QStringList embedded = QDir(u":/symbols"_s).entryList();
    embedded.sort();

    QCOMPARE(embedded, expected);
}

void SymbolTest::anUnknownNameDrawsACube_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("unknown") << u"bicycle"_s;
    QTest::newRow("empty") << QString();
    QTest::newRow("another case") << u"Spool"_s;
    QTest::newRow("a path") << u"../icons/app-icon"_s;
    QTest::newRow("a long one") << QString(10000, u'x');
}

void SymbolTest::anUnknownNameDrawsACube()
{
    QFETCH(QString, name);

    QCOMPARE(painted(name), painted(u"cube.fill"_s));
}

void SymbolTest::everyOfferedTypeIconHasItsOwnDrawingAndName()
{
    QStringList spoken;
    for (const QString& name : typeIconOptions()) {
        QVERIFY2(symbolNames().contains(name), qPrintable(name));
        spoken << typeIconAccessibleName(name);
    }

    QCOMPARE(spoken.size(), 20);
    QCOMPARE(spoken.removeDuplicates(), 0);
}

void SymbolTest::typeIconsHaveFrenchNames_data()
{
    QTest::addColumn<QString>("symbol");
    QTest::addColumn<QString>("name");

    QTest::newRow("first") << u"cube.fill"_s << u"Cube"_s;
    QTest::newRow("accented") << u"bolt.fill"_s << u"Éclair"_s;
    QTest::newRow("several words") << u"puzzlepiece.fill"_s << u"Pièce de puzzle"_s;
    QTest::newRow("last") << u"arrow.trianglehead.swap"_s << u"Échange"_s;
    QTest::newRow("unknown") << u"bicycle"_s << u"Cube"_s;
}

void SymbolTest::typeIconsHaveFrenchNames()
{
    QFETCH(QString, symbol);
    QFETCH(QString, name);

    QCOMPARE(typeIconAccessibleName(symbol), name);
}

void SymbolTest::aSymbolIsPaintedInTheGivenColor()
{
    const QImage image = painted(u"circle.fill"_s, 16, QColor(0x4A5CCB));

    QCOMPARE(image.pixelColor(8, 8), QColor(0x4A5CCB));
}

void SymbolTest::anIconIsSharpOnADenseScreen()
{
    const QPixmap pixmap = symbolIcon(u"tag.fill"_s).pixmap(QSize(16, 16), 2.0);

    QCOMPARE(pixmap.size(), QSize(32, 32));
    QImage direct(32, 32, QImage::Format_ARGB32_Premultiplied);
    direct.fill(Qt::transparent);
    QPainter painter(&direct);
    paintSymbol(painter, QRectF(0, 0, 32, 32), u"tag.fill"_s, currentTheme().textSecondary);
    painter.end();
    QImage icon = pixmap.toImage().convertToFormat(direct.format());
    icon.setDevicePixelRatio(1);
    QCOMPARE(icon, direct);
}

void SymbolTest::aDisabledIconIsFaded()
{
    const QIcon icon = symbolIcon(u"circle.fill"_s, &Theme::textPrimary);

    const QColor enabled = icon.pixmap(16, QIcon::Normal).toImage().pixelColor(8, 8);
    const QColor disabled = icon.pixmap(16, QIcon::Disabled).toImage().pixelColor(8, 8);

    QCOMPARE(enabled.alpha(), 255);
    QCOMPARE(disabled.alpha(), 115);
}

void SymbolTest::theApplicationIconIsDrawn()
{
    const QImage image = applicationIcon().pixmap(64).toImage();

    QCOMPARE(image.size(), QSize(64, 64));
    QCOMPARE(qAlpha(image.pixel(0, 0)), 0);
    QVERIFY(image.pixelColor(10, 32).blue() > image.pixelColor(10, 32).red());
}

void SymbolTest::theLicenceOfTheDrawingsIsEmbedded()
{
    QFile licence(u":/licences/bootstrap-icons.txt"_s);

    QVERIFY(licence.open(QIODevice::ReadOnly));
    QVERIFY(licence.readAll().contains("License: MIT"));
}

REELHOUSE_TEST(SymbolTest)

#include "SymbolTest.moc"
