#include "app/store/StoreProvider.h"

#include "app/store/CarryOver.h"
#include "app/store/DurableFiles.h"
#include "app/store/SqliteStore.h"

#include <QtCore/QCoreApplication>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse {

namespace {

/// Without an edit for this long the program counts as idle.
constexpr auto idleDelay = 2s;

StoreOpeners sqliteOpeners(const StorePaths& paths)
{
    return {[file = paths.storeFile()] { return SqliteStore::openFile(file); },
        &SqliteStore::openInMemory};
}

Result<std::unique_ptr<StoreContainer>, StoreError> openContainer(
    const StoreOpeners::Opener& open, StoreKind kind, const QString& storeFile)
{
    auto store = open();
    if (!store)
        return Failure{store.error()};
    return StoreContainer::load(std::move(store.value()), kind, storeFile);
}

StoreProvider::Outcome openEither(const StorePaths& paths, const StoreOpeners& openers)
{
    auto file = openContainer(openers.file, StoreKind::File, paths.storeFile());
    if (file)
        return {std::move(file.value()), {}};
    const QString fileError = file.error().description();
    auto memory = openContainer(openers.memory, StoreKind::Memory, paths.storeFile());
    if (memory)
        return {std::move(memory.value()), fileError};
    return {nullptr, fileError + u"\n\n"_s + memory.error().description()};
}

} // namespace

StoreProvider::StoreProvider(const StorePaths& paths, QObject* parent)
    : StoreProvider(paths, sqliteOpeners(paths), parent)
{
}

StoreProvider::StoreProvider(StorePaths paths, StoreOpeners openers, QObject* parent)
    : QObject(parent)
    , m_paths(std::move(paths))
    , m_openers(std::move(openers))
{
    m_idleTimer.setSingleShot(true);
    m_idleTimer.setInterval(idleDelay);
    connect(&m_idleTimer, &QTimer::timeout, this, &StoreProvider::useIdleTime);
}

StoreProvider::~StoreProvider()
{
    if (m_opening)
        m_opening->wait();
}

QString StoreProvider::failureMessage() const
{
    return container() ? QString() : m_outcome.error;
}

void StoreProvider::loadIfNeeded()
{
    if (m_opening)
        return;
    m_opening.reset(QThread::create([this] { m_pending = makeContainer(m_paths, m_openers); }));
    connect(m_opening.get(), &QThread::finished, this, &StoreProvider::apply);
    m_opening->start();
}

StoreProvider::Outcome StoreProvider::makeContainer(
    const StorePaths& paths, const StoreOpeners& openers)
{
    // A folder that cannot be made shows when the store is opened in it.
    DurableFiles::makeFolder(paths.dataFolder());
    carryOverOlderStore(paths.olderStoreFile(), paths.storeFile());
    Outcome outcome = openEither(paths, openers);
    if (outcome.container)
        outcome.container->context().moveToThread(QCoreApplication::instance()->thread());
    return outcome;
}

void StoreProvider::useIdleTime()
{
    // What could not be saved is tried again until it is.
    if (container()->context().hasUnsavedChanges() && container()->context().save())
        return m_idleTimer.start();
    container()->tidyUp();
}

void StoreProvider::apply()
{
    m_outcome = std::move(m_pending);
    if (container()) {
        connect(&container()->context(), &StoreContext::changed, &m_idleTimer,
            qOverload<>(&QTimer::start));
    }
    emit stateChanged();
    emit activationRequested();
    if (usesMemoryStore())
        emit storeAlertRequested(m_outcome.error);
}

} // namespace reelhouse
