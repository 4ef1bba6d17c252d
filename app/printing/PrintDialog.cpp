#include "app/printing/PrintDialog.h"

#include "app/ui/FilePanels.h"

#include <QtCore/QFileInfo>
#include <QtPrintSupport/QPrintDialog>
#include <QtWidgets/QDialogButtonBox>
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
        auto* buttons = findChild<QDialogButtonBox*>();
        if (!browse || !buttons || !m_fileName)
            return;
        // The toolkit's own panel, and what completes a path, look into the files that they list,
        // which may be the store's.
        m_fileName->setCompleter(nullptr);
        disconnect(browse, &QToolButton::clicked, nullptr, nullptr);
        connect(browse, &QToolButton::clicked, this, &PrintDialog::chooseFile);
        disconnect(buttons, &QDialogButtonBox::accepted, this, nullptr);
        connect(buttons, &QDialogButtonBox::accepted, this, &PrintDialog::checkAndAccept);
    }

private:
    void checkAndAccept()
    {
        // The toolkit's check opens the file to see whether it can be written, then accepts.
        if (m_fileName->isEnabled() && m_isRefused(m_fileName->text()))
            reject();
        else if (!QMetaObject::invokeMethod(this, "_q_checkFields"))
            accept();
    }

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
