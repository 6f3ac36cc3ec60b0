// Prints what the passes cost beside their floors: nanoseconds, both sides by turns. With --count, each side
// runs alone under callgrind, for bench/instructions.
#include <android/log.h>
#include <benchmark/benchmark.h>
#include <valgrind/callgrind.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

#include "Allocations.h"
#include "Cases.h"

namespace {

using qz::bench::Case;

// Results come in twos.
constexpr int kPasses = 2;

size_t allocationsOf(const std::function<void()>& side) {
    const size_t before = qz::bench::allocations();
    side();
    return qz::bench::allocations() - before;
}

double nanosecondsOf(const std::function<void()>& side) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    for (int i = 0; i < kPasses; ++i) side();
    return std::chrono::duration<double, std::nano>(Clock::now() - start).count() / kPasses;
}

double median(std::vector<double>& values) {
    std::nth_element(values.begin(), values.begin() + static_cast<ptrdiff_t>(values.size() / 2),
                     values.end());
    return values[values.size() / 2];
}

void compare(benchmark::State& state, const Case& measured) {
    measured.prepare();
    std::vector<double> floor;
    std::vector<double> library;
    std::vector<double> ratio;
    for (auto _ : state) {
        floor.push_back(nanosecondsOf(measured.floor));
        library.push_back(nanosecondsOf(measured.library));
        ratio.push_back(library.back() / floor.back());
    }
    state.counters["floor_ns"] = median(floor);
    state.counters["library_ns"] = median(library);
    state.counters["ratio"] = median(ratio);
    state.counters["floor_allocs"] = static_cast<double>(allocationsOf(measured.floor));
    state.counters["library_allocs"] = static_cast<double>(allocationsOf(measured.library));
}

// Runs a side until it has settled, then once more while callgrind looks.
void count(const std::function<void()>& side) {
    for (int i = 0; i < kPasses; ++i) side();
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    side();
    CALLGRIND_DUMP_STATS;
    CALLGRIND_STOP_INSTRUMENTATION;
}

void countAll(const std::vector<Case>& cases) {
    for (const Case& measured : cases) {
        measured.prepare();
        count(measured.floor);
        count(measured.library);
        std::printf("%s|%.2f|%.2f|%d|%zu|%zu\n", measured.name.c_str(), measured.mark, measured.limit,
                    measured.allocatesNothing, allocationsOf(measured.floor),
                    allocationsOf(measured.library));
    }
}

std::vector<Case> allCases() {
    std::vector<Case> cases = qz::bench::markedCases();
    for (Case& grown : qz::bench::growingCases()) cases.push_back(std::move(grown));
    return cases;
}

}  // namespace

int main(int argc, char** argv) {
    __android_log_set_logger([](const __android_logger_data*, const char*) {});
    const std::vector<Case> cases = allCases();
    if (argc > 1 && strcmp(argv[1], "--count") == 0) {
        countAll(cases);
        return 0;
    }
    for (const Case& each : cases) {
        benchmark::RegisterBenchmark(each.name.c_str(), compare, each)->Unit(benchmark::kMicrosecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
