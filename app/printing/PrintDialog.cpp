#include "app/printing/PrintDialog.h"

#include "app/ui/FilePanels.h"

#include <QtCore/QFileInfo>
#include <QtPrintSupport/QPrintDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QToolButton>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

class PrintDialog final : public QPrintDialog {
public:
    PrintDialog(
        QPrinter& printer, std::function<bool(const QString& path)> isRefused, QWidget* parent)
        : QPrintDialog(&printer, parent)
        , m_isRefused(std::move(isRefused))
        , m_fileName(findChild<QLineEdit*>(u"filename"_s))
    {
        auto* browse = findChild<QToolButton*>(u"fileBrowser"_s);
        if (!browse || !m_fileName)
            return;
        // The toolkit's own panel looks into the files that it lists, which may be the store's.
        disconnect(browse, &QToolButton::clicked, nullptr, nullptr);
        connect(browse, &QToolButton::clicked, this, &PrintDialog::chooseFile);
    }

    void accept() override
    {
        // The toolkit opens the file to see whether it can be written.
        if (m_fileName && m_fileName->isEnabled() && m_isRefused(m_fileName->text()))
            return reject();
        QPrintDialog::accept();
    }

private:
    void chooseFile()
    {
        FilePanels::openSavePanel(this, u"Imprimer dans un fichier"_s,
            {u"Documents PDF"_s, u"pdf"_s}, QFileInfo(m_fileName->text()).fileName(),
            [this](const QString& path) { m_fileName->setText(path); });
    }

    std::function<bool(const QString& path)> m_isRefused;
    QLineEdit* m_fileName;
};

} // namespace

QPrintDialog* makePrintDialog(
    QPrinter& printer, std::function<bool(const QString& path)> isRefused, QWidget* parent)
{
    return new PrintDialog(printer, std::move(isRefused), parent);
}

} // namespace reelhouse
