#pragma once

#include "core/model/FilamentContainer.h"

#include <QtCore/QString>

namespace reelhouse {

/// Every text and symbol in which the four reference lists differ on the screen.
struct ReferenceTexts {
    QString title;
    QString addCommand; ///< Also the name of that action in the undo history.
    QString rowSymbol; ///< Empty where each entry has its own.
    QString emptyTitle;
    QString emptySymbol;
    QString emptyDescription;
    QString addTitle;
    QString namePlaceholder;
    QString editTitle; ///< Also the name of that action in the undo history.
    QString deleteAction; ///< The name of that action in the undo history.
    QString deleteTitle;
    QString deleteUnused; ///< The question about an entry that no filament uses.
    QString deleteUsedBeforeCount;
    QString deleteUsedAfterCount;
};

ReferenceTexts referenceTexts(ReferenceKind kind);

/// What is asked before an entry used by that many filaments is deleted.
QString deletionQuestion(const ReferenceTexts& texts, qint64 filamentCount);

} // namespace reelhouse
