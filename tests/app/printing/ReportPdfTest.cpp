#include "app/printing/PagePainter.h"
#include "app/printing/PrintService.h"
#include "tests/app/printing/PdfReading.h"
#include "tests/app/printing/PrintedStock.h"
#include "tests/support/TestMain.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtGui/QGuiApplication>
#include <QtPrintSupport/QPrinter>
#include <QtTest/QTest>

#include <cerrno>
#include <csignal>
#include <sys/resource.h>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

using Kind = PrintColumn::Kind;
using PrintService::ReportChoice;

class ReportPdfTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void wholeReports_data();
    void wholeReports();
    void strangeNotesKeepOneRowOnOneLine();
    void textsAreReadRowByRow();
    void everyLetterCanBeSelected();
    void theDocumentSaysWhatItIs();
    void withoutAnAuthorThereIsNone();
    void pagesAreA4_data();
    void pagesAreA4();
    void fontsAreEmbeddedAndNothingIsAPicture();
    void textsStandWithinTheMargins_data();
    void textsStandWithinTheMargins();
    void theTableGoesOnOverThePages();
    void whatCannotBeWrittenIsTold_data();
    void whatCannotBeWrittenIsTold();
    void aFullDiskLeavesTheFormerFile();
    void onPaperPagesAreNotCounted();

private:
    QString write(const PrintedStock& stock, const ReportChoice& choice, const Product& product);

    QTemporaryDir m_folder;
};

namespace {

QList<Kind> allColumns()
{
    QList<Kind> kinds;
    for (const PrintColumn& column : PrintColumn::allDefault())
        kinds << column.kind;
    return kinds;
}

ReportChoice everything(PageOrientation orientation = PageOrientation::Portrait)
{
    return {allColumns(), orientation, {}};
}

Product productOfTest()
{
    return {.version = u"1.0.0"_s,
        .build = u"7"_s,
        .developer = u"Prénom Nom"_s,
        .rightsHolder = u"Prénom Nom"_s,
        .rightsYear = u"2026"_s};
}

/// The report as it is expected, kept beside this test.
QString expectedReport(const QString& name)
{
    QFile file(QFINDTESTDATA(u"reports/"_s + name + u".txt"_s));
    if (!file.open(QIODevice::ReadOnly))
        QTest::qFail(qPrintable(file.fileName()), __FILE__, __LINE__);
    return QString::fromUtf8(file.readAll());
}

/// The smallest rectangle around the words of a page, in points from its upper left corner.
QRectF wordsOf(const QString& pdf, int page)
{
    const QString number = QString::number(page);
    const QString words
        = outputOf(u"pdftotext"_s, {u"-bbox"_s, u"-f"_s, number, u"-l"_s, number, pdf, u"-"_s});
    static const QRegularExpression word(
        u"<word xMin=\"(.*?)\" yMin=\"(.*?)\" xMax=\"(.*?)\" yMax=\"(.*?)\">"_s);
    QRectF around;
    for (auto match = word.globalMatch(words); match.hasNext();) {
        const QRegularExpressionMatch found = match.next();
        around |= QRectF(QPointF(found.captured(1).toDouble(), found.captured(2).toDouble()),
            QPointF(found.captured(3).toDouble(), found.captured(4).toDouble()));
    }
    return around;
}

/// While it lives, no file of this process grows beyond `bytes`.
class FileSizeLimit final {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        ::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_former);
        const rlimit smaller{bytes, m_former.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &smaller);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_former);
        ::signal(SIGXFSZ, SIG_DFL);
    }

private:
    rlimit m_former{};
};

} // namespace

Q_DECLARE_METATYPE(reelhouse::PrintService::ReportChoice)

void ReportPdfTest::initTestCase()
{
    QGuiApplication::setFont(QFont(u"Inter"_s));
}

