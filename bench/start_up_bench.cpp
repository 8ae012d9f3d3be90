// Loading the library, start-up, and the way of a value of the type on_off.

#include <benchmark/benchmark.h>
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vcos/COSNameID.h>
#include <vcos/COSTypeConversion.h>
#include <vcos/COSTypeRepository.h>
#include <vx/array.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

using vcos::COSNameID;
using vcos::COSTypeConversion;
using vcos::COSTypeRepository;
using vcos::COSValue;

void* load(const char* path) {
  void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
  if (!library) {
    std::fprintf(stderr, "%s\n", dlerror());
    std::abort();
  }
  return library;
}

void initialize(void* library) {
  reinterpret_cast<void (*)()>(dlsym(library, "VLInitialize_vgdatatypes"))();
}

/// Loads and starts the library for good. Benchmarks that call this come after those that load it
/// themselves.
const COSTypeConversion& onOffConversion(const char* outside) {
  [[maybe_unused]] static const bool started = [] {
    initialize(load(VGDT_LIBRARY));
    return true;
  }();
  return *COSTypeRepository::getConversion(COSNameID(outside),
                                           COSNameID("vortil.graphics.datatype.on_off"));
}

/// What happens once in a process gets a process of its own for each iteration: `measure` says how
/// many seconds it took.
template <class Measure>
void measureInFreshProcesses(benchmark::State& state, Measure measure) {
  for (auto _ : state) {
    int ends[2];
    if (pipe(ends) != 0) std::abort();
    const pid_t child = fork();
    if (child == 0) {
      const double seconds = measure();
      _exit(write(ends[1], &seconds, sizeof seconds) == sizeof seconds ? 0 : 1);
    }
    double seconds = 0;
    if (read(ends[0], &seconds, sizeof seconds) != sizeof seconds) std::abort();
    waitpid(child, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
    state.SetIterationTime(seconds);
  }
}

template <class Work>
double secondsOf(Work work) {
  const auto begin = std::chrono::steady_clock::now();
  work();
  const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
  return seconds.count();
}

void loadLibrary(benchmark::State& state, const char* path) {
  measureInFreshProcesses(state, [path] { return secondsOf([path] { load(path); }); });
}
BENCHMARK_CAPTURE(loadLibrary, empty, VGDT_EMPTY_LIBRARY)->UseManualTime()->Iterations(400);
BENCHMARK_CAPTURE(loadLibrary, vgdatatypes, VGDT_LIBRARY)->UseManualTime()->Iterations(400);

void startUp(benchmark::State& state) {
  measureInFreshProcesses(state, [] {
    void* library = load(VGDT_LIBRARY);
    return secondsOf([library] { initialize(library); });
  });
}
BENCHMARK(startUp)->UseManualTime()->Iterations(200);

void lookUpConversion(benchmark::State& state) {
  onOffConversion("any");
  const COSNameID outside("any");
  const COSNameID inner("vortil.graphics.datatype.on_off");
  for (auto _ : state)
    benchmark::DoNotOptimize(COSTypeRepository::getConversion(outside, inner));
}
BENCHMARK(lookUpConversion);

void setFromText(benchmark::State& state) {
  const COSTypeConversion& conversion = onOffConversion("string");
  const COSValue text = COSValue::fromPointer("Off");
  for (auto _ : state)
    benchmark::DoNotOptimize(conversion.from(text));
}
BENCHMARK(setFromText);

void setFromArray(benchmark::State& state) {
  const COSTypeConversion& conversion = onOffConversion("any");
  vxArray* array = vxCreateString("Off");
  for (auto _ : state)
    benchmark::DoNotOptimize(conversion.from(COSValue::fromPointer(array)));
  vxDestroyArray(array);
}
BENCHMARK(setFromArray);

void getAsArray(benchmark::State& state) {
  const COSTypeConversion& conversion = onOffConversion("any");
  for (auto _ : state)
    vxDestroyArray(conversion.to(COSValue::fromLogical(true)).asPointer<vxArray>());
}
BENCHMARK(getAsArray);

}  // namespace
