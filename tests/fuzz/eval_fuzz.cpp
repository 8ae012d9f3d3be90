// Any line is answered with one line of JSON.

#include "fuzz_target.h"
#include "requests/Eval.h"

#include <graphics/datatype/vgdatatypes.h>

#include <vx/array.h>

#include <cstdlib>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vghost::setArrayMemoryLimit(kMemoryLimit);
  VLInitialize_vgdatatypes();
  const vgdt::Served served =
      vgdt::serveLine(std::string_view(reinterpret_cast<const char*>(data), size));
  const std::string line = vgdt::dump(served.reply);
  if (line.find('\n') != std::string::npos || !nlohmann::json::accept(line)) std::abort();
  if (!served.reply.at("ok").is_boolean()) std::abort();
  return 0;
}
