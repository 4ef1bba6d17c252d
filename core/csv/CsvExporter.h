#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>
#include <vector>

namespace reelhouse {

class Filament;

/// The stock as a table for spreadsheet programs in French: cells parted by semicolons, lines by
/// line feeds.
namespace CsvExporter {

/// A line of headers, then one line for each filament in the order given. Nothing is trimmed, only
/// cells that would be taken for several are quoted. The text ends with a line feed.
QString stockCSV(const std::vector<const Filament*>& filaments);

/// `csv` in UTF-8 behind a byte-order mark, as spreadsheet programs want a file. Nothing when the
/// text is no valid Unicode.
std::optional<QByteArray> encoded(const QString& csv);

} // namespace CsvExporter

} // namespace reelhouse
