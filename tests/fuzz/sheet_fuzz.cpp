// Any file is checked to its end, for people and as lines of JSON, and leaves nothing behind.

#include "commands/Commands.h"
#include "fuzz_target.h"

#include <graphics/datatype/vgdatatypes.h>
#include <sys/mman.h>
#include <unistd.h>

#include <ut/memory.h>
#include <vx/array.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <sstream>

namespace {

void require(bool isTrue) {
  if (!isTrue) std::abort();
}

struct Outcome {
  Outcome(const std::string& file, bool asJson) {
    const vgdt::Style plain(vgdt::ColorDepth::None);
    status = vgdt::checkSheets({output, errors, plain, plain}, {file}, asJson, false);
  }
  std::stringstream output;
  std::stringstream errors;
  vgdt::ExitStatus status;
};

/// As another parser sees it, where both have to agree: that one takes a NUL as the end, and
/// refuses halves of surrogate pairs and numbers that are out of range.
void requireAgreement(const std::string& text, const std::string& errors) {
  if (text.find('\0') != text.npos) return;
  if (nlohmann::json::accept(text))
    require(errors.empty() || errors.find("nested more than") != errors.npos);
  else if (errors.empty())
    require(text.find("\\u") != text.npos || text.find_first_of("eE") != text.npos ||
            text.size() > 300);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vghost::setArrayMemoryLimit(kMemoryLimit / 256);  // what is refused is also printed
  VLInitialize_vgdatatypes();
  const int file = memfd_create("sheet", 0);
  require(file >= 0 && write(file, data, size) == static_cast<ssize_t>(size));
  const std::string name = "/proc/self/fd/" + std::to_string(file);
  const Outcome forPeople(name, false);  // a value may look for names, which are kept
  const std::size_t arrays = vghost::liveArrays();
  const std::size_t blocks = vghost::liveBlocks();
  Outcome asLines(name, true);
  const bool isJson = asLines.errors.str().empty();
  requireAgreement(std::string(reinterpret_cast<const char*>(data), size), asLines.errors.str());
  std::uint64_t refusals = 0;
  nlohmann::json json;
  for (std::string line; std::getline(asLines.output, line);) {
    json = nlohmann::json::parse(line);
    if (!json.contains("refused")) ++refusals;
  }
  require(json.at("refused") == refusals);
  require(asLines.status == (!isJson         ? vgdt::kNotUnderstood
                             : refusals == 0 ? vgdt::kDone
                                             : vgdt::kRefused));
  require(forPeople.status == asLines.status);
  require(vghost::liveArrays() == arrays && vghost::liveBlocks() == blocks);
  close(file);
  return 0;
}
