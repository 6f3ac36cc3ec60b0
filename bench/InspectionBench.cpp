// Inspection at level 0, beside the one property read that it is made of: the two differ by a comparison, and
// nothing is allocated.
#include <QzPerformEx.h>
#include <benchmark/benchmark.h>
#include <cutils/properties.h>

#include <cstdlib>
#include <new>

namespace {

size_t gAllocations = 0;

void count(benchmark::State& state, size_t before) {
    state.counters["allocations"] = static_cast<double>(gAllocations - before);
}

void propertyRead(benchmark::State& state) {
    const size_t before = gAllocations;
    for (auto _ : state) {
        char value[PROPERTY_VALUE_MAX];
        benchmark::DoNotOptimize(property_get("camera.qzperformex.loglevel", value, "0"));
    }
    count(state, before);
}
BENCHMARK(propertyRead);

void checkRequest(benchmark::State& state) {
    const android::sp<qz::QzPerformEx> inspection = new qz::QzPerformEx(0);
    android::List<const android::CameraMetadata> requests;
    requests.push_back(android::CameraMetadata());
    const size_t before = gAllocations;
    for (auto _ : state) inspection->checkRequest(requests, true);
    count(state, before);
}
BENCHMARK(checkRequest);

void checkResult(benchmark::State& state) {
    const android::sp<qz::QzPerformEx> inspection = new qz::QzPerformEx(0);
    const android::CaptureResult result;
    const size_t before = gAllocations;
    for (auto _ : state) inspection->checkResult(result);
    count(state, before);
}
BENCHMARK(checkResult);

}  // namespace

// Not inlined, or g++ sees malloc() and free() behind new and delete and takes them for a mistake.
__attribute__((noinline)) void* operator new(size_t size) {
    ++gAllocations;
    if (void* memory = std::malloc(size)) return memory;
    throw std::bad_alloc();
}
__attribute__((noinline)) void operator delete(void* memory) noexcept { std::free(memory); }
__attribute__((noinline)) void operator delete(void* memory, size_t) noexcept { std::free(memory); }
