#include "tests/app/printing/PdfReading.h"

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;

namespace reelhouse::tests {

QString outputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    const bool isFinished = process.waitForFinished(20000) && process.exitCode() == 0;
    if (!isFinished)
        QTest::qFail(qPrintable(program + u" failed: "_s + process.errorString()
                         + QString::fromLocal8Bit(process.readAllStandardError())),
            __FILE__, __LINE__);
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString pageTexts(const QString& pdf)
{
    QString text = outputOf(u"pdftotext"_s, {u"-layout"_s, pdf, u"-"_s});
    static const QRegularExpression trailingSpaces(u"[ \\t]+\n"_s);
    text.replace(trailingSpaces, u"\n"_s);
    return text.replace(u'\f', u"----\n"_s);
}

QString readingOrder(const QString& pdf)
{
    return outputOf(u"pdftotext"_s, {u"-raw"_s, pdf, u"-"_s});
}

QString documentFact(const QString& pdf, const QString& key)
{
    for (const QString& line : outputOf(u"pdfinfo"_s, {pdf}).split(u'\n')) {
        if (line.startsWith(key + u':'))
            return line.mid(key.size() + 1).trimmed();
    }
    return {};
}

} // namespace reelhouse::tests
