#include "app/editing/ReferenceRowDelegate.h"

#include "app/ui/Swatch.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/Theme.h"
#include "tests/app/editing/ReferenceScreenFixture.h"
#include "tests/support/TestMain.h"

#include <QtGui/QPainter>
#include <QtTest/QTest>

using namespace reelhouse;
using reelhouse::tests::ReferenceScreenFixture;
using namespace Qt::StringLiterals;

class ReferenceRowDelegateTest final : public QObject {
    Q_OBJECT

private slots:
    void aRowShowsSymbolNameAndUsage_data();
    void aRowShowsSymbolNameAndUsage();
    void aRowFollowsWhatUsesIt();
    void aRowShowsTheColorsThatUseIt_data();
    void aRowShowsTheColorsThatUseIt();
};

namespace {

constexpr int rowPadding = 16;
constexpr int textLeft = 54;

QImage rowPicture(const ReferenceScreenFixture& fixture)
{
    const QRect row = fixture.list().visualRect(fixture.list().model()->index(0, 0));
    return fixture.list().viewport()->grab(row).toImage().convertToFormat(QImage::Format_RGB32);
}

/// What of `area` differs from the row's ground, cut to its size.
QImage inkIn(const QImage& picture, const QRect& area)
{
    const QRgb ground = currentTheme().surface.rgb();
    QRect ink;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (picture.pixel(x, y) != ground)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink.isEmpty() ? QImage() : picture.copy(ink);
}

/// The ink of a text as a row would paint it.
QImage inkOf(const QString& text, TextStyle style, const QColor& color,
    Qt::Alignment alignment = Qt::AlignLeft)
{
    constexpr int room = 5; // Accents rise above the line.
    const QFontMetrics metrics(fontOf(style));
    QPixmap pixmap(metrics.horizontalAdvance(text) + 2 * room, metrics.height() + 2 * room);
    pixmap.fill(currentTheme().surface);
    QPainter painter(&pixmap);
    painter.setFont(fontOf(style));
    painter.setPen(color);
    painter.drawText(
        pixmap.rect().adjusted(room, room, -room, -room), alignment | Qt::AlignVCenter, text);
    painter.end();
    const QImage picture = pixmap.toImage().convertToFormat(QImage::Format_RGB32);
    return inkIn(picture, picture.rect());
}

QColor colorOf(int number)
{
    return QColor::fromHsv(number * 25, 220, 180).toRgb();
}

/// The colours of the chips along the middle of a row, from left to right.
QList<int> chipsIn(const QImage& picture, int count)
{
    QList<int> found;
    for (int x = textLeft; x < picture.width(); ++x) {
        for (int number = 0; number < count; ++number) {
            if (picture.pixel(x, picture.height() / 2) == colorOf(number).rgb()
                && (found.isEmpty() || found.last() != number))
                found << number;
        }
    }
    return found;
}

} // namespace

void ReferenceRowDelegateTest::aRowShowsSymbolNameAndUsage_data()
{
    QTest::addColumn<ReferenceKind>("kind");
    QTest::addColumn<QString>("symbol");

    QTest::newRow("a type has its own") << ReferenceKind::Type << u"leaf.fill"_s;
    QTest::newRow("a brand") << ReferenceKind::Brand << u"tag.fill"_s;
    QTest::newRow("a range") << ReferenceKind::Range << u"list.star"_s;
    QTest::newRow("a location") << ReferenceKind::Location << u"map.fill"_s;
}

