#include "app/printing/PrintOptionsView.h"

#include "app/printing/OptionPanel.h"
#include "app/printing/OrientationPicker.h"
#include "app/printing/PaperPrinter.h"
#include "app/printing/PrintDialog.h"
#include "app/printing/PrintJob.h"
#include "app/printing/PrintPreview.h"
#include "app/ui/Announcement.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/FilePanels.h"
#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/StatusLine.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "core/model/StoreContext.h"

#include <QtPrintSupport/QPrintDialog>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int printSheetWidth = 480;
constexpr int columnBoxRows = 4;
constexpr int headingIndent = 14;
constexpr int headingGap = 6;
constexpr int sectionGap = 16;
constexpr QMargins textRowMargins(14, 8, 14, 8);
/// Boxes keep room for their focus ring in front of them.
constexpr QMargins boxRowMargins(10, 8, 14, 8);
constexpr QMargins columnBoxMargins(10, 11, 14, 11);
constexpr int titleGap = 12;
constexpr int warningIconSide = 13;

QLabel* makeSectionHeading(const QString& text, QWidget* parent)
{
    auto* heading = new QLabel(text, parent);
    QFont font = fontOf(TextStyle::Caption);
    font.setWeight(QFont::DemiBold);
    heading->setFont(font);
    setTextTone(heading, TextTone::Secondary);
    return heading;
}

PageSpan allPages(const ReportTextView& view)
{
    return {0, view.pageCount() - 1};
}

/// The pages that the user asked for; all of them where none of those exist.
PageSpan chosenPages(const QPrinter& printer, const ReportTextView& view)
{
    const PageSpan all = allPages(view);
    if (printer.printRange() != QPrinter::PageRange)
        return all;
    const PageSpan chosen{
        std::max(printer.fromPage() - 1, 0), std::min(printer.toPage() - 1, all.last)};
    return chosen.count() > 0 ? chosen : all;
}

} // namespace

PrintOptionsView::PrintOptionsView(StoreContext& context, PrintRequest request, QWidget* parent)
    : Sheet(u"Options d'impression"_s, printSheetWidth, parent)
    , m_context(context)
    , m_request(std::move(request))
    , m_noColumnMessage(new QWidget(this))
    , m_orientation(nullptr)
    , m_count(nullptr)
    , m_preview(nullptr)
    , m_progress(nullptr)
    , m_status(nullptr)
{
    auto* title = new QLabel(windowTitle(), this);
    setTextStyle(title, TextStyle::ScreenTitle);

    body()->setSpacing(0);
    body()->addWidget(title);
    body()->addSpacing(titleGap);
    body()->addWidget(makeColumns());
    body()->addSpacing(sectionGap);
    auto* orientationHeading = makeSectionHeading(u"Orientation de la page"_s, this);
    orientationHeading->setIndent(headingIndent);
    m_orientation = new OrientationPicker(this);
    m_orientation->setAccessibleName(orientationHeading->text());
    body()->addWidget(orientationHeading);
    body()->addSpacing(headingGap);
    body()->addWidget(m_orientation);
    if (!m_request.filterDescription.isEmpty()) {
        body()->addSpacing(sectionGap);
        body()->addWidget(makeFilterPanel());
    }
    body()->addSpacing(headingGap);
    body()->addWidget(makeCountRow());
    m_status = new StatusLine(this);
    m_status->hide();
    body()->addWidget(m_status);
    body()->addStretch();
    makeButtons();

    m_choices = {m_orientation, m_preview, m_export, m_print};
    for (QCheckBox* box : std::as_const(m_columnBoxes))
        m_choices << box;
    if (m_wholeStock)
        m_choices << m_wholeStock;
    connect(&m_context, &StoreContext::changed, this, &PrintOptionsView::refresh);
    refresh();
}

PrintOptionsView::~PrintOptionsView() = default;

QWidget* PrintOptionsView::makeColumns()
{
    auto* section = new QWidget(this);
    auto* warning
        = new QLabel(u"Sélectionnez au moins une colonne à imprimer."_s, m_noColumnMessage);
    warning->setWordWrap(true);
    setTextStyle(warning, TextStyle::Caption);
    setTextTone(warning, TextTone::Orange);
    auto* warningRow = new QHBoxLayout(m_noColumnMessage);
    warningRow->setContentsMargins(0, 0, 0, 0);
    warningRow->setSpacing(headingGap);
    warningRow->addWidget(
        new IconView(symbolIcon(u"exclamationmark.triangle.fill"_s, &Theme::orangeGraphic),
            warningIconSide, m_noColumnMessage),
        0, Qt::AlignVCenter);
    warningRow->addWidget(warning, 1);
    QSizePolicy kept = m_noColumnMessage->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    m_noColumnMessage->setSizePolicy(kept);

    auto* headingRow = new QHBoxLayout;
    headingRow->setContentsMargins(headingIndent, 0, 0, 0);
    headingRow->setSpacing(headingIndent);
    headingRow->addWidget(makeSectionHeading(u"Colonnes à imprimer"_s, section));
    headingRow->addWidget(m_noColumnMessage, 1);

    auto* panel = new OptionPanel(section);
    auto* grid = new QGridLayout;
    grid->setVerticalSpacing(2);
    for (const PrintColumn& column : PrintColumn::allDefault()) {
        auto* box = new QCheckBox(printColumnTitle(column.kind), panel);
        box->setChecked(column.isEnabled);
        const int place = int(m_columnBoxes.size());
        grid->addWidget(box, place % columnBoxRows, place / columnBoxRows);
        connect(box, &QCheckBox::toggled, this, &PrintOptionsView::refresh);
        m_columnBoxes << box;
    }
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    panel->addRow(grid, columnBoxMargins);

    auto* column = new QVBoxLayout(section);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(headingGap);
    column->addLayout(headingRow);
    column->addWidget(panel);
    return section;
}

