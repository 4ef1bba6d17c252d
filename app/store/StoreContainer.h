#pragma once

#include "core/Result.h"
#include "core/model/StoreContext.h"

#include <memory>

namespace reelhouse {

enum class StoreKind : quint8 { File, Memory };

/// The opened stock: the context and the storage behind it.
class StoreContainer final {
public:
    /// Loads everything from `store`; an error if it cannot be read and written. `storeFile` is the
    /// path that belongs to the stock, whether or not `kind` is File.
    static Result<std::unique_ptr<StoreContainer>, StoreError> load(
        std::unique_ptr<PersistentStore> store, StoreKind kind, const QString& storeFile);

    StoreContext& context() { return *m_context; }
    const StoreContext& context() const { return *m_context; }
    /// Whether the stock is the temporary one, lost when the program ends.
    bool usesMemoryStore() const { return m_kind == StoreKind::Memory; }
    const QString& storeFile() const { return m_storeFile; }

    /// Upkeep of the storage, for a moment when the program has nothing else to do.
    void tidyUp() { m_store->tidyUp(); }

private:
    StoreContainer(std::unique_ptr<PersistentStore> store, StoreKind kind, QString storeFile);

    std::unique_ptr<PersistentStore> m_store;
    std::unique_ptr<StoreContext> m_context; ///< Goes before the store that it saves into.
    StoreKind m_kind;
    QString m_storeFile;
};

} // namespace reelhouse
