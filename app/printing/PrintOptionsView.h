#pragma once

#include "app/printing/PagePainter.h"
#include "app/printing/PrintService.h"
#include "app/ui/Sheet.h"
#include "core/model/EntityId.h"
#include "core/model/Filament.h"

#include <QtCore/QPointer>

#include <functional>
#include <vector>

class QCheckBox;
class QLabel;
class QPrinter;
class QProgressBar;

namespace reelhouse {

class OrientationPicker;
class PrintJob;
class PrintTarget;
class StatusLine;
class StoreContext;

/// What a print sheet is opened for.
struct PrintRequest {
    std::vector<FilamentId> shown; ///< What the filters let through, in order.
    QString filterDescription; ///< Empty when nothing is filtered.
    Product product;
    /// Why no report may be written there, as a French sentence; empty where one may.
    std::function<QString(const QString& path)> refusal;
};

/// The sheet in which columns, orientation and extent of the report are chosen; prints it, shows
/// how it will look, or writes it as a PDF. It stays open until that has succeeded.
class PrintOptionsView final : public Sheet {
    Q_OBJECT

public:
    PrintOptionsView(StoreContext& context, PrintRequest request, QWidget* parent);
    ~PrintOptionsView() override;

    /// Cancels the work that goes on, else closes.
    void reject() override;

private:
    QWidget* makeColumns();
    QWidget* makeFilterPanel();
    QWidget* makeCountRow();
    void makeButtons();
    void refresh();
    std::vector<const Filament*> chosenFilaments() const;
    bool printsWholeStock() const;
    ReportTextView makeView() const;

    void preview();
    void closePreview();
    void choosePrinter(QWidget& over);
    void print();
    void choosePdfFile();
    void exportPdf(const QString& path);
    bool isRefused(const QString& path);
    void writePdf(
        const QString& path, ReportTextView view, PageSpan pages, PageNumbering numbering);
    void runJob(ReportTextView view, std::unique_ptr<PrintTarget> target, PageSpan pages,
        PageNumbering numbering);
    void endJob();
    void showProgress(int painted, int total);
    void failJob(const PrintError& error);
    void showError(const PrintError& error);

    StoreContext& m_context;
    PrintRequest m_request;
    QList<QCheckBox*> m_columnBoxes; ///< In the order of the columns.
    QWidget* m_noColumnMessage;
    OrientationPicker* m_orientation;
    QCheckBox* m_wholeStock = nullptr; ///< Null when nothing is filtered.
    QLabel* m_count;
    QPushButton* m_preview;
    QProgressBar* m_progress;
    StatusLine* m_status;
    QPushButton* m_export = nullptr;
    QPushButton* m_print = nullptr;
    QList<QWidget*> m_choices; ///< What cannot be changed while a report is printed.
    QPointer<QDialog> m_previewDialog;
    std::unique_ptr<QPrinter> m_printer; ///< While the user chooses one.
    std::unique_ptr<PrintJob> m_job; ///< While a report is printed.
};

} // namespace reelhouse
