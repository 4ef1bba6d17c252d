#pragma once

#include "core/interchange/ExportValidationError.h"
#include "core/text/Folding.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>
#include <vector>

namespace reelhouse {

struct ExportType {
    QString name;
    std::optional<QString> iconName;

    bool operator==(const ExportType&) const = default;
};

struct ExportBrand {
    QString name;

    bool operator==(const ExportBrand&) const = default;
};

struct ExportRange {
    QString name;

    bool operator==(const ExportRange&) const = default;
};

struct ExportLocation {
    QString name;

    bool operator==(const ExportLocation&) const = default;
};

/// One filament; it names what it refers to.
struct ExportFilament {
    std::optional<QString> type;
    std::optional<QString> brand;
    std::optional<QString> range;
    std::optional<QString> location;
    qint64 spoolsCount = 0;
    std::optional<qint64> openedSpoolsCount;
    QString colorHex;
    std::optional<QString> colorName;
    QString notes;
    qint64 dateAddedMs = 0; ///< Milliseconds since 1970, universal time; written in whole seconds.

    bool operator==(const ExportFilament&) const = default;
};

/// The whole stock as one document: what exports and backups write, and imports read.
struct ExportData {
    static constexpr qint64 currentSchemaVersion = 1;

    std::optional<qint64> schemaVersion;
    std::vector<ExportType> types;
    std::vector<ExportBrand> brands;
    std::vector<ExportRange> ranges;
    std::vector<ExportLocation> locations;
    std::vector<ExportFilament> filaments;

    /// The document as JSON text in UTF-8: keys in order, indented by two spaces, without a line
    /// break at the end. Nothing when a text is no valid Unicode or a year has not four digits.
    std::optional<QByteArray> encodeJSON() const;

    /// The first rule that the document breaks, in this order: the version, names that are equal
    /// once folded (types, brands, ranges, locations), references to names that it does not hold,
    /// counts too large to be summed.
    std::optional<ExportValidationError> validate(FoldingRules rules = systemFoldingRules()) const;

    bool operator==(const ExportData&) const = default;
};

} // namespace reelhouse
