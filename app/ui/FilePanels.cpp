#include "app/ui/FilePanels.h"

#include "app/ui/Alert.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QIdentityProxyModel>
#include <QtCore/QLocale>
#include <QtCore/QStandardPaths>
#include <QtGui/QFileSystemModel>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFileIconProvider>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QTreeView>

using namespace Qt::StringLiterals;

namespace reelhouse::FilePanels {

namespace {

constexpr QSize panelSize(820, 520);

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

/// The files with their sizes and dates in the program's language: Qt's model writes them in that
/// of the session.
class FrenchFiles final : public QIdentityProxyModel {
public:
    using QIdentityProxyModel::QIdentityProxyModel;

    QVariant data(const QModelIndex& index, int role) const override
    {
        const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
        const QModelIndex file = mapToSource(index);
        if (role != Qt::DisplayRole || !files || !file.isValid())
            return QIdentityProxyModel::data(index, role);
        if (index.column() == sizeColumn && !files->isDir(file))
            return QLocale().formattedDataSize(files->size(file));
        if (index.column() == dateColumn)
            return QLocale().toString(files->lastModified(file), QLocale::ShortFormat);
        return QIdentityProxyModel::data(index, role);
    }

private:
    static constexpr int sizeColumn = 1;
    static constexpr int dateColumn = 3;
};

QFileIconProvider* iconProvider()
{
    static NamesOnly provider;
    return &provider;
}

/// The toolkit's widths are too narrow for French: only a name is to be cut.
void showWhole(QHeaderView& columns)
{
    columns.setStretchLastSection(false);
    columns.setSectionResizeMode(QHeaderView::ResizeToContents);
    columns.setSectionResizeMode(0, QHeaderView::Stretch);
}

bool hasSuffix(const QString& path, const QString& suffix)
{
    return path.endsWith(u'.' + suffix, Qt::CaseInsensitive);
}

/// Qt gives the suffix only to names without any dot.
class SavePanel final : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

    /// Completes the name before Qt asks whether the file is to be replaced.
    void accept() override
    {
        const QString path = selectedFiles().value(0);
        // A panel of the desktop's own has no such field.
        auto* field = findChild<QLineEdit*>(u"fileNameEdit"_s);
        if (field && !QFileInfo(path).isDir() && !hasSuffix(path, defaultSuffix())) {
            // A file of the typed name is selected in the list, which counts more than the field;
            // the field may have lost the folder.
            findChild<QListView*>(u"listView"_s)->clearSelection();
            field->setText(path + u'.' + defaultSuffix());
        }
        QFileDialog::accept();
    }
};

/// Sees to the suffix of what a panel of the desktop's own gave, which asked about another name.
void completeChosen(
    const QString& path, const QString& suffix, QWidget* parent, const ChosenFile& chosen)
{
    if (hasSuffix(path, suffix))
        return chosen(path);
    const QString completed = path + u'.' + suffix;
    if (!QFileInfo::exists(completed))
        return chosen(completed);
    askBeforeDestroying(u"Remplacer le fichier ?"_s,
        u"« "_s + QFileInfo(completed).fileName() + u" » existe déjà."_s, u"Remplacer"_s, parent,
        [chosen, completed] { chosen(completed); });
}

template <class Panel>
Panel* makePanel(QWidget* parent, const QString& title, const FileKind& kind)
{
    // Without a folder it would begin in the last one, and may look into files there by now.
    auto* panel = new Panel(parent, title, QDir::rootPath());
    panel->setAttribute(Qt::WA_DeleteOnClose);
    panel->setIconProvider(iconProvider());
    panel->setProxyModel(new FrenchFiles(panel));
    panel->setNameFilter(kind.name + u" (*."_s + kind.suffix + u')');
    panel->resize(panelSize);
    if (const auto* files = panel->template findChild<QTreeView*>())
        showWhole(*files->header());
    return panel;
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
    auto* panel = makePanel<SavePanel>(parent, title, kind);
    panel->setAcceptMode(QFileDialog::AcceptSave);
    panel->setFileMode(QFileDialog::AnyFile);
    panel->setDefaultSuffix(kind.suffix);
    panel->setDirectory(
        nearestFolder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)));
    panel->selectFile(proposedName);
    QObject::connect(panel, &QFileDialog::fileSelected, panel,
        [parent, suffix = kind.suffix, chosen](
            const QString& path) { completeChosen(path, suffix, parent, chosen); });
    panel->open();
}

void openOpenPanel(QWidget* parent, const QString& title, const FileKind& kind,
    const QString& folder, const ChosenFile& chosen)
{
    auto* panel = makePanel<QFileDialog>(parent, title, kind);
    panel->setAcceptMode(QFileDialog::AcceptOpen);
    panel->setFileMode(QFileDialog::ExistingFile);
    panel->setDirectory(nearestFolder(folder));
    QObject::connect(panel, &QFileDialog::fileSelected, panel, chosen);
    panel->open();
}

} // namespace reelhouse::FilePanels
