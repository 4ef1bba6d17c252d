#include "app/store/StoreContainer.h"

namespace reelhouse {

StoreContainer::StoreContainer(
    std::unique_ptr<PersistentStore> store, StoreKind kind, QString storeFile)
    : m_store(std::move(store))
    , m_context(std::make_unique<StoreContext>(*m_store))
    , m_kind(kind)
    , m_storeFile(std::move(storeFile))
{
}

Result<std::unique_ptr<StoreContainer>, StoreError> StoreContainer::load(
    std::unique_ptr<PersistentStore> store, StoreKind kind, const QString& storeFile)
{
    std::unique_ptr<StoreContainer> container(
        new StoreContainer(std::move(store), kind, storeFile));
    if (auto error = container->m_store->load(container->context()))
        return Failure{*error};
    return container;
}

} // namespace reelhouse
