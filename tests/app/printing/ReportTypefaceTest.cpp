#include "app/printing/ReportTypeface.h"

#include "tests/support/TestMain.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QTextLayout>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class ReportTypefaceTest final : public QObject {
    Q_OBJECT

private slots:
    void widthsAreThoseOfTheOutlines_data();
    void widthsAreThoseOfTheOutlines();
    void widthsGrowWithTheSize();
    void partsOfATextAddUp_data();
    void partsOfATextAddUp();
    void drawnTextsAreAsWideAsMeasured_data();
    void drawnTextsAreAsWideAsMeasured();
    void linesAreHigherThanTheirLetters();
};

namespace {

ReportTypeface interTypeface(QFont::Weight weight = QFont::Normal)
{
    QFont font(u"Inter"_s);
    font.setWeight(weight);
    return ReportTypeface(font);
}

/// As the toolkit sets the text at a size at which rounding does not count.
qreal widthOfLayout(const QString& text, qreal size)
{
    QFont font(u"Inter"_s);
    font.setPixelSize(4000);
    font.setHintingPreference(QFont::PreferNoHinting);
    QTextLayout layout(text, font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.naturalTextWidth() * size / 4000;
}

/// How far the ink of a text reaches to the right, in points.
qreal inkEnd(const ReportTypeface& typeface, const QString& text)
{
    constexpr qreal scale = 8;
    QImage image(2400, 160, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    typeface.draw(painter, {0, 14}, text, 11);
    painter.end();
    for (int x = image.width() - 1; x >= 0; --x) {
        for (int y = 0; y < image.height(); ++y) {
            if (image.pixelColor(x, y).value() < 128)
                return (x + 1) / scale;
        }
    }
    return 0;
}

} // namespace

void ReportTypefaceTest::widthsAreThoseOfTheOutlines_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("nothing") << QString();
    QTest::newRow("letters") << u"Stock principal"_s;
    QTest::newRow("kerned letters") << u"AVATAR Tyrolien WAV. L'été"_s;
    QTest::newRow("accents and signs") << u"Étagère A — 80 °C, « cœur » …"_s;
    QTest::newRow("Greek and Cyrillic") << u"Αθήνα Москва"_s;
    QTest::newRow("digits") << u"12345678901112"_s;
    QTest::newRow("writing from right to left") << u"אדום כהה"_s;
}

void ReportTypefaceTest::widthsAreThoseOfTheOutlines()
{
    QFETCH(QString, text);
    const qreal difference = interTypeface().width(text, 11) - widthOfLayout(text, 11);
    QVERIFY2(qAbs(difference) < 0.02, qPrintable(QString::number(difference)));
}

void ReportTypefaceTest::widthsGrowWithTheSize()
{
    const ReportTypeface typeface = interTypeface();
    for (const QString& text : {u"Rose translucide"_s, u"אדום"_s, u"Six 👍🏽 fois"_s}) {
        const qreal width = typeface.width(text, 11);
        QVERIFY(width > 0);
        QVERIFY(qAbs(typeface.width(text, 9.9) - width * 0.9) < 1e-9);
        QVERIFY(qAbs(typeface.width(text, 22) - width * 2) < 1e-9);
    }
    QVERIFY(interTypeface(QFont::DemiBold).width(u"Type", 11) > typeface.width(u"Type", 11));
}

void ReportTypefaceTest::partsOfATextAddUp_data()
{
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");

    QTest::newRow("text and emoji") << u"Six "_s << u"👍🏽"_s;
    QTest::newRow("emoji and text") << u"👨‍👩‍👧"_s << u" trois"_s;
    QTest::newRow("space at the end") << u"noir"_s << u" "_s;
    QTest::newRow("letter with its accent") << u"bu"_s << u"e\u0301"_s;
}

void ReportTypefaceTest::partsOfATextAddUp()
{
    QFETCH(QString, left);
    QFETCH(QString, right);

    const ReportTypeface typeface = interTypeface();
    const qreal parts = typeface.width(left, 11) + typeface.width(right, 11);
    QVERIFY(qAbs(typeface.width(left + right, 11) - parts) < 0.5);
    QVERIFY(typeface.width(right, 11) > 1);
}

void ReportTypefaceTest::drawnTextsAreAsWideAsMeasured_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("letters") << u"Stock principal"_s;
    QTest::newRow("kerned letters") << u"AVATAR Tyrolien H"_s;
    QTest::newRow("shaped in the middle") << u"Un e\u0301tat H"_s;
    QTest::newRow("from right to left in the middle") << u"Un אדום H"_s;
}

void ReportTypefaceTest::drawnTextsAreAsWideAsMeasured()
{
    QFETCH(QString, text);
    const ReportTypeface typeface = interTypeface();
    const qreal gap = typeface.width(text, 11) - inkEnd(typeface, text);
    // The last letter ends a little before its advance.
    QVERIFY2(gap > 0 && gap < 1.2, qPrintable(QString::number(gap)));
}

void ReportTypefaceTest::linesAreHigherThanTheirLetters()
{
    const ReportTypeface typeface = interTypeface();
    QVERIFY(qAbs(typeface.lineHeight(10) - 13.6) < 1e-9);
    QVERIFY(typeface.baseline(10) > 9.68);
    QVERIFY(typeface.baseline(10) < 13.6 - 2.41);
}

REELHOUSE_TEST(ReportTypefaceTest)
#include "ReportTypefaceTest.moc"
