#include "app/printing/PrintService.h"
#include "tests/app/printing/PrintedStock.h"
#include "tests/support/TestMain.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class ReportTextViewTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void pages();
    void rowsFillThePages_data();
    void rowsFillThePages();
    void footerTexts_data();
    void footerTexts();
    void fileNames();
};

namespace {

ReportTextView viewOf(int filaments, PageOrientation orientation)
{
    const PrintedStock stock = makeLongStock(filaments);
    return PrintService::makeReportView(stock.filaments(),
        {{PrintColumn::Kind::ColorName}, orientation, {}}, {}, QDate(2026, 11, 15));
}

} // namespace

void ReportTextViewTest::initTestCase()
{
    QGuiApplication::setFont(QFont(u"Inter"_s));
}

void ReportTextViewTest::pages()
{
    QCOMPARE(ReportTextView::pageSize(PageOrientation::Portrait), QSizeF(595, 842));
    QCOMPARE(ReportTextView::pageSize(PageOrientation::Landscape), QSizeF(842, 595));
    QCOMPARE(ReportTextView::contentWidth(PageOrientation::Portrait), 535.0);
    QCOMPARE(ReportTextView::contentWidth(PageOrientation::Landscape), 782.0);
}

/// A line is 1.36 times its size high. Portrait pages are 762 points high between the margins; the
/// first holds 40 of inset, 27.2 of title and two lines of 14.96, then header and rows of 14.96, so
/// 43 rows. The total with its empty line and inset is 32.64 + 40.
void ReportTextViewTest::rowsFillThePages_data()
{
    QTest::addColumn<PageOrientation>("orientation");
    QTest::addColumn<int>("filaments");
    QTest::addColumn<int>("expected");

    using enum PageOrientation;
    QTest::newRow("nothing") << Portrait << 0 << 1;
    // 112.08 + 38 * 14.96 + 72.64 = 753.2; one row more is 768.16
    QTest::newRow("as many as leave room for the total") << Portrait << 38 << 1;
    QTest::newRow("the total needs a page of its own") << Portrait << 39 << 2;
    QTest::newRow("a full first page") << Portrait << 43 << 2;
    // The second page holds 50 rows, or 46 with the total.
    QTest::newRow("two pages with the total") << Portrait << 43 + 46 << 2;
    QTest::newRow("two pages without the total") << Portrait << 43 + 47 << 3;
    // 515 points: 26 rows on the first page, 34 on the next, 29 with the total.
    QTest::newRow("landscape") << Landscape << 26 + 29 << 2;
    QTest::newRow("landscape and one more") << Landscape << 26 + 30 << 3;
    QTest::newRow("many pages") << Portrait << 43 + 50 * 100 << 102;
}

void ReportTextViewTest::rowsFillThePages()
{
    QFETCH(PageOrientation, orientation);
    QFETCH(int, filaments);
    QFETCH(int, expected);

    QCOMPARE(viewOf(filaments, orientation).pageCount(), expected);
}

void ReportTextViewTest::footerTexts_data()
{
    QTest::addColumn<Product>("product");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("right");

    QTest::newRow("everything is known") << Product{.version = u"2.3"_s,
        .build = u"45"_s,
        .rightsHolder = u"Prénom Nom"_s,
        .rightsYear = u"2026"_s} << u"Spoolwright v2.3 (build 45)"_s
                                         << u"© 2026 Prénom Nom. Tous droits réservés."_s;
    QTest::newRow("nothing is known")
        << Product{} << u"Spoolwright v1.0.0 (build )"_s << u"Tous droits réservés."_s;
}

void ReportTextViewTest::footerTexts()
{
    QFETCH(Product, product);
    QFETCH(QString, left);
    QFETCH(QString, right);

    QCOMPARE(PrintService::footerLeftText(product), left);
    QCOMPARE(PrintService::footerRightText(product), right);
    const ReportTextView view = PrintService::makeReportView({}, {}, product, QDate(2026, 11, 15));
    QCOMPARE(view.footerLeft(), left);
    QCOMPARE(view.footerRight(), right);
}

void ReportTextViewTest::fileNames()
{
    const QDateTime moment(QDate(2026, 1, 5), QTime(7, 8, 9));
    QCOMPARE(PrintService::proposedFileName(moment), u"stock_filaments_2026-01-05_070809.pdf"_s);
}

REELHOUSE_TEST(ReportTextViewTest)
#include "ReportTextViewTest.moc"
