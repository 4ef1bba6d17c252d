#pragma once

#include "app/printing/ProductFacts.h"
#include "app/printing/ReportTextView.h"

#include <QtCore/QSaveFile>
#include <QtGui/QPdfWriter>

#include <optional>

namespace reelhouse {

/// Why a PDF could not be written.
struct PdfError {
    QString description; ///< A French sentence.

    bool operator==(const PdfError&) const = default;
};

/// A PDF on its way to the disk. It appears under its name, whole, when it is committed; before
/// that, and without that, what had the name stays as it was.
class PdfFile final {
public:
    /// A4 pages without margins; one unit of the device is a point.
    PdfFile(const QString& path, PageOrientation orientation, const ProductFacts& product);

    /// To be called once, before painting.
    std::optional<PdfError> open();
    QPagedPaintDevice& device() { return m_writer; }
    /// What has gone wrong so far.
    std::optional<PdfError> error() const;
    /// To be called once, after the painting has ended.
    std::optional<PdfError> commit();

private:
    QSaveFile m_file;
    QPdfWriter m_writer;
};

} // namespace reelhouse
