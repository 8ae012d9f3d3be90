// The library itself.

#include "Library.h"

#include <graphics/datatype/VGTypedEnumStringType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <vcos/COSNameID.h>
#include <vcos/COSPackage.h>
#include <vcos/COSTypeConversion.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypeAccess.h>
#include <vx/array.h>

#include <algorithm>
#include <string>

namespace peers {
namespace {

using graphics::datatype::VGTypedEnumStringType;
using vcos::COSDataType;
using vcos::COSNameID;
using vcos::COSTypeRepository;
using vcos::COSValue;

constexpr const char* kPackage = "vortil.graphics.datatype";
constexpr const char* kType = "vortil.graphics.datatype.MarkerStyle";

void addLookUp(const VGTypedEnumStringType& table) {
  const auto lookUp = [&table](const char* text) {
    return table.getEnumValue(text).asInteger<int>();
  };
  compete(kNameToValue, kOurs, Goal::kNone, exactInputs(), lookUp);
  compete(kAbbreviationToValue, kOurs, Goal::kNone, abbreviatedInputs(), lookUp);
}

void addSetting(const COSDataType& dataType, const VGTypedEnumStringType& table) {
  const COSNameID outside("string");
  const COSNameID inner(kType);
  const auto fromText = [outside, inner](const char* text) {
    return COSTypeRepository::getConversion(outside, inner)->from(COSValue::fromPointer(text));
  };
  verify(kOurs, exactInputs(), [&](const char* text) {
    const vcos::OwnedValue value(dataType, fromText(text));
    const std::string name = vcos::TypeAccess::find(inner)->toText(value.get()).value_or("");
    return table.getEnumValue(name.c_str()).asInteger<int>();
  });
  measure(kSetFromText, kOurs, Goal::kNone, exactInputs(),
          [&dataType, fromText](const Input& input) {
            COSValue value = fromText(input.text);
            benchmark::DoNotOptimize(value);
            dataType.destroy(value);
          });
}

double startUp(std::size_t) {
  const double seconds = secondsOf(VLInitialize_vgdatatypes);
  if (!COSTypeRepository::getConversion(COSNameID("string"), COSNameID(kType)))
    fail("start-up has left out MarkerStyle");
  return seconds;
}

void addLibrary() {
  competeAtStartUp(kOurs, Goal::kNone, startUp);
  const COSDataType& dataType = libraryType(kType);
  const auto* table = dynamic_cast<const VGTypedEnumStringType*>(&dataType);
  if (!table) fail("MarkerStyle is no enumerated type");
  addLookUp(*table);
  addSetting(dataType, *table);
}

[[maybe_unused]] const bool added = addContender(addLibrary);

}  // namespace

const COSDataType& libraryType(const char* name) {
  VLInitialize_vgdatatypes();
  const COSDataType* type = COSTypeRepository::getType(COSNameID(name)).getObject();
  if (!type) fail(std::string("the library has no ") + name);
  return *type;
}

double countLibraryTypes(std::size_t) {
  VLInitialize_vgdatatypes();
  return static_cast<double>(
      vcos::COSPackage::getPackage(COSNameID(kPackage))->getDataTypes().size());
}

vcos::ArrayOwner newArray(std::span<const double> elements) {
  vcos::ArrayOwner array(vxCreateDoubleMatrix(1, elements.size(), vxREAL));
  std::ranges::copy(elements, static_cast<double*>(vxGetWritableData(array.get())));
  return array;
}

}  // namespace peers