QString ReportPdfTest::write(
    const PrintedStock& stock, const ReportChoice& choice, const Product& product)
{
    QString pdf = m_folder.filePath(u"report.pdf"_s);
    const ReportTextView view
        = PrintService::makeReportView(stock.filaments(), choice, product, QDate(2026, 11, 15));
    const auto error = PrintService::exportPDF(view, product, pdf);
    if (error)
        QTest::qFail(qPrintable(error->description), __FILE__, __LINE__);
    return pdf;
}

void ReportPdfTest::wholeReports_data()
{
    QTest::addColumn<ReportChoice>("choice");

    const QList<Kind> few{Kind::Type, Kind::Spools, Kind::ColorName, Kind::Notes};
    QTest::newRow("portrait") << everything();
    QTest::newRow("landscape-filtered") << ReportChoice{
        allColumns(), PageOrientation::Landscape, u"Type : PLA — Recherche : « noir »"_s};
    QTest::newRow("one-column") << ReportChoice{{Kind::ColorName}, PageOrientation::Portrait, {}};
    QTest::newRow("four-columns") << ReportChoice{few, PageOrientation::Portrait, {}};
}

void ReportPdfTest::wholeReports()
{
    QFETCH(ReportChoice, choice);
    const QString pdf = write(makeWorkshop(), choice, productOfTest());
    QCOMPARE(pageTexts(pdf), expectedReport(QString::fromLatin1(QTest::currentDataTag())));
}

void ReportPdfTest::strangeNotesKeepOneRowOnOneLine()
{
    PrintedStock stock;
    stock.add(u"A1"_s, {}, {}, {}, 1, 0, u"Un"_s, u"deux\nlignes"_s);
    stock.add(u"A2"_s, {}, {}, {}, 1, 0, u"Deux"_s, u"\tavec\ttabulations"_s);
    stock.add(u"A3"_s, {}, {}, {}, 1, 0, u"Trois"_s, u"Windows\r\net Mac\rréunis"_s);
    stock.add(
        u"A4"_s, {}, {}, {}, 1, 0, u"Quatre"_s, u"séparés\u2028par\u2029Unicode\u0000\u000b"_s);
    stock.add(u"A5"_s, {}, {}, {}, 1, 0, u"Cinq"_s, u"אדום כהה"_s);
    stock.add(u"A6"_s, {}, {}, {}, 1, 0, u"Six 👍🏽"_s, u"\u202eretourné"_s);
    stock.add(u"A7"_s, {}, {}, {}, 1, 0, u"Sept"_s, u"e\u0301te\u0301 (fini)"_s);

    const QString pdf = write(
        stock, {{Kind::Type, Kind::Notes, Kind::ColorName}, PageOrientation::Portrait, {}}, {});

    const QStringList lines = pageTexts(pdf).split(u'\n');
    const auto row = [&lines](const QString& first) {
        const QStringList found = lines.filter(QRegularExpression(u'^' + first));
        return found.size() == 1 ? found.front().simplified() : QString();
    };
    QCOMPARE(row(u"A1"_s), u"A1 deux lignes Un"_s);
    QCOMPARE(row(u"A2"_s), u"A2 avec tabulations Deux"_s);
    QCOMPARE(row(u"A3"_s), u"A3 Windows et Mac réunis Trois"_s);
    QCOMPARE(row(u"A4"_s), u"A4 séparés par Unicode Quatre"_s);
    QVERIFY2(row(u"A5"_s).contains(u"אדום כהה"_s), qPrintable(row(u"A5"_s)));
    QVERIFY2(row(u"A5"_s).contains(u"Cinq"_s), qPrintable(row(u"A5"_s)));
    QVERIFY2(row(u"A6"_s).contains(u"Six"_s), qPrintable(row(u"A6"_s)));
    QCOMPARE(row(u"A7"_s), u"A7 été (fini) Sept"_s);
    QVERIFY(lines.contains(u"Total : 7 filament(s) — 7 bobine(s) (0 entamée(s))"_s));
}

