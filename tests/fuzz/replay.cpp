// Runs a fuzz target once on every file of a folder.

#include "fuzz_target.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

int main(int argc, char** argv) {
  int inputs = 0;
  for (int i = 1; i < argc; ++i) {
    for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
      std::ifstream file(entry.path(), std::ios::binary);
      const std::vector<char> bytes(std::istreambuf_iterator<char>(file), {});
      std::printf("%s\n", entry.path().filename().c_str());
      std::fflush(stdout);
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++inputs;
    }
  }
  return inputs > 0 ? 0 : 1;
}
