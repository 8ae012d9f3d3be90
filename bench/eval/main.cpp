// How many requests the console serves in a second of processor time.

#include "../common/measuring.h"
#include "requests/Eval.h"

#include <benchmark/benchmark.h>
#include <graphics/datatype/vgdatatypes.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

constexpr int kRequests = 200'000;
constexpr double kGoal = 150'000;

/// Files that end with the program.
class Files {
 public:
  Files() {
    std::string name = std::filesystem::temp_directory_path() / "vgdt_eval_bench_XXXXXX";
    if (!mkdtemp(name.data())) measuring::fail("there is no place for temporary files");
    folder_ = name;
    writeRequests();
  }
  ~Files() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;

  std::filesystem::path requests() const { return folder_ / "requests.jsonl"; }
  std::filesystem::path replies() const { return folder_ / "replies.jsonl"; }

 private:
  void writeRequests() const {
    constexpr const char* kMembers[] = {
        R"("type":"on_off","text":"on")",
        R"("type":"Units","array":"'pixels'")",
        R"("type":"ColorMap","array":"[0 0.5 1; 1 0 0]")",
        R"("type":"Limits","text":"[0 10]")",
    };
    std::ofstream file(requests());
    for (int i = 0; i < kRequests; ++i)
      file << R"({"id":)" << i << ',' << kMembers[static_cast<std::size_t>(i) % 4] << "}\n";
    if (!file.flush()) measuring::fail("the requests cannot be written");
  }

  std::filesystem::path folder_;
};

void serve(benchmark::State& state, const std::filesystem::path& requests,
           const std::filesystem::path& replies) {
  for ([[maybe_unused]] auto each : state) {
    std::ifstream input(requests, std::ios::binary);
    std::ofstream output(replies, std::ios::binary);
    if (vgdt::evaluateLines(input, output) != vgdt::kDone || !output)
      measuring::fail("a request was not served");
  }
  state.SetItemsProcessed(state.iterations() * kRequests);
}

}  // namespace

int main(int argc, char** argv) {
  measuring::takeArguments(argc, argv);
  VLInitialize_vgdatatypes();
  const Files files;
  const std::pair<const char*, std::filesystem::path> kOutputs[] = {
      {"eval/null", "/dev/null"},
      {"eval/file", files.replies()},
  };
  for (const auto& [name, replies] : kOutputs)
    benchmark::RegisterBenchmark(name, serve, files.requests(), replies);
  const measuring::Times times = measuring::runBenchmarks();
  std::printf("%-12s %16s %8s  %s\n", "replies to", "requests/s", "spread", "goal");
  for (const auto& [name, replies] : kOutputs) {
    const measuring::Time time = times.of(name);
    if (time.median == 0) continue;
    const double perSecond = 1e9 / time.median;
    std::printf("%-12s %16.0f %7.0f%%  %s\n", name, perSecond, 100 * time.spread,
                measuring::Goal::atLeast(kGoal).verdict(perSecond, 18).c_str());
  }
}
