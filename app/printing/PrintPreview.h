#pragma once

#include "app/printing/ReportTextView.h"

#include <memory>

class QWidget;

namespace reelhouse {

/// Shows how `view` will look on paper, over the window of `parent`, which waits for it. Of a long
/// report the first pages are shown, and the title says so; printing from there prints them all.
void openPrintPreview(const std::shared_ptr<const ReportTextView>& view, QWidget* parent);

} // namespace reelhouse
