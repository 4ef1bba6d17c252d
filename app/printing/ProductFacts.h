#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// What the program says of itself on paper and in a PDF. Empty where the build does not say.
struct ProductFacts {
    QString name;
    QString version;
    QString build;
    QString rights; ///< The line about copyright.
    QString author;

    bool operator==(const ProductFacts&) const = default;
};

} // namespace reelhouse
