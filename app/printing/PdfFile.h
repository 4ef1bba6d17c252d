#pragma once

#include "app/printing/PrintTarget.h"
#include "app/printing/ReportTextView.h"
#include "core/product/Product.h"

#include <QtCore/QSaveFile>
#include <QtGui/QPdfWriter>

namespace reelhouse {

/// A PDF on its way to the disk. It appears under its name, whole, when it is committed; before
/// that, and without that, what had the name stays as it was.
class PdfFile final : public PrintTarget {
public:
    /// A4 pages without margins; one unit of the device is a point.
    PdfFile(const QString& path, PageOrientation orientation, const Product& product);

    std::optional<PrintError> open() override;
    QPagedPaintDevice& device() override { return m_writer; }
    std::optional<PrintError> error() const override;
    std::optional<PrintError> commit() override;
    void abandon() override { m_file.cancelWriting(); }

private:
    QSaveFile m_file;
    QPdfWriter m_writer;
};

} // namespace reelhouse
