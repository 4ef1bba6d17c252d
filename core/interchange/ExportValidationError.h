#pragma once

#include <QtCore/QString>

namespace reelhouse {

/// Why a document that could be read cannot become the stock.
struct ExportValidationError {
    enum class Kind : quint8 {
        UnsupportedSchema, ///< Newer than this program.
        DuplicateName, ///< Two entries of one list share a name.
        UnknownReference, ///< A filament names an entry that the document does not hold.
        CountsTooLarge, ///< The spools, or the opened ones, exceed 64 bits in all.
    };

    static ExportValidationError unsupportedSchema(qint64 version);
    /// `category` is the French noun of the list, such as "marque".
    static ExportValidationError duplicateName(const QString& category, const QString& name);
    static ExportValidationError unknownReference(const QString& category, const QString& name);
    static ExportValidationError countsTooLarge();

    Kind kind;
    qint64 version = 0; ///< UnsupportedSchema only.
    QString category = {}; ///< DuplicateName and UnknownReference only, as is `name`.
    QString name = {};

    /// The French sentence shown to the user.
    QString description() const;
    bool operator==(const ExportValidationError&) const = default;
};

} // namespace reelhouse
