#pragma once

#include "app/printing/PrintTarget.h"
#include "app/printing/ReportTextView.h"

#include <QtPrintSupport/QPrinter>

namespace reelhouse {

/// Pages on their way to a printer.
class PaperPrinter final : public PrintTarget {
public:
    /// `printer` as the user chose it; the page is the report's.
    PaperPrinter(std::unique_ptr<QPrinter> printer, PageOrientation orientation);

    std::optional<PrintError> open() override;
    QPagedPaintDevice& device() override { return *m_printer; }
    std::optional<PrintError> error() const override;
    std::optional<PrintError> commit() override { return error(); }
    void abandon() override { m_printer->abort(); }

private:
    std::unique_ptr<QPrinter> m_printer;
};

} // namespace reelhouse