QWidget* PrintOptionsView::makeFilterPanel()
{
    auto* panel = new OptionPanel(this);
    auto* heading = new QLabel(u"Filtres actifs"_s, panel);
    setTextStyle(heading, TextStyle::Caption);
    setTextTone(heading, TextTone::Secondary);
    auto* description = new QLabel(m_request.filterDescription, panel);
    description->setTextFormat(Qt::PlainText);
    description->setWordWrap(true);
    setTextStyle(description, TextStyle::Name);
    setTextTone(description, TextTone::Accent);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(0);
    lines->addWidget(heading);
    lines->addWidget(description);
    panel->addRow(lines, textRowMargins);

    m_wholeStock = new QCheckBox(u"Imprimer tout le stock (sans filtres)"_s, panel);
    auto* boxRow = new QVBoxLayout;
    boxRow->addWidget(m_wholeStock);
    panel->addRow(boxRow, boxRowMargins);
    connect(m_wholeStock, &QCheckBox::toggled, this, &PrintOptionsView::refresh);
    return panel;
}

QWidget* PrintOptionsView::makeCountRow()
{
    auto* row = new QWidget(this);
    m_count = new QLabel(row);
    setTextStyle(m_count, TextStyle::Callout);
    setTextTone(m_count, TextTone::Secondary);
    m_progress = new QProgressBar(row);
    m_progress->setTextVisible(false);
    m_progress->setAccessibleName(u"Progression"_s);
    m_progress->hide();
    m_preview = new QPushButton(u"Aperçu…"_s, row);
    m_preview->setAutoDefault(false);
    setButtonLook(m_preview, ButtonLook::Link);
    connect(m_preview, &QPushButton::clicked, this, &PrintOptionsView::preview);

    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(2, 0, 0, 0);
    line->setSpacing(headingIndent);
    line->addWidget(m_count);
    line->addStretch();
    line->addWidget(m_progress, 2);
    line->addWidget(m_preview);
    return row;
}

void PrintOptionsView::makeButtons()
{
    auto* cancel = new QPushButton(u"Annuler"_s, this);
    cancel->setAutoDefault(false);
    m_export = new QPushButton(symbolIcon(u"doc.richtext"_s), u"Exporter en PDF"_s, this);
    m_export->setAutoDefault(false);
    m_print = new QPushButton(symbolIcon(u"printer"_s, &Theme::onAccent), u"Imprimer"_s, this);
    buttonRow()->addWidget(cancel);
    buttonRow()->addStretch();
    buttonRow()->addWidget(m_export);
    buttonRow()->addWidget(m_print);
    setConfirmButton(m_print);
    connect(cancel, &QPushButton::clicked, this, &PrintOptionsView::reject);
    connect(m_export, &QPushButton::clicked, this, &PrintOptionsView::choosePdfFile);
    connect(m_print, &QPushButton::clicked, this, [this] { choosePrinter(*this); });
}

bool PrintOptionsView::printsWholeStock() const
{
    return m_wholeStock && m_wholeStock->isChecked();
}

std::vector<const Filament*> PrintOptionsView::chosenFilaments() const
{
    std::vector<const Filament*> filaments;
    if (printsWholeStock()) {
        for (const auto& filament : m_context.fetchAll<Filament>())
            filaments.push_back(&*filament);
        return filaments;
    }
    for (const FilamentId id : m_request.shown) {
        if (const Filament* filament = m_context.find(id))
            filaments.push_back(filament);
    }
    return filaments;
}

void PrintOptionsView::refresh()
{
    const bool isBusy = m_job != nullptr;
    const bool hasColumn = std::ranges::any_of(m_columnBoxes, &QCheckBox::isChecked);
    for (QWidget* choice : std::as_const(m_choices))
        choice->setEnabled(!isBusy);
    for (QPushButton* action : {m_preview, m_export, m_print})
        action->setEnabled(!isBusy && hasColumn);

    if (m_noColumnMessage->isHidden() == !hasColumn) {
        m_noColumnMessage->setVisible(!hasColumn);
        if (!hasColumn)
            announce(m_noColumnMessage->findChild<QLabel*>());
    }
    if (!isBusy)
        m_count->setText(QString::number(chosenFilaments().size()) + u" filament(s) à imprimer"_s);
    m_preview->setVisible(!isBusy);
    m_progress->setVisible(isBusy);
}

