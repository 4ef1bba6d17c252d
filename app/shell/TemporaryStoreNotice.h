#pragma once

#include "app/shell/NoticeStrip.h"

namespace reelhouse {

/// The calm lines at the top of the content while the stock is the temporary one: that nothing
/// will be kept or backed up, and where the data lies that could not be opened.
class TemporaryStoreNotice final : public NoticeStrip {
    Q_OBJECT

public:
    explicit TemporaryStoreNotice(const QString& dataFolder, QWidget* parent = nullptr);
};

} // namespace reelhouse
