#include "app/printing/PrintService.h"

#include "app/printing/PagePainter.h"

#include <QtPrintSupport/QPrinter>

using namespace Qt::StringLiterals;

namespace reelhouse::PrintService {

QString footerLeftText(const Product& product)
{
    const QString version = product.version.isEmpty() ? u"1.0.0"_s : product.version;
    return u"Spoolwright v"_s + version + u" (build "_s + product.build + u')';
}

QString footerRightText(const Product& product)
{
    return product.rightsHolder.isEmpty() ? u"Tous droits réservés."_s : product.rightsLine();
}

ReportTextView makeReportView(std::span<const Filament* const> filaments,
    const ReportChoice& choice, const Product& product, QDate today)
{
    StockReport report(filaments, choice.columns, ReportTextView::contentWidth(choice.orientation),
        choice.filterDescription, today);
    return {
        std::move(report), choice.orientation, footerLeftText(product), footerRightText(product)};
}

std::optional<PrintError> exportPDF(
    const ReportTextView& view, const Product& product, const QString& path)
{
    PdfFile file(path, view.orientation(), product);
    if (auto error = file.open())
        return error;
    {
        PagePainter painter(
            view, file.device(), {0, view.pageCount() - 1}, PageNumbering::NumberOfTotal);
        while (!painter.isDone() && painter.paintNext() && !file.error()) {}
    }
    return file.commit();
}

void setReportPage(QPrinter& printer, PageOrientation orientation)
{
    printer.setFullPage(true);
    printer.setPageLayout(reportPageLayout(orientation));
}

QString proposedFileName(const QDateTime& now)
{
    return u"stock_filaments_"_s + now.toString(u"yyyy-MM-dd_HHmmss"_s) + u".pdf"_s;
}

} // namespace reelhouse::PrintService
