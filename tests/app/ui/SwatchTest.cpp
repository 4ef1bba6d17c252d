#include "app/ui/Swatch.h"

#include "tests/support/TestMain.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class SwatchTest final : public QObject {
    Q_OBJECT

private slots:
    void readsAColorCode_data();
    void readsAColorCode();
    void writesAColorCode_data();
    void writesAColorCode();
    void aSpoolShowsTheGroundThroughItsHub();
    void aColorLikeItsGroundGetsAStrongerRing_data();
    void aColorLikeItsGroundGetsAStrongerRing();
    void anAlphaCodeLiesOverACheckerboard();
    void aFieldIsOutlined_data();
    void aFieldIsOutlined();
    void textOnAFieldStandsOut_data();
    void textOnAFieldStandsOut();
};

namespace {

QImage paintedSpool(const QColor& color, const QColor& ground)
{
    QImage image(32, 32, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);
    paintSpool(painter, QRectF(0, 0, 32, 32), color, ground);
    return image;
}

} // namespace

void SwatchTest::readsAColorCode_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<quint32>("argb");

    const auto row = [](const char* name, const QString& code, quint32 argb) {
        QTest::newRow(name) << code << argb;
    };
    row("with the sign", u"#4CAF50"_s, 0xFF4CAF50);
    row("without the sign", u"4CAF50"_s, 0xFF4CAF50);
    row("lower case", u"#4caf50"_s, 0xFF4CAF50);
    row("mixed case", u"#4cAf50"_s, 0xFF4CAF50);
    row("lower case between spaces", u"  #4caf50  "_s, 0xFF4CAF50);
    row("between tabs and line breaks", u"\t#4CAF50\r\n"_s, 0xFF4CAF50);
    row("two signs", u"##4CAF50"_s, 0xFF4CAF50);
    row("a sign behind", u"4CAF50#"_s, 0xFF4CAF50);
    row("between quotation marks", u"\"4CAF50\""_s, 0xFF4CAF50);
    row("between brackets", u"(#4CAF50);"_s, 0xFF4CAF50);
    row("between no-break spaces", u"\u00A0#4CAF50\u00A0"_s, 0xFF4CAF50);
    row("after an emoji", u"\U0001F3A8 4CAF50"_s, 0xFF4CAF50);
    row("black", u"#000000"_s, 0xFF000000);
    row("white", u"#FFFFFF"_s, 0xFFFFFFFF);
    row("red only", u"#FF0000"_s, 0xFFFF0000);
    row("green only", u"#00FF00"_s, 0xFF00FF00);
    row("blue only", u"#0000FF"_s, 0xFF0000FF);
    row("lowest bits", u"#010203"_s, 0xFF010203);
    row("half-transparent red", u"#80FF0000"_s, 0x80FF0000);
    row("opaque with eight digits", u"#FF123456"_s, 0xFF123456);
    row("wholly transparent", u"#00ABCDEF"_s, 0x00ABCDEF);
    row("eight digits without the sign", u"80ff0000"_s, 0x80FF0000);
    row("empty", u""_s, 0xFF000000);
    row("the sign alone", u"#"_s, 0xFF000000);
    row("spaces alone", u"   "_s, 0xFF000000);
    row("one digit", u"#F"_s, 0xFF000000);
    row("three digits", u"#FFF"_s, 0xFF000000);
    row("four digits", u"#F0FF"_s, 0xFF000000);
    row("five digits", u"#FFFFF"_s, 0xFF000000);
    row("seven digits", u"#FFFFFFF"_s, 0xFF000000);
    row("nine digits", u"#FFFFFFFFF"_s, 0xFF000000);
    row("sixteen digits", u"FFFFFFFFFFFFFFFF"_s, 0xFF000000);
    row("forty digits", QString(40, u'F'), 0xFF000000);
    row("a colour's name", u"crimson"_s, 0xFF000000);
    row("six letters that are no digits", u"orange"_s, 0xFF000000);
    row("six letters, digits first", u"facade"_s, 0xFFFACADE);
    row("stops at the first other character", u"12G456"_s, 0xFF000012);
    row("stops at once", u"G23456"_s, 0xFF000000);
    row("an inner space is kept and counted", u"12 456"_s, 0xFF000012);
    row("an inner space makes it seven long", u"4CA F50"_s, 0xFF000000);
    row("an inner sign is kept", u"12#456"_s, 0xFF000012);
    row("eight long, stopped at the last", u"1234567G"_s, 0x01234567);
    row("eight long, stopped at once", u"GFFFFFFF"_s, 0x00000000);
    row("six long, a number prefix stops", u"0xFF00"_s, 0xFF000000);
    row("eight long, a number prefix stops", u"0xFF0000"_s, 0x00000000);
    row("six accented letters", u"éééééé"_s, 0xFF000000);
    row("an accented letter at the end counts", u"#4CAF50é"_s, 0xFF000000);
    row("an accented letter makes it eight long", u"4CAF501é"_s, 0x04CAF501);
    row("full-width digits are no digits of a number", u"１２３４５６"_s, 0xFF000000);
    row("Arabic digits are no digits of a number", u"١٢٣٤٥٦"_s, 0xFF000000);
    row("a letter outside the basic plane is one character", u"12345\U00010400"_s, 0xFF012345);
    row("negative", u"-4CAF50"_s, 0xFF4CAF50);
}