void ReportPdfTest::textsAreReadRowByRow()
{
    PrintedStock stock;
    stock.add(u"PLA"_s, u"Écofil"_s, {}, {}, 4, 1, u"Noir"_s, u"Principal"_s);
    stock.add(u"ABS"_s, {}, {}, {}, 0, 0, {}, {});

    const QString pdf
        = write(stock, {allColumns(), PageOrientation::Landscape, u"Marque : Écofil"_s}, {});

    QCOMPARE(readingOrder(pdf),
        u"Stock de filaments\n"
        "Imprimé le 15 novembre 2026\n"
        "Filtres actifs : Marque : Écofil\n"
        "Type Marque Gamme Bobines Nom de la couleur Lieu Notes\n"
        "PLA Écofil — 4 (1 ent.) Noir — Principal\n"
        "ABS — — 0 — —\n"
        "Total : 2 filament(s) — 4 bobine(s) (1 entamée(s))\n"
        "Spoolwright v1.0.0 (build ) Page 1 sur 1 Tous droits réservés.\n\f"_s);
}

/// Fonts replace "fi", "->", "3x4" or the brackets around capitals by signs that have no letter.
void ReportPdfTest::everyLetterCanBeSelected()
{
    const QString name = u"Fin (ABC) -> 10:30, 3x4 => effilé != [PETG] @MAT"_s;
    PrintedStock stock;
    stock.add({}, {}, {}, {}, 1, 0, name);
    for (const QString& family : {u"Inter"_s, u"DejaVu Sans"_s}) {
        QGuiApplication::setFont(QFont(family));
        const QString pdf = write(stock, {{Kind::ColorName}, PageOrientation::Portrait, {}}, {});
        const QStringList lines = pageTexts(pdf).split(u'\n');
        QVERIFY2(lines.contains(name), qPrintable(lines.join(u'\n')));
    }
    initTestCase();
}

void ReportPdfTest::theDocumentSaysWhatItIs()
{
    const QString pdf = write(makeWorkshop(), everything(), productOfTest());

    QCOMPARE(documentFact(pdf, u"Title"_s), u"Stock de filaments"_s);
    QCOMPARE(documentFact(pdf, u"Creator"_s), u"Spoolwright"_s);
    const QString packet = outputOf(u"pdfinfo"_s, {u"-meta"_s, pdf});
    QVERIFY(packet.contains(u"<dc:language><rdf:Bag><rdf:li>fr-FR</rdf:li></rdf:Bag>"_s));
    QVERIFY(packet.contains(u"<rdf:li xml:lang=\"x-default\">Stock de filaments</rdf:li>"_s));
    QVERIFY(packet.contains(u"<dc:creator><rdf:Seq><rdf:li>Prénom Nom</rdf:li></rdf:Seq>"_s));
    QVERIFY(packet.contains(u"<xmp:CreatorTool>Spoolwright</xmp:CreatorTool>"_s));
}

void ReportPdfTest::withoutAnAuthorThereIsNone()
{
    const QString pdf = write(makeWorkshop(), everything(), {});
    const QString packet = outputOf(u"pdfinfo"_s, {u"-meta"_s, pdf});
    QVERIFY(packet.contains(u"fr-FR"_s));
    QVERIFY(!packet.contains(u"dc:creator"_s));
}

void ReportPdfTest::pagesAreA4_data()
{
    QTest::addColumn<PageOrientation>("orientation");
    QTest::addColumn<QString>("expected");

    QTest::newRow("portrait") << PageOrientation::Portrait << u"595 x 842 pts (A4)"_s;
    QTest::newRow("landscape") << PageOrientation::Landscape << u"842 x 595 pts (A4)"_s;
}

void ReportPdfTest::pagesAreA4()
{
    QFETCH(PageOrientation, orientation);
    QFETCH(QString, expected);

    const QString pdf = write(makeWorkshop(), everything(orientation), {});
    QCOMPARE(documentFact(pdf, u"Page size"_s), expected);
    QCOMPARE(documentFact(pdf, u"Page rot"_s), u"0"_s);
    QCOMPARE(documentFact(pdf, u"Pages"_s), u"1"_s);
}

