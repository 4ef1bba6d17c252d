#pragma once

#include <QtCore/QString>

#include <functional>

class QWidget;

/// The panels in which the user chooses a file: the desktop's own where it has one, over the window
/// of `parent`, which waits for them. They go with `parent`.
namespace reelhouse::FilePanels {

/// The one kind of file that a panel offers.
struct FileKind {
    QString name; ///< French, such as "Documents JSON".
    QString suffix; ///< Without the dot.
};

using ChosenFile = std::function<void(const QString& path)>;

/// Asks where to write. A name that does not end in the suffix, in small letters or capitals, gets
/// it; whether a file is to be replaced is asked about that name. `chosen` is called once, unless
/// the user cancels.
void openSavePanel(QWidget* parent, const QString& title, const FileKind& kind,
    const QString& proposedName, const ChosenFile& chosen);

/// Asks for one existing file; the panel begins in `folder`, or above it where that is missing.
void openOpenPanel(QWidget* parent, const QString& title, const FileKind& kind,
    const QString& folder, const ChosenFile& chosen);

} // namespace reelhouse::FilePanels
