#pragma once

#include "app/printing/ReportTextView.h"

#include <QtGui/QPageLayout>
#include <QtGui/QPainter>

class QPagedPaintDevice;

namespace reelhouse {

/// Pages of a report, counted from 0.
struct PageSpan {
    int first;
    int last; ///< Included.

    int count() const { return last - first + 1; }
    bool operator==(const PageSpan&) const = default;
};

/// An A4 page without margins: the report has its own.
QPageLayout reportPageLayout(PageOrientation orientation);

/// Paints pages of a report onto a device, one at a time. The device holds A4 pages without margins
/// in the report's orientation; both must outlive the painter. Its destructor ends the document.
class PagePainter final {
public:
    PagePainter(const ReportTextView& view, QPagedPaintDevice& device, PageSpan pages,
        PageNumbering numbering);

    /// Whether the device accepts painting.
    bool isActive() const { return m_painter.isActive(); }
    bool isDone() const { return m_painted == m_pages.count(); }
    int painted() const { return m_painted; }
    /// Paints the next page. False when the device refuses it.
    bool paintNext();

private:
    const ReportTextView& m_view;
    QPagedPaintDevice& m_device;
    PageSpan m_pages;
    PageNumbering m_numbering;
    int m_painted = 0;
    QPainter m_painter;
};

} // namespace reelhouse