ReportTextView PrintOptionsView::makeView() const
{
    PrintService::ReportChoice choice;
    const QList<PrintColumn> columns = PrintColumn::allDefault();
    for (qsizetype column = 0; column < columns.size(); ++column) {
        if (m_columnBoxes[column]->isChecked())
            choice.columns << columns[column].kind;
    }
    choice.orientation = m_orientation->orientation();
    if (!printsWholeStock())
        choice.filterDescription = m_request.filterDescription;
    return PrintService::makeReportView(
        chosenFilaments(), choice, m_request.product, QDate::currentDate());
}

void PrintOptionsView::preview()
{
    m_previewDialog = openPrintPreview(std::make_shared<const ReportTextView>(makeView()), this,
        [this] { choosePrinter(*m_previewDialog); });
}

void PrintOptionsView::closePreview()
{
    if (m_previewDialog)
        m_previewDialog->close();
}

void PrintOptionsView::choosePrinter(QWidget& over)
{
    m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    m_printer->setDocName(u"Stock de filaments"_s);
    m_printer->setCreator(u"Spoolwright"_s);
    PrintService::setReportPage(*m_printer, m_orientation->orientation());
    auto* dialog = makePrintDialog(
        *m_printer, [this](const QString& path) { return isRefused(path); }, &over);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, &PrintOptionsView::print);
    dialog->open();
}

void PrintOptionsView::print()
{
    closePreview(); // How it goes on is shown in the sheet.
    ReportTextView view = makeView();
    const PageSpan pages = chosenPages(*m_printer, view);
    // A file is written as any other PDF is, so that it is whole or told to be missing.
    if (m_printer->outputFormat() == QPrinter::PdfFormat)
        return writePdf(m_printer->outputFileName(), std::move(view), pages, PageNumbering::Number);
    auto paper = std::make_unique<PaperPrinter>(std::move(m_printer), view.orientation());
    runJob(std::move(view), std::move(paper), pages, PageNumbering::Number);
}

void PrintOptionsView::choosePdfFile()
{
    FilePanels::openSavePanel(this, u"Exporter le stock en PDF"_s, {u"Documents PDF"_s, u"pdf"_s},
        PrintService::proposedFileName(QDateTime::currentDateTime()),
        [this](const QString& path) { exportPdf(path); });
}

void PrintOptionsView::exportPdf(const QString& path)
{
    ReportTextView view = makeView();
    const PageSpan pages = allPages(view);
    writePdf(path, std::move(view), pages, PageNumbering::NumberOfTotal);
}

void PrintOptionsView::writePdf(
    const QString& path, ReportTextView view, PageSpan pages, PageNumbering numbering)
{
    if (isRefused(path))
        return;
    auto file = std::make_unique<PdfFile>(path, view.orientation(), m_request.product);
    runJob(std::move(view), std::move(file), pages, numbering);
}

bool PrintOptionsView::isRefused(const QString& path)
{
    const QString refusal = m_request.refusal ? m_request.refusal(path) : QString();
    if (!refusal.isEmpty())
        showError({refusal});
    return !refusal.isEmpty();
}

void PrintOptionsView::runJob(ReportTextView view, std::unique_ptr<PrintTarget> target,
    PageSpan pages, PageNumbering numbering)
{
    m_status->clear();
    m_status->hide();
    m_progress->setRange(0, pages.count());
    m_progress->setValue(0);
    m_job = std::make_unique<PrintJob>(std::move(view), std::move(target), pages, numbering);
    connect(m_job.get(), &PrintJob::progressed, this, &PrintOptionsView::showProgress);
    connect(m_job.get(), &PrintJob::ended, this, &PrintOptionsView::endJob);
    connect(m_job.get(), &PrintJob::failed, this, &PrintOptionsView::failJob);
    m_job->start();
    refresh();
}

void PrintOptionsView::showProgress(int painted, int total)
{
    m_progress->setValue(painted);
    m_count->setText(u"Page "_s + QString::number(painted) + u" sur "_s + QString::number(total));
}

void PrintOptionsView::endJob()
{
    m_job.release()->deleteLater(); // It is the one that tells.
    accept();
}

void PrintOptionsView::failJob(const PrintError& error)
{
    m_job.release()->deleteLater();
    refresh();
    showError(error);
}

void PrintOptionsView::showError(const PrintError& error)
{
    closePreview();
    m_status->show();
    m_status->showMessage(StatusKind::Error, u"Erreur d'écriture : "_s + error.description);
    setPanelSize(printSheetWidth);
}

void PrintOptionsView::reject()
{
    if (!m_job)
        return Sheet::reject();
    m_job.reset();
    refresh();
}

} // namespace reelhouse