void SwatchTest::readsAColorCode()
{
    QFETCH(QString, code);
    QFETCH(quint32, argb);

    const QColor color = colorFromHex(code);

    QCOMPARE(color.spec(), QColor::Rgb);
    QCOMPARE(QString::number(color.rgba(), 16), QString::number(argb, 16));
}

void SwatchTest::writesAColorCode_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("code");

    QTest::newRow("bytes stay") << QColor(0x4C, 0xAF, 0x50) << u"#4CAF50"_s;
    QTest::newRow("small bytes are padded") << QColor(1, 2, 3) << u"#010203"_s;
    QTest::newRow("alpha is dropped") << QColor(255, 0, 0, 128) << u"#FF0000"_s;
    QTest::newRow("transparent is black") << QColor(Qt::transparent) << u"#000000"_s;
    QTest::newRow("no colour is black") << QColor() << u"#000000"_s;
    QTest::newRow("hue, saturation, value") << QColor::fromHsv(0, 255, 255) << u"#FF0000"_s;
    QTest::newRow("cyan, magenta, yellow, key") << QColor::fromCmyk(0, 255, 255, 0) << u"#FF0000"_s;
    QTest::newRow("half rounds up") << QColor::fromRgbF(0.5F, 0.5F, 0.5F) << u"#808080"_s;
    QTest::newRow("to the nearest below")
        << QColor::fromRgbF(0.998F, 0.998F, 0.998F) << u"#FEFEFE"_s;
    QTest::newRow("to the nearest above")
        << QColor::fromRgbF(0.003F, 0.003F, 0.003F) << u"#010101"_s;
    QTest::newRow("beyond the range is clamped")
        << QColor::fromRgbF(1.5F, -0.5F, 0.25F) << u"#FF0040"_s;
}

void SwatchTest::writesAColorCode()
{
    QFETCH(QColor, color);
    QFETCH(QString, code);

    QCOMPARE(toHex(color), code);
}

void SwatchTest::aSpoolShowsTheGroundThroughItsHub()
{
    const QImage image = paintedSpool(QColor(0xE53935), QColor(0xE6EAFC));

    QCOMPARE(image.pixelColor(16, 16), QColor(0xE6EAFC));
    QCOMPARE(image.pixelColor(16, 3), QColor(0xE53935));
    QCOMPARE(image.pixelColor(0, 0), QColor(0xE6EAFC));
}

void SwatchTest::aColorLikeItsGroundGetsAStrongerRing_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<bool>("isStrong");

    QTest::newRow("white on white") << QColor(0xFFFFFF) << QColor(0xFFFFFF) << true;
    QTest::newRow("ivory on white") << QColor(0xF5F0E1) << QColor(0xFFFFFF) << true;
    QTest::newRow("silver on white") << QColor(0xC9CDD2) << QColor(0xFFFFFF) << false;
    QTest::newRow("black on white") << QColor(Qt::black) << QColor(0xFFFFFF) << false;
    QTest::newRow("black on dark") << QColor(Qt::black) << QColor(0x212226) << true;
    QTest::newRow("slate on dark") << QColor(0x2B2B2D) << QColor(0x212226) << true;
    QTest::newRow("white on dark") << QColor(0xFFFFFF) << QColor(0x212226) << false;
    QTest::newRow("lavender on a selected row") << QColor(0xDDE2FA) << QColor(0xE6EAFC) << true;
}

