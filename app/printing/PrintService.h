#pragma once

#include "app/printing/PdfFile.h"
#include "app/printing/ReportTextView.h"
#include "core/product/Product.h"

#include <QtCore/QDateTime>

class QPrinter;

/// Lays out the stock as a report and writes it as a PDF.
namespace reelhouse::PrintService {

/// What one report is made of.
struct ReportChoice {
    QList<PrintColumn::Kind> columns; ///< Those printed, in order.
    PageOrientation orientation = PageOrientation::Portrait;
    QString filterDescription; ///< Empty when nothing is filtered.
};

/// "Spoolwright v1.0.0 (build 7)"; says "Spoolwright", "1.0.0" and nothing where the build does
/// not.
QString footerLeftText(const Product& product);
/// The rights line, or a general one where nobody is named.
QString footerRightText(const Product& product);

/// The report of `filaments` in their order, ready for printing. Nothing of them is kept but texts.
ReportTextView makeReportView(std::span<const Filament* const> filaments,
    const ReportChoice& choice, const Product& product, QDate today);

/// Writes `view` as a PDF, whole or not at all.
std::optional<PrintError> exportPDF(
    const ReportTextView& view, const Product& product, const QString& path);

/// Makes `printer` print A4 pages whose margins are the report's own.
void setReportPage(QPrinter& printer, PageOrientation orientation);

/// "stock_filaments_2026-11-15_183000.pdf", in the time zone of `now`.
QString proposedFileName(const QDateTime& now);

} // namespace reelhouse::PrintService
