// A text that parses as a literal prints as one that describes the same array.

#include "fuzz_target.h"
#include "literal/Literal.h"
#include "literal/LiteralPrinter.h"
#include "requests/JsonForms.h"

#include <messages/exceptions.h>

#include <vx/array.h>

#include <cstdlib>
#include <sstream>

namespace {

constexpr std::size_t kElementsWorthPrinting = 10'000;

std::string jsonOf(const vxArray* array) {
  std::ostringstream json;
  vgdt::JsonWriter writer(json);
  vgdt::writeArray(writer, array);
  writer.flush();
  return json.str();
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vghost::setArrayMemoryLimit(kMemoryLimit);
  try {
    const vcos::ArrayOwner array =
        vgdt::parseLiteral(std::string_view(reinterpret_cast<const char*>(data), size));
    if (vxGetNumberOfElements(array.get()) > kElementsWorthPrinting) return 0;
    const vcos::ArrayOwner again = vgdt::parseLiteral(vgdt::formatLiteral(array.get()));
    if (jsonOf(array.get()) != jsonOf(again.get())) std::abort();
  } catch (const vgdt::LiteralError&) {
  } catch (const Lindgrove::System::utErrorException_DEPRECATED&) {
  }
  return 0;
}
