#pragma once

#include "core/interchange/ExportData.h"
#include "core/model/PersistentStore.h"

namespace reelhouse {

/// The way between the stock and its document.
namespace StockDocument {

enum class FilamentOrder : quint8 {
    Store, ///< As they were added to the store: backups.
    NewestFirst, ///< By dateAdded, equal ones in store order: the user's exports.
};

/// The text of a document of the current version that holds the whole stock, unsaved changes
/// included. Nothing where ExportData::encodeJSON gives nothing.
std::optional<QByteArray> encode(StoreContext& context, FilamentOrder order);

/// Puts the contents of a validated document in the place of the whole stock and saves once. The
/// counts are those of the document, even where they contradict each other. The undo history is
/// emptied. After an error the context holds the new stock, unsaved, and the store the former one.
std::optional<StoreError> replaceStock(StoreContext& context, const ExportData& data);

} // namespace StockDocument

} // namespace reelhouse
