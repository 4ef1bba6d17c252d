#include "tests/support/TestMain.h"

#ifdef QT_WIDGETS_LIB
#include <QtWidgets/QApplication>
#else
#include <QtCore/QCoreApplication>
#endif
#include <QtTest/QTest>

#include <cstdio>
#include <map>
#include <string>

namespace reelhouse::tests {

namespace {

#ifdef QT_WIDGETS_LIB
using Application = QApplication;
#else
using Application = QCoreApplication;
#endif

std::map<std::string, TestFactory>& knownTests()
{
    static std::map<std::string, TestFactory> tests;
    return tests;
}

} // namespace

bool registerTest(const char* name, TestFactory factory)
{
    return knownTests().emplace(name, std::move(factory)).second;
}

} // namespace reelhouse::tests

/// Runs the class that the first argument names, with the other arguments given to Qt Test.
int main(int argc, char* argv[])
{
    using namespace reelhouse::tests;
    const std::string name = argc > 1 ? argv[1] : "";
    const auto test = knownTests().find(name);
    if (test == knownTests().end()) {
        std::fprintf(stderr, "No test class named '%s'.\n", name.c_str());
        return 1;
    }
    argv[1] = argv[0];
    ++argv;
    --argc;
    const Application application(argc, argv);
    return QTest::qExec(test->second().get(), argc, argv);
}
