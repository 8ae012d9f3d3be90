// Any file is checked to its end, for people and as lines of JSON, and leaves nothing behind.

#include "commands/Commands.h"
#include "fuzz_target.h"

#include <graphics/datatype/vgdatatypes.h>
#include <sys/mman.h>
#include <unistd.h>

#include <ut/memory.h>
#include <vx/array.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace {

void require(bool isTrue) {
  if (!isTrue) std::abort();
}

struct Outcome {
  vgdt::ExitStatus status;
  std::string output;
  std::string errors;
};

Outcome check(const std::string& file, bool asJson) {
  std::ostringstream output;
  std::ostringstream errors;
  const vgdt::Style plain(vgdt::ColorDepth::None);
  const auto status = vgdt::checkSheets({output, errors, plain, plain}, {file}, asJson, false);
  return {status, output.str(), errors.str()};
}

/// As another parser sees it, where both have to agree: that one takes a NUL as the end, and
/// refuses halves of surrogate pairs and numbers that are out of range.
void requireAgreement(const std::string& text, const Outcome& outcome) {
  if (text.find('\0') != text.npos) return;
  const bool isJson = outcome.errors.empty();
  if (nlohmann::json::accept(text))
    require(isJson || outcome.errors.find("nested more than") != std::string::npos);
  else if (isJson)
    require(text.find("\\u") != text.npos || text.find_first_of("eE") != text.npos ||
            text.size() > 300);
}

void requireLines(const Outcome& outcome) {
  std::istringstream lines(outcome.output);
  std::uint64_t refusals = 0;
  nlohmann::json json;
  for (std::string line; std::getline(lines, line);) {
    json = nlohmann::json::parse(line);
    if (!json.contains("refused")) ++refusals;
  }
  require(json.at("refused") == refusals);
  require(outcome.status == (outcome.errors.empty() ? (refusals == 0 ? vgdt::kDone : vgdt::kRefused)
                                                    : vgdt::kNotUnderstood));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vghost::setArrayMemoryLimit(kMemoryLimit / 256);  // what is refused is also printed
  VLInitialize_vgdatatypes();
  const std::string text(reinterpret_cast<const char*>(data), size);
  const int file = memfd_create("sheet", 0);
  require(file >= 0 && write(file, data, size) == static_cast<ssize_t>(size));
  const std::string name = "/proc/self/fd/" + std::to_string(file);
  static_cast<void>(check(name, true));  // a value may look for names, which are kept
  const std::size_t arrays = vghost::liveArrays();
  const std::size_t blocks = vghost::liveBlocks();
  const Outcome asLines = check(name, true);
  requireLines(asLines);
  requireAgreement(text, asLines);
  const Outcome forPeople = check(name, false);
  require(forPeople.status == asLines.status);
  require(vghost::liveArrays() == arrays && vghost::liveBlocks() == blocks);
  close(file);
  return 0;
}
