// Any line is answered with one line of JSON.

#include "fuzz_target.h"
#include "requests/Eval.h"

#include <graphics/datatype/vgdatatypes.h>

#include <vx/array.h>
#include <nlohmann/json.hpp>

#include <cstdlib>
#include <sstream>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vghost::setArrayMemoryLimit(kMemoryLimit);
  VLInitialize_vgdatatypes();
  std::ostringstream output;
  vgdt::JsonWriter writer(output);
  const vgdt::Served served =
      vgdt::serveLine(std::string_view(reinterpret_cast<const char*>(data), size));
  vgdt::writeReply(writer, served.request, served.reply);
  const std::string line = output.str();
  if (line.find('\n') != line.size() - 1) std::abort();
  if (!nlohmann::json::parse(line).at("ok").is_boolean()) std::abort();
  return 0;
}
