// The array of a literal becomes a text or a list of styles, or is refused as documented; what goes
// back is taken again and gives the same. The first character chooses the type: S is NLineStyles,
// any other NumericOrString.

#include "fuzz_target.h"
#include "literal/Literal.h"
#include "literal/LiteralPrinter.h"

#include <graphics/datatype/NLineStylesDataType.h>
#include <graphics/datatype/TextStringDataType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <messages/exceptions.h>
#include <ut/memory.h>
#include <vx/errors.h>
#include <boost/shared_ptr.hpp>

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace {

using namespace graphics::datatype;
using vcos::ArrayOwner;
using vcos::OwnedValue;

void require(bool holds) {
  if (!holds) std::abort();
}

bool hasLineFeed(const gui_objects::UTF16String& line) {
  return line.find('\n') != line.npos;
}

void checkText(const TextString& text) {
  boost::shared_ptr<resource_core::BaseMsgID> message;
  require(TextString().isValid(text.getPtr(), message));
  require(std::ranges::none_of(text.getUTF16String(), hasLineFeed));
}

/// Whether the styles can be taken again: in cells as they are, in rows only if none is padded or
/// ends at a NUL, and if they make no single column.
bool comesBack(const NLineStyles& styles, const vxArray* array) {
  const auto& all = styles.getStyles();
  const auto isWhole = [&](const LineMarkerStyle& style) {
    const std::string_view text = style.getString();
    const bool isCell = vxGetClassID(array) == vxCELL_CLASS;
    return style == LineMarkerStyle(std::string(text)) &&
           (isCell || (text.size() == vxGetN(array) && (all.size() == 1 || text.size() > 1)));
  };
  return std::ranges::all_of(all, isWhole);
}

void check(const vcos::TypeAccess& type, bool isText, const vxArray* array) {
  const vcos::COSDataType& dataType = type.dataType();
  const OwnedValue value(dataType, type.fromArray(array));
  const OwnedValue copy(dataType, copyValue(dataType, value.get()));
  require(dataType.isEqual(value.get(), copy.get()));
  const ArrayOwner made = type.toArray(value.get());
  const auto isCell = [](const vxArray* given) { return vxGetClassID(given) == vxCELL_CLASS; };
  require(isCell(made.get()) == isCell(array));
  if (isText)
    checkText(*value.get().asPointer<const TextString>());
  else if (!comesBack(*value.get().asPointer<const NLineStyles>(), made.get()))
    return;
  const OwnedValue again(dataType, type.fromArray(made.get()));
  require(dataType.isEqual(value.get(), again.get()));
  require(vgdt::formatLiteral(made.get()) == vgdt::formatLiteral(type.toArray(again.get()).get()));
}

/// Whether the error that the host raised last is one of the type, or of a text that is too large.
bool isStated(bool isText) {
  const char* identifier = nullptr;
  const char* message = nullptr;
  vxGetLastErrIdAndMsg(&identifier, &message);
  const std::string_view given = identifier;
  return given == "VORTIL:array:SizeLimitExceeded" ||
         given.starts_with(isText ? "VORTIL:vg:datatypes:" : "VORTIL:vgdatatypes:");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vghost::setArrayMemoryLimit(kMemoryLimit / 256);  // what is made is also printed
  VLInitialize_vgdatatypes();
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const bool isText = !input.starts_with('S');
  const auto type =
      vcos::TypeAccess::find(vcos::COSNameID(isText ? "vortil.graphics.datatype.NumericOrString"
                                                    : "vortil.graphics.datatype.NLineStyles"));
  try {
    const ArrayOwner array = vgdt::parseLiteral(input.substr(std::min<std::size_t>(size, 1)));
    const std::size_t arrays = vghost::liveArrays();
    const std::size_t blocks = vghost::liveBlocks();
    try {
      check(*type, isText, array.get());
    } catch (const Lindgrove::System::utErrorException_DEPRECATED&) {
      require(isStated(isText));
    }
    require(vghost::liveArrays() == arrays && vghost::liveBlocks() == blocks);
  } catch (const vgdt::LiteralError&) {
  } catch (const Lindgrove::System::utErrorException_DEPRECATED&) {
    // The literal's array is too large.
  }
  return 0;
}
