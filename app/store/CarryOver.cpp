#include "app/store/CarryOver.h"

#include "app/store/DurableFiles.h"
#include "app/store/StoreCompanions.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStringBuilder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

/// One carry-over. Copies are complete and synced under draft names before the first of them gets
/// its own; the main file gets its own last, because it is what makes the store exist.
class CarryOver final {
public:
    CarryOver(QString olderStore, QString store)
        : m_olderStore(std::move(olderStore))
        , m_store(std::move(store))
    {
    }
    CarryOver(const CarryOver&) = delete;
    CarryOver& operator=(const CarryOver&) = delete;
    ~CarryOver() { removeDrafts(); }

    void run()
    {
        removeDrafts();
        if (setOrphanedCompanionsAside(m_store) || copy(mainFile))
            return;
        const bool hasIndex = exists(StoreCompanion::index) && !copy(StoreCompanion::index);
        QList<QStringView> journals{StoreCompanion::journal, StoreCompanion::rollbackJournal};
        journals.removeIf([this](QStringView suffix) { return !exists(suffix); });
        const auto isCopied = [this](QStringView suffix) { return !copy(suffix); };
        const auto isInstalled = [this](QStringView suffix) { return !install(suffix); };
        if (!std::ranges::all_of(journals, isCopied))
            return;
        if (hasIndex)
            install(StoreCompanion::index); // SQLite makes a new one when it is missing.
        // Without its journals the main file would be an older state, or half of a newer one.
        if (std::ranges::all_of(journals, isInstalled) && !install(mainFile))
            return;
        if (DurableFiles::isTaken(m_store))
            return;
        for (const QStringView suffix : StoreCompanion::all)
            DurableFiles::remove(m_store % suffix);
    }

private:
    static constexpr QStringView mainFile = u"";

    QString draft(QStringView suffix) const { return m_store % suffix % u".copy"_s; }
    bool exists(QStringView suffix) const { return DurableFiles::isTaken(m_olderStore % suffix); }
    std::optional<SystemError> copy(QStringView suffix) const
    {
        return DurableFiles::copy(m_olderStore % suffix, draft(suffix));
    }
    std::optional<SystemError> install(QStringView suffix) const
    {
        return DurableFiles::renameToFreeName(draft(suffix), m_store % suffix);
    }
    void removeDrafts() const
    {
        DurableFiles::remove(draft(mainFile));
        for (const QStringView suffix : StoreCompanion::all)
            DurableFiles::remove(draft(suffix));
    }

    QString m_olderStore;
    QString m_store;
};

} // namespace

void carryOverOlderStore(const QString& olderStore, const QString& store)
{
    if (!DurableFiles::isTaken(store) && QFileInfo::exists(olderStore))
        CarryOver(olderStore, store).run();
}

} // namespace reelhouse