void SwatchTest::aColorLikeItsGroundGetsAStrongerRing()
{
    QFETCH(QColor, color);
    QFETCH(QColor, ground);
    QFETCH(bool, isStrong);

    const QImage image = paintedSpool(color, ground);

    // At the top of the disc the ring covers its row of pixels almost wholly.
    const int ring = image.pixelColor(16, 0).red();
    const int expected
        = qRound(isStrong ? 0.85 * 128 + 0.15 * color.red() : 0.35 * 128 + 0.65 * color.red());
    QVERIFY2(qAbs(ring - expected) <= 6, qPrintable(u"%1, not %2"_s.arg(ring).arg(expected)));
}

void SwatchTest::anAlphaCodeLiesOverACheckerboard()
{
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintColorField(painter, QRectF(0, 0, 40, 40), 0, colorFromHex(u"#80FF0000"_s), Qt::white);
    painter.end();

    QCOMPARE(image.pixelColor(9, 9), image.pixelColor(17, 9));
    QVERIFY(image.pixelColor(9, 9) != image.pixelColor(13, 9));
    QVERIFY(image.pixelColor(9, 9) != image.pixelColor(9, 13));
}

void SwatchTest::aFieldIsOutlined_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QColor>("outline");

    // Gray at 35 % over the colour, at 55 % where the colour is like its ground.
    QTest::newRow("blue on white")
        << QColor(0x1E88E5) << QColor(0xFFFFFF) << QColor(0x40, 0x85, 0xC2);
    QTest::newRow("black on white") << QColor(Qt::black) << QColor(0xFFFFFF) << QColor(0x2D2D2D);
    QTest::newRow("white on white") << QColor(0xFFFFFF) << QColor(0xFFFFFF) << QColor(0xB9B9B9);
    QTest::newRow("black on dark") << QColor(Qt::black) << QColor(0x212226) << QColor(0x464646);
}

void SwatchTest::aFieldIsOutlined()
{
    QFETCH(QColor, color);
    QFETCH(QColor, ground);
    QFETCH(QColor, outline);
    QImage image(60, 40, QImage::Format_RGB32);
    image.fill(ground);
    QPainter painter(&image);

    paintColorField(painter, QRectF(0, 0, 60, 40), 10, color, ground);
    painter.end();

    for (const QPoint& edge : {QPoint(30, 0), QPoint(30, 39), QPoint(0, 20), QPoint(59, 20)}) {
        const QColor found = image.pixelColor(edge);
        QVERIFY2(qAbs(found.red() - outline.red()) <= 2
                && qAbs(found.green() - outline.green()) <= 2
                && qAbs(found.blue() - outline.blue()) <= 2,
            qPrintable(found.name() + u" instead of "_s + outline.name()));
    }
    // One pixel wide.
    for (const QPoint& inside : {QPoint(30, 1), QPoint(30, 38), QPoint(1, 20), QPoint(58, 20)})
        QCOMPARE(image.pixelColor(inside), color);
}

void SwatchTest::textOnAFieldStandsOut_data()
{
    QTest::addColumn<QColor>("field");
    QTest::addColumn<QColor>("text");

    QTest::newRow("on white") << QColor(0xFFFFFF) << QColor(0x0B0C0E);
    QTest::newRow("on black") << QColor(Qt::black) << QColor(0xFFFFFF);
    QTest::newRow("on orange") << QColor(0xF47C20) << QColor(0x0B0C0E);
    QTest::newRow("on a deep blue") << QColor(0x0B3D5C) << QColor(0xFFFFFF);
}

void SwatchTest::textOnAFieldStandsOut()
{
    QFETCH(QColor, field);
    QFETCH(QColor, text);

    QCOMPARE(textOnColor(field), text);
}

REELHOUSE_TEST(SwatchTest)

#include "SwatchTest.moc"
