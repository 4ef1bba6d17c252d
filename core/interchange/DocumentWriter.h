#pragma once

#include <QtCore/QByteArray>

#include <optional>

namespace reelhouse {

struct ExportData;

/// The text of `data`, as ExportData::encodeJSON gives it.
std::optional<QByteArray> writeDocument(const ExportData& data);

} // namespace reelhouse
