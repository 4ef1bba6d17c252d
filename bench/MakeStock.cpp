#include "app/store/SqliteStore.h"
#include "app/store/StoreContainer.h"
#include "tests/support/StockGenerator.h"

#include <cstdio>
#include <cstdlib>

/// Writes a made-up stock to a file: `make-stock PATH FILAMENTS`. What is there already stays, so
/// the name is best a new one.
int main(int argc, char* argv[])
{
    using namespace reelhouse;
    if (argc != 3) {
        std::fputs("make-stock PATH FILAMENTS\n", stderr);
        return 1;
    }
    const QString path = QString::fromLocal8Bit(argv[1]);
    auto store = SqliteStore::openFile(path);
    if (!store)
        qFatal("%s", qPrintable(store.error().description()));
    const auto container = StoreContainer::load(std::move(store.value()), StoreKind::File, path);
    if (!container)
        qFatal("%s", qPrintable(container.error().description()));
    StoreContext& context = container.value()->context();
    tests::generateStock(context, std::atoi(argv[2]));
    if (const auto error = context.save())
        qFatal("%s", qPrintable(error->description()));
    return 0;
}