void ReferenceRowDelegateTest::aRowShowsSymbolNameAndUsage()
{
    QFETCH(ReferenceKind, kind);
    QFETCH(QString, symbol);
    const ReferenceScreenFixture fixture(kind);
    ReferenceList(fixture.context, kind).add(u"Étagère"_s, u"leaf.fill"_s);
    QTest::qWait(0); // The view lays its rows out.

    const QImage picture = rowPicture(fixture);

    const Theme& theme = currentTheme();
    const int nameHeight = QFontMetrics(fontOf(TextStyle::Name)).height();
    const int usageHeight = QFontMetrics(fontOf(TextStyle::Caption)).height();
    const int usageTop = (picture.height() - nameHeight - 2 - usageHeight) / 2 + nameHeight + 1;
    const int half = picture.width() / 2;
    QCOMPARE(inkIn(picture, QRect(textLeft, 0, half, usageTop)),
        inkOf(u"Étagère"_s, TextStyle::Name, theme.textPrimary));
    QCOMPARE(inkIn(picture, QRect(textLeft, usageTop, half, picture.height() - usageTop)),
        inkOf(u"0 filament · 0 bobine"_s, TextStyle::Caption, theme.textSecondary));

    QPixmap expected(20, 20);
    expected.fill(theme.surface);
    QPainter painter(&expected);
    paintSymbol(painter, expected.rect(), symbol, theme.textSecondary);
    painter.end();
    // In the middle of 24 points behind the rowPadding.
    QCOMPARE(picture.copy(rowPadding + 2, (picture.height() - 20) / 2, 20, 20),
        expected.toImage().convertToFormat(QImage::Format_RGB32));
}

void ReferenceRowDelegateTest::aRowFollowsWhatUsesIt()
{
    ReferenceScreenFixture fixture(ReferenceKind::Brand);
    fixture.add<Brand>(u"Acme"_s, 1);
    QTest::qWait(0); // The view lays its rows out.
    Filament& filament = *fixture.context.fetchAll<Filament>().front();

    for (int number = 0; number < 3; ++number) {
        filament.setColorHex(toHex(colorOf(number)));
        fixture.context.processPendingChanges();
        QCOMPARE(chipsIn(rowPicture(fixture), 3), QList<int>{number});
    }
}

void ReferenceRowDelegateTest::aRowShowsTheColorsThatUseIt_data()
{
    QTest::addColumn<int>("filaments");
    QTest::addColumn<QList<int>>("chips");
    QTest::addColumn<QString>("more");

    QTest::newRow("none") << 0 << QList<int>{} << QString();
    QTest::newRow("one") << 1 << QList<int>{0} << QString();
    QTest::newRow("all that fit") << 9 << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8} << QString();
    QTest::newRow("the oldest of more") << 13 << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8} << u"+4"_s;
}

void ReferenceRowDelegateTest::aRowShowsTheColorsThatUseIt()
{
    QFETCH(int, filaments);
    QFETCH(QList<int>, chips);
    QFETCH(QString, more);
    const ReferenceScreenFixture fixture(ReferenceKind::Brand);
    StoreContext& context = fixture.context;
    Brand& brand = context.insert(std::make_unique<Brand>(u"Acme"_s));
    const auto addFilament = [&](const QColor& color) -> Filament& {
        return context.insert(std::make_unique<Filament>(
            nullptr, &brand, nullptr, nullptr, 1, 0, toHex(color), QString(), QString()));
    };
    // Its removal leaves the entry's filaments in another order than that of their insertion.
    Filament& passing = addFilament(Qt::black);
    for (int number = 0; number < filaments; ++number)
        addFilament(colorOf(number));
    context.remove(passing);
    context.processPendingChanges();
    QTest::qWait(0); // The view lays its rows out.

    const QImage picture = rowPicture(fixture);

    QCOMPARE(chipsIn(picture, filaments), chips);
    const int right = picture.width() - rowPadding;
    const int moreWidth = QFontMetrics(fontOf(TextStyle::Caption)).horizontalAdvance(u"+4"_s);
    if (more.isEmpty() && !chips.isEmpty())
        QCOMPARE(picture.pixel(right - 8, picture.height() / 2), colorOf(chips.last()).rgb());
    if (!more.isEmpty())
        QCOMPARE(inkIn(picture, QRect(right - moreWidth, 0, moreWidth, picture.height())),
            inkOf(more, TextStyle::Caption, currentTheme().textSecondary, Qt::AlignRight));
}

REELHOUSE_TEST(ReferenceRowDelegateTest)

#include "ReferenceRowDelegateTest.moc"
