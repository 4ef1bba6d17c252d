#pragma once

#include <QtCore/QString>

#include <functional>

class QPrintDialog;
class QPrinter;
class QWidget;

namespace reelhouse {

/// The toolkit's dialog that chooses a printer, or a file to print into. A file that `isRefused`
/// says so of is not even opened: the dialog is rejected. It goes with `parent`; `printer` must
/// live as long as it.
QPrintDialog* makePrintDialog(
    QPrinter& printer, std::function<bool(const QString& path)> isRefused, QWidget* parent);

} // namespace reelhouse
