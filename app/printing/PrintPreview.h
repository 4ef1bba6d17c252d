#pragma once

#include "app/printing/ReportTextView.h"

#include <functional>
#include <memory>

class QDialog;
class QWidget;

namespace reelhouse {

/// Shows how `view` will look on paper, over the window of `parent`, which waits for it. Of a long
/// report the first pages are shown, and the title says so. Its own command to print calls `print`,
/// and leaves it open. It is gone once it is closed.
QDialog* openPrintPreview(const std::shared_ptr<const ReportTextView>& view, QWidget* parent,
    const std::function<void()>& print);

} // namespace reelhouse
