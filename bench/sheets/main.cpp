// How many values of property sheets the console checks in a second of processor time, and how much
// memory it takes.

#include "../common/measuring.h"
#include "commands/Commands.h"

#include <benchmark/benchmark.h>
#include <graphics/datatype/vgdatatypes.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

namespace {

constexpr int kSizes[] = {1'000, 10'000, 100'000};
constexpr int kProperties = 10;
constexpr double kSpeedGoal = 1e6;
constexpr double kMemoryGoal = 10;

/// Ten properties each.
constexpr const char* kObjects[] = {
    R"("class": "Line", "name": "line%d",
     "properties": {
       "XData": [0, 1, 2, 3, 4, 5, 6, 7],
       "YData": [0.25, 1.5, 2.125, 1e-3, 40, 5.5, 6.0625, 7],
       "Color": [0.5, 0, 1],
       "MarkerColor": "red",
       "LineStyle": "--",
       "Marker": "diamond",
       "Width": 1.5,
       "Interruptible": "off",
       "BusyAction": {"literal": "'cancel'"},
       "Tag": "a line"
     })",
    R"("class": "Text", "name": "note%d",
     "properties": {
       "String": ["two lines", "of text"],
       "Position": [10, 20],
       "PositionUnits": "data",
       "Color": "blue",
       "Font": "Sans",
       "FontUnits": "points",
       "FontSize": 9,
       "FontWeight": "bold",
       "Horizontal": "center",
       "Parent": null
     })",
    R"("class": "Patch", "name": "patch%d",
     "properties": {
       "Vertices": [[0, 0, 0], [1, 0, 0], [1, 1, 0.5], [0, 1, 0.5]],
       "Faces": [[1, 2, 3], [1, 3, 4]],
       "VertexAlphas": [],
       "FaceColor": "flat",
       "EdgeColor": [0, 0, 0],
       "FaceAlpha": 0.5,
       "Lighting": "gouraud",
       "AmbientShare": 0.25,
       "ColorMapping": "scaled",
       "Interruptible": "on"
     })",
};

/// Files that end with the program.
class Sheets {
 public:
  Sheets() {
    std::string name = std::filesystem::temp_directory_path() / "vgdt_sheet_bench_XXXXXX";
    if (!mkdtemp(name.data())) measuring::fail("there is no place for temporary files");
    folder_ = name;
    std::ofstream(sheet(0)) << "[]";
    for (const int objects : kSizes)
      write(objects);
  }
  ~Sheets() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  Sheets(const Sheets&) = delete;
  Sheets& operator=(const Sheets&) = delete;

  std::filesystem::path sheet(int objects) const {
    return folder_ / (std::to_string(objects) + ".json");
  }

 private:
  void write(int objects) const {
    std::ofstream file(sheet(objects));
    file << R"({"class": "Axes", "children": [)";
    char text[1024];
    for (int i = 0; i < objects; ++i) {
      std::snprintf(text, sizeof text, kObjects[static_cast<std::size_t>(i) % std::size(kObjects)],
                    i);
      file << (i == 0 ? "\n" : ",\n") << "    {" << text << "}";
    }
    file << "\n]}\n";
    if (!file.flush()) measuring::fail("the sheets cannot be written");
  }

  std::filesystem::path folder_;
};

void check(const std::filesystem::path& sheet) {
  std::ofstream output("/dev/null");
  const vgdt::Style plain(vgdt::ColorDepth::None);
  const vgdt::Console console{output, output, plain, plain};
  if (vgdt::checkSheets(console, {sheet}, true, false) != vgdt::kDone)
    measuring::fail("a value was refused");
}

void checkAgainAndAgain(benchmark::State& state, const std::filesystem::path& sheet, int objects) {
  for ([[maybe_unused]] auto each : state)
    check(sheet);
  state.SetItemsProcessed(state.iterations() * objects * kProperties);
}

/// The peak of a process that checks the sheet, in bytes.
double peakMemory(const std::filesystem::path& sheet) {
  const pid_t child = fork();
  if (child < 0) measuring::fail("there is no other process");
  if (child == 0) {
    check(sheet);
    _exit(0);
  }
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || status != 0)
    measuring::fail("a sheet was not checked");
  return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

std::string nameOf(int objects) {
  return "sheets/" + std::to_string(objects);
}

}  // namespace

int main(int argc, char** argv) {
  measuring::takeArguments(argc, argv);
  VLInitialize_vgdatatypes();
  const Sheets sheets;
  const double base = peakMemory(sheets.sheet(0));
  for (const int objects : kSizes)
    benchmark::RegisterBenchmark(nameOf(objects).c_str(), checkAgainAndAgain, sheets.sheet(objects),
                                 objects);
  const measuring::Times times = measuring::runBenchmarks();
  std::printf("%-10s %14s %8s  %-24s %14s  %s\n", "objects", "values/s", "spread", "goal",
              "memory/file", "goal");
  for (const int objects : kSizes) {
    const measuring::Time time = times.of(nameOf(objects));
    if (time.median == 0) continue;
    const double perSecond = 1e9 / time.median;
    const double size = static_cast<double>(std::filesystem::file_size(sheets.sheet(objects)));
    const double memory = std::max(0.0, peakMemory(sheets.sheet(objects)) - base) / size;
    // A small sheet takes less than what differs between two processes.
    const bool isLarge = objects == *std::rbegin(kSizes);
    const measuring::Goal goal =
        isLarge ? measuring::Goal::atMost(kMemoryGoal) : measuring::Goal::kNone;
    std::printf("%-10d %14.0f %7.0f%%  %-24s %14.2f  %s\n", objects, perSecond, 100 * time.spread,
                measuring::Goal::atLeast(kSpeedGoal).verdict(perSecond, 15).c_str(), memory,
                goal.verdict(memory).c_str());
  }
}
