#include "app/ui/FilePanels.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFileIconProvider>

using namespace Qt::StringLiterals;

namespace reelhouse::FilePanels {

namespace {

/// Knows files by their names alone. To look into one, as Qt's own provider does, means to open and
/// close it: done to the store in this process, SQLite would lose its hold on it.
class NamesOnly final : public QFileIconProvider {
public:
    QIcon icon(const QFileInfo& info) const override
    {
        return QFileIconProvider::icon(info.isDir() ? Folder : File);
    }
    QString type(const QFileInfo& info) const override
    {
        if (info.isDir())
            return u"Dossier"_s;
        return info.suffix().isEmpty() ? u"Fichier"_s : u"Fichier "_s + info.suffix().toUpper();
    }
};

QFileIconProvider* iconProvider()
{
    static NamesOnly provider;
    return &provider;
}

QFileDialog* makePanel(QWidget* parent, const QString& title, const FileKind& kind)
{
    auto* panel = new QFileDialog(parent, title);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setIconProvider(iconProvider());
    panel->setNameFilter(kind.name + u" (*."_s + kind.suffix + u')');
    return panel;
}

void openPanel(QFileDialog* panel, const ChosenFile& chosen)
{
    QObject::connect(panel, &QFileDialog::fileSelected, panel, chosen);
    panel->open();
}

QString nearestFolder(QString folder)
{
    while (!QFileInfo(folder).isDir() && QFileInfo(folder).path() != folder)
        folder = QFileInfo(folder).path();
    return folder;
}

} // namespace

void openSavePanel(QWidget* parent, const QString& title, const FileKind& kind,
    const QString& proposedName, const ChosenFile& chosen)
{
    QFileDialog* panel = makePanel(parent, title, kind);
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setFileMode(QFileDialog::AnyFile);
    panel->setDefaultSuffix(kind.suffix);
    panel->setDirectory(
        nearestFolder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)));
    panel->selectFile(proposedName);
    openPanel(panel, chosen);
}

void openOpenPanel(QWidget* parent, const QString& title, const FileKind& kind,
    const QString& folder, const ChosenFile& chosen)
{
    QFileDialog* panel = makePanel(parent, title, kind);
    panel->setAcceptMode(QFileDialog::AcceptOpen);
    panel->setFileMode(QFileDialog::ExistingFile);
    panel->setDirectory(nearestFolder(folder));
    openPanel(panel, chosen);
}

} // namespace reelhouse::FilePanels
