#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// What the program says of itself. Given to the build; see cmake/Product.cmake.
struct Product {
    QString version = {};
    QString build = {};
    QString developer = {};
    QString website = {}; ///< An address to open.
    QString email = {};
    QString rightsHolder = {};
    QString rightsYear = {};

    /// The product that this build is; "1.0.0" and "1" where it was given no version or number.
    static Product ofThisBuild();

    /// "© 2026 Someone. Tous droits réservés."
    QString rightsLine() const;
    /// The host of the web site, without anything around it.
    QString websiteHost() const;
};

} // namespace reelhouse
