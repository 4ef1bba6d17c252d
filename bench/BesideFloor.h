#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <vector>

namespace reelhouse::bench {

/// The seconds that `work` takes.
template <class Work>
double secondsOf(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double medianOf(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Measures `ours` and the least that the same work can cost, in turns, so that both see the same
/// machine. Either returns the seconds it took, without its preparations. Prints the two medians in
/// milliseconds and how many times the floor ours is; the same of the two shortest times, which
/// other programs disturb least. For a benchmark with UseManualTime.
template <class Ours, class Floor>
void measureBesideFloor(benchmark::State& state, Ours ours, Floor floor)
{
    std::vector<double> ourSeconds;
    std::vector<double> floorSeconds;
    while (state.KeepRunning()) {
        floorSeconds.push_back(floor());
        ourSeconds.push_back(ours());
        state.SetIterationTime(ourSeconds.back());
    }
    state.counters["ours_ms"] = medianOf(ourSeconds) * 1000;
    state.counters["floor_ms"] = medianOf(floorSeconds) * 1000;
    state.counters["times_floor"] = medianOf(ourSeconds) / medianOf(floorSeconds);
    const double ourLeast = *std::ranges::min_element(ourSeconds);
    const double floorLeast = *std::ranges::min_element(floorSeconds);
    state.counters["ours_least_ms"] = ourLeast * 1000;
    state.counters["floor_least_ms"] = floorLeast * 1000;
    state.counters["least_times_floor"] = ourLeast / floorLeast;
}

} // namespace reelhouse::bench
