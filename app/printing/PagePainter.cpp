#include "app/printing/PagePainter.h"

#include <QtGui/QPagedPaintDevice>

namespace reelhouse {

QPageLayout reportPageLayout(PageOrientation orientation)
{
    const bool isPortrait = orientation == PageOrientation::Portrait;
    QPageLayout layout(QPageSize(QPageSize::A4),
        isPortrait ? QPageLayout::Portrait : QPageLayout::Landscape, QMarginsF());
    layout.setMode(QPageLayout::FullPageMode);
    return layout;
}

PagePainter::PagePainter(
    const ReportTextView& view, QPagedPaintDevice& device, PageSpan pages, PageNumbering numbering)
    : m_view(view)
    , m_device(device)
    , m_pages(pages)
    , m_numbering(numbering)
    , m_painter(&device)
{
    if (!isActive())
        return;
    constexpr qreal pointsPerInch = 72;
    m_painter.scale(device.logicalDpiX() / pointsPerInch, device.logicalDpiY() / pointsPerInch);
}

bool PagePainter::paintNext()
{
    if (!isActive() || (m_painted > 0 && !m_device.newPage()))
        return false;
    m_view.paintPage(m_painter, m_pages.first + m_painted, m_numbering);
    ++m_painted;
    return true;
}

} // namespace reelhouse
