#pragma once

#include <QtCore/QObject>

#include <functional>
#include <memory>

namespace reelhouse::tests {

using TestFactory = std::function<std::unique_ptr<QObject>()>;

/// Makes the class `name` known to the program; called before main through REELHOUSE_TEST.
bool registerTest(const char* name, TestFactory factory);

} // namespace reelhouse::tests

/// Stands once in the .cpp of a test class, before its .moc is included.
#define REELHOUSE_TEST(Class)                                                                      \
    namespace {                                                                                    \
    const bool is##Class##Registered                                                               \
        = reelhouse::tests::registerTest(#Class, [] { return std::make_unique<Class>(); });        \
    }