void ReportPdfTest::fontsAreEmbeddedAndNothingIsAPicture()
{
    const QString pdf = write(makeWorkshop(), everything(), {});

    const QStringList fonts = outputOf(u"pdffonts"_s, {pdf}).trimmed().split(u'\n').mid(2);
    QStringList names;
    for (const QString& font : fonts) {
        const QStringList fields = font.simplified().split(u' ');
        names << fields[0];
        QCOMPARE(fields.mid(1, 3), QStringList({u"CID"_s, u"TrueType"_s, u"Identity-H"_s}));
        QCOMPARE(fields[4], u"yes"_s); // Embedded.
        QCOMPARE(fields[6], u"yes"_s); // Says which letters its glyphs are.
    }
    names.sort();
    QCOMPARE(names, QStringList({u"Inter-Bold"_s, u"Inter-Regular"_s, u"Inter-SemiBold"_s}));
    QVERIFY2(QFileInfo(pdf).size() < 60000, "only the letters used are embedded");
    QCOMPARE(outputOf(u"pdfimages"_s, {u"-list"_s, pdf}).count(u'\n'), 2);
}

void ReportPdfTest::textsStandWithinTheMargins_data()
{
    QTest::addColumn<PageOrientation>("orientation");
    QTest::addColumn<int>("page");
    QTest::addColumn<QRectF>("expected");

    using enum PageOrientation;
    const auto between = [](qreal left, qreal top, qreal right, qreal bottom) {
        return QRectF(QPointF(left, top), QPointF(right, bottom));
    };
    QTest::newRow("first portrait page") << Portrait << 1 << between(30, 80, 565, 842 - 16);
    QTest::newRow("next portrait page") << Portrait << 2 << between(30, 40, 565, 842 - 16);
    QTest::newRow("first landscape page") << Landscape << 1 << between(30, 80, 812, 595 - 16);
    QTest::newRow("next landscape page") << Landscape << 2 << between(30, 40, 812, 595 - 16);
}

void ReportPdfTest::textsStandWithinTheMargins()
{
    QFETCH(PageOrientation, orientation);
    QFETCH(int, page);
    QFETCH(QRectF, expected);

    const QString pdf = write(makeLongStock(150), everything(orientation), productOfTest());
    const QRectF words = wordsOf(pdf, page);
    QVERIFY2(qAbs(words.left() - expected.left()) < 0.1, qPrintable(QString::number(words.left())));
    QVERIFY2(
        qAbs(words.right() - expected.right()) < 0.1, qPrintable(QString::number(words.right())));
    // Letters stand within their lines.
    QVERIFY2(words.top() >= expected.top() && words.top() < expected.top() + 5,
        qPrintable(QString::number(words.top())));
    QVERIFY2(words.bottom() < expected.bottom() && words.bottom() > expected.bottom() - 5,
        qPrintable(QString::number(words.bottom())));
}

void ReportPdfTest::theTableGoesOnOverThePages()
{
    const QString pdf = write(makeLongStock(150), everything(), productOfTest());

    const QStringList pages = pageTexts(pdf).split(u"----\n"_s, Qt::SkipEmptyParts);
    QCOMPARE(pages.size(), 4);
    int row = 0;
    for (qsizetype page = 0; page < pages.size(); ++page) {
        static const QRegularExpression name(u"Couleur (\\d+) "_s);
        for (auto match = name.globalMatch(pages[page]); match.hasNext();)
            QCOMPARE(match.next().captured(1).toInt(), ++row);
        QCOMPARE(pages[page].contains(u"Nom de la couleur"_s), page == 0);
        QCOMPARE(pages[page].contains(u"Total : 150 filament(s)"_s), page == 3);
        QVERIFY(pages[page].contains(u"Page %1 sur 4"_s.arg(page + 1)));
        QVERIFY(pages[page].contains(u"Spoolwright v1.0.0 (build 7)"_s));
        QVERIFY(pages[page].contains(u"© 2026 Prénom Nom. Tous droits réservés."_s));
    }
    QCOMPARE(row, 150);
}

