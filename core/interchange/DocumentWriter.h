#pragma once

#include "core/interchange/JsonText.h"

namespace reelhouse {

struct ExportData;
struct ExportFilament;

/// One filament as a document tells it. The texts live elsewhere; null is one that is left out.
struct FilamentText {
    const QString* type = nullptr;
    const QString* brand = nullptr;
    const QString* range = nullptr;
    const QString* location = nullptr;
    const QString& colorHex;
    const QString* colorName = nullptr;
    const QString& notes;
    qint64 spoolsCount = 0;
    std::optional<qint64> openedSpoolsCount{};
    qint64 dateAddedMs = 0; ///< As in ExportFilament.

    static FilamentText of(const ExportFilament& filament);
};

/// Puts the text of a document together while its filaments are handed in, one after the other: a
/// large stock need not be copied first. The text is as ExportData::encodeJSON describes it.
class DocumentWriter final {
public:
    /// Everything but the filaments comes from `lists`, which outlives the writer. `filaments` is
    /// how many are expected.
    DocumentWriter(const ExportData& lists, qsizetype filaments);

    void add(const FilamentText& filament);
    /// The whole text, once; nothing when it cannot be written.
    std::optional<QByteArray> finish();

private:
    const ExportData& m_lists;
    JsonText m_text;
    bool m_hasFilaments = false;
};

} // namespace reelhouse
