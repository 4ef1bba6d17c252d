#include "app/printing/PaperPrinter.h"

#include "app/printing/PrintService.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

PaperPrinter::PaperPrinter(std::unique_ptr<QPrinter> printer, PageOrientation orientation)
    : m_printer(std::move(printer))
{
    PrintService::setReportPage(*m_printer, orientation);
}

std::optional<PrintError> PaperPrinter::open()
{
    if (m_printer->isValid())
        return std::nullopt;
    return PrintError{u"L'imprimante n'est pas disponible."_s};
}

std::optional<PrintError> PaperPrinter::error() const
{
    if (m_printer->printerState() != QPrinter::Error)
        return std::nullopt;
    return PrintError{u"L'imprimante a signalé une erreur."_s};
}

} // namespace reelhouse