void ReportPdfTest::whatCannotBeWrittenIsTold_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");

    QTest::newRow("no such folder")
        << m_folder.filePath(u"nowhere/report.pdf"_s) << u"Le dossier n'existe pas."_s;
    QTest::newRow("a folder has the name")
        << m_folder.path() << u"Un dossier se trouve à la place du fichier."_s;
    QTest::newRow("nobody may write there")
        << u"/proc/report.pdf"_s << u"Le fichier n'a pas pu être écrit."_s;
}

void ReportPdfTest::whatCannotBeWrittenIsTold()
{
    QFETCH(QString, path);
    QFETCH(QString, expected);

    const PrintedStock stock = makeWorkshop();
    const ReportTextView view
        = PrintService::makeReportView(stock.filaments(), everything(), {}, QDate(2026, 11, 15));
    const auto error = PrintService::exportPDF(view, {}, path);

    QVERIFY(error);
    QCOMPARE(error->description, expected);
    QVERIFY(!QFileInfo(path).isFile());
}

void ReportPdfTest::aFullDiskLeavesTheFormerFile()
{
    const QString pdf = m_folder.filePath(u"kept.pdf"_s);
    QFile former(pdf);
    QVERIFY(former.open(QIODevice::WriteOnly));
    former.write("former");
    former.close();

    const PrintedStock stock = makeLongStock(300);
    const ReportTextView view
        = PrintService::makeReportView(stock.filaments(), everything(), {}, QDate(2026, 11, 15));
    std::optional<PrintError> error;
    {
        const FileSizeLimit limit(4096);
        error = PrintService::exportPDF(view, {}, pdf);
    }

    QVERIFY(error);
    QCOMPARE(error->description, u"Le fichier n'a pas pu être écrit."_s);
    QVERIFY(former.open(QIODevice::ReadOnly));
    QCOMPARE(former.readAll(), QByteArray("former"));
    QCOMPARE(QDir(m_folder.path()).entryList({u"kept*"_s}), QStringList(u"kept.pdf"_s));
}

/// What a printer would be given, printed to a file as without any printer.
void ReportPdfTest::onPaperPagesAreNotCounted()
{
    const PrintedStock stock = makeLongStock(150);
    const ReportTextView view = PrintService::makeReportView(stock.filaments(),
        everything(PageOrientation::Landscape), productOfTest(), QDate(2026, 11, 15));
    const QString pdf = m_folder.filePath(u"printed.pdf"_s);
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(pdf);
    PrintService::setReportPage(printer, view.orientation());
    {
        PagePainter painter(view, printer, {1, 2}, PageNumbering::Number);
        while (!painter.isDone() && painter.paintNext()) {}
        QCOMPARE(painter.painted(), 2);
    }

    QCOMPARE(documentFact(pdf, u"Page size"_s), u"842 x 595 pts (A4)"_s);
    const QStringList pages = pageTexts(pdf).split(u"----\n"_s, Qt::SkipEmptyParts);
    QCOMPARE(pages.size(), 2);
    for (int page = 0; page < 2; ++page) {
        static const QRegularExpression number(u"Page \\d+.*?(?=   )"_s);
        QCOMPARE(number.match(pages[page]).captured(), u"Page %1"_s.arg(page + 2));
        const QRectF words = wordsOf(pdf, page + 1);
        QVERIFY2(qAbs(words.left() - 30) < 0.1, qPrintable(QString::number(words.left())));
        QVERIFY2(qAbs(words.right() - 812) < 0.1, qPrintable(QString::number(words.right())));
    }
}

REELHOUSE_TEST(ReportPdfTest)
#include "ReportPdfTest.moc"
