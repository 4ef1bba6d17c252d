#include "bench/StartedProgram.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QFile>

#include <cstdio>

using namespace Qt::StringLiterals;
using reelhouse::bench::StartedProgram;

namespace {

constexpr int rounds = 21;

} // namespace

/// `start-benchmark SPOOLWRIGHT EMPTY_TABLE STORE`: the time from the start of the program to the
/// first painted list, and its memory, beside an empty window with a table, started in turns.
int main(int argc, char* argv[])
{
    if (argc != 4) {
        std::fputs("start-benchmark SPOOLWRIGHT EMPTY_TABLE STORE\n", stderr);
        return 2;
    }
    reelhouse::tests::VirtualDesktop desktop;
    StartedProgram ours(
        desktop, QFile::decodeName(argv[1]), u"Spoolwright"_s, QFile::decodeName(argv[3]));
    StartedProgram floor(desktop, QFile::decodeName(argv[2]), u"empty-table"_s, {});
    ours.rehearse();
    floor.rehearse();
    for (int round = 0; round < rounds; ++round) {
        ours.measure();
        floor.measure();
    }
    std::printf("start to painted list: %.0f ms, floor %.0f ms, %.2f times; "
                "resident: %.1f MiB, floor %.1f MiB\n",
        ours.startMilliseconds(), floor.startMilliseconds(),
        ours.startMilliseconds() / floor.startMilliseconds(), ours.residentMib(),
        floor.residentMib());
    return 0;
}
