#pragma once

#include "app/printing/PagePainter.h"
#include "app/printing/PrintTarget.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <memory>

namespace reelhouse {

/// Paints a report page by page between the other events of the program, so that the window lives
/// on while thousands of rows are printed.
class PrintJob final : public QObject {
    Q_OBJECT

public:
    PrintJob(ReportTextView view, std::unique_ptr<PrintTarget> target, PageSpan pages,
        PageNumbering numbering, QObject* parent = nullptr);
    /// Cancels what has not ended.
    ~PrintJob() override;

    /// Begins at the next turn of the event loop. `ended` or `failed` follows, unless it is
    /// cancelled.
    void start();
    /// Nothing of it is left, and nothing more is told.
    void cancel();

signals:
    /// So many of the pages are painted, and there are more to come.
    void progressed(int painted, int total);
    void ended();
    void failed(const reelhouse::PrintError& error);

private:
    void open();
    void paintSomePages();
    void finish();
    void fail(const PrintError& error);

    ReportTextView m_view;
    std::unique_ptr<PrintTarget> m_target;
    PageSpan m_pages;
    PageNumbering m_numbering;
    std::unique_ptr<PagePainter> m_painter; ///< While pages are painted.
    QTimer m_turn;
};

} // namespace reelhouse
