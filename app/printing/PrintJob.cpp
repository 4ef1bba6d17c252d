#include "app/printing/PrintJob.h"

#include <QtCore/QElapsedTimer>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// What one turn of the event loop may take; short enough for a click to be answered at once.
constexpr qint64 millisecondsPerTurn = 30;

} // namespace

PrintJob::PrintJob(ReportTextView view, std::unique_ptr<PrintTarget> target, PageSpan pages,
    PageNumbering numbering, QObject* parent)
    : QObject(parent)
    , m_view(std::move(view))
    , m_target(std::move(target))
    , m_pages(pages)
    , m_numbering(numbering)
{
    connect(&m_turn, &QTimer::timeout, this, &PrintJob::paintSomePages);
}

PrintJob::~PrintJob()
{
    cancel();
}

void PrintJob::start()
{
    m_turn.start();
}

void PrintJob::cancel()
{
    m_turn.stop();
    if (!m_painter)
        return;
    m_target->abandon();
    m_painter.reset();
}

void PrintJob::open()
{
    if (const auto error = m_target->open())
        return fail(*error);
    m_painter = std::make_unique<PagePainter>(m_view, m_target->device(), m_pages, m_numbering);
}

void PrintJob::paintSomePages()
{
    if (!m_painter)
        open();
    if (!m_painter)
        return;
    QElapsedTimer timer;
    timer.start();
    while (!m_painter->isDone() && !timer.hasExpired(millisecondsPerTurn)) {
        if (!m_painter->paintNext())
            return fail({u"L'impression n'a pas pu être faite."_s});
    }
    if (const auto error = m_target->error())
        return fail(*error);
    if (m_painter->isDone())
        return finish();
    emit progressed(m_painter->painted(), m_pages.count());
}

void PrintJob::finish()
{
    m_turn.stop();
    m_painter.reset();
    if (const auto error = m_target->commit())
        emit failed(*error);
    else
        emit ended();
}

void PrintJob::fail(const PrintError& error)
{
    cancel();
    emit failed(error);
}

} // namespace reelhouse
