#include "app/printing/PrintPreview.h"

#include "app/printing/PagePainter.h"
#include "app/printing/PrintService.h"

#include <QtGui/QAction>
#include <QtGui/QScreen>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrintPreviewWidget>
#include <QtPrintSupport/QPrinter>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// The preview records all of its pages before it shows one: about a hundredth of a second each.
constexpr int mostPreviewPages = 100;
constexpr QSize previewSize(1000, 860);
constexpr double shareOfTheScreen = 0.9;

/// Paints the pages that the preview shows: the first ones.
void paintForPreview(const ReportTextView& view, QPrinter& paper)
{
    PrintService::setReportPage(paper, view.orientation());
    const int pages = std::min(view.pageCount(), mostPreviewPages);
    PagePainter painter(view, paper, {0, pages - 1}, PageNumbering::Number);
    while (!painter.isDone() && painter.paintNext()) {}
}

/// The toolkit would ask for a printer with a dialog of its own, which opens the file to print
/// into.
void replacePrinting(QPrintPreviewDialog& dialog, const std::function<void()>& print)
{
    for (const auto* action : dialog.findChildren<QAction*>()) {
        if (action->text() != QPrintPreviewDialog::tr("Print"))
            continue;
        QObject::disconnect(action, &QAction::triggered, &dialog, nullptr);
        QObject::connect(action, &QAction::triggered, &dialog, print);
    }
}

/// Qt leaves the fields and the pages of its preview without a name.
void nameControls(QPrintPreviewDialog& dialog)
{
    for (auto* zoom : dialog.findChildren<QComboBox*>()) {
        // Only a label names a picker to assistive technology, whether or not it is seen.
        auto* label = new QLabel(u"Zoom"_s, zoom->parentWidget());
        label->setBuddy(zoom);
        label->hide();
    }
    for (auto* field : dialog.findChildren<QLineEdit*>()) {
        const bool isZoom = qobject_cast<QComboBox*>(field->parentWidget());
        field->setAccessibleName(isZoom ? u"Zoom"_s : u"Page"_s);
    }
    // Each of the three, one in the other, says at times that it has the focus.
    for (auto* preview : dialog.findChildren<QPrintPreviewWidget*>())
        preview->setAccessibleName(u"Aperçu"_s);
    for (auto* pages : dialog.findChildren<QGraphicsView*>()) {
        pages->setAccessibleName(u"Pages"_s);
        pages->viewport()->setAccessibleName(u"Aperçu"_s);
    }
}

} // namespace

QDialog* openPrintPreview(const std::shared_ptr<const ReportTextView>& view, QWidget* parent,
    const std::function<void()>& print)
{
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    PrintService::setReportPage(*printer, view->orientation());
    auto* dialog = new QPrintPreviewDialog(printer.get(), parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->resize(previewSize.boundedTo(dialog->screen()->availableSize() * shareOfTheScreen));
    if (view->pageCount() > mostPreviewPages)
        dialog->setWindowTitle(u"Aperçu des %1 premières pages"_s.arg(mostPreviewPages));
    nameControls(*dialog);
    replacePrinting(*dialog, print);
    // The printer is needed for as long as the dialog lives.
    QObject::connect(dialog, &QPrintPreviewDialog::paintRequested, dialog,
        [view, printer](QPrinter* paper) { paintForPreview(*view, *paper); });
    dialog->open();
    return dialog;
}

} // namespace reelhouse
