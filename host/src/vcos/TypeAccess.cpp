#include <dlfcn.h>
#include <ut/memory.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypeAccess.h>
#include <vcos/exceptions.h>
#include <vx/objects.h>

#include <algorithm>
#include <memory>
#include <string_view>

namespace vcos {
namespace {

/// A text conversion may answer with a constant of its library, which is nobody's to free. Such a
/// text lies inside the image of a loaded library, and a block of the heap never does.
bool isConstant(const char* text) noexcept {
  dl_find_object library{};
  return _dl_find_object(const_cast<char*>(text), &library) == 0;
}

struct FreeText {
  void operator()(char* text) const noexcept {
    if (!isConstant(text)) utFree(text);
  }
};

/// Types whose text conversion reads a host array where others read a value.
constexpr std::string_view kTextFromArray[] = {
    "vortil.graphics.datatype.Inset", "vortil.graphics.datatype.Point2d",
    "vortil.graphics.datatype.Point3", "vortil.graphics.datatype.PositivePoint3"};

/// The type whose array conversion lends the object that a number stands for, where others give a
/// value of its own.
constexpr std::string_view kReferences = "vortil.graphics.datatype.COSInterface";

/// An array of the object that a number stands for; the empty handle if there is none.
ArrayOwner objectOf(const vxArray* number, COSNameID type) {
  const COSTypeConversion* numbers = COSTypeRepository::getConversion(COSNameID("double"), type);
  auto* const object =
      numbers ? numbers->from(COSValue::fromDouble(vxGetScalar(number))).asPointer<COSInterface>()
              : nullptr;
  return ArrayOwner(omCreateVCOSScalar(COSInterfacePtr(object)));
}

bool isNumber(const vxArray* array) {
  return array && vxGetClassID(array) == vxDOUBLE_CLASS && !vxIsEmpty(array);
}

}  // namespace

bool holdsNothing(const COSDataType& type, COSValue value) {
  return type.getValueSizeInBytes(value) == 0;
}

COSValue copyValue(const COSDataType& type, COSValue value) {
  return holdsNothing(type, value) ? COSValue() : type.copy(value);
}

void destroyValue(const COSDataType& type, COSValue value) {
  if (!holdsNothing(type, value)) type.destroy(value);
}

TypeAccess::TypeAccess(COSNameID name, COSDataType& dataType)
    : name_(name),
      dataType_(&dataType),
      text_(COSTypeRepository::getConversion(COSNameID("string"), name)),
      array_(COSTypeRepository::getConversion(COSNameID("any"), name)),
      isTextFromArray_(std::ranges::find(kTextFromArray, std::string_view(name.c_str())) !=
                       std::ranges::end(kTextFromArray)),
      isReference_(name.c_str() == kReferences) {}

std::optional<TypeAccess> TypeAccess::find(COSNameID name) {
  COSDataType* dataType = COSTypeRepository::getType(name).getObject();
  if (!dataType) return std::nullopt;
  return TypeAccess(name, *dataType);
}

COSValue TypeAccess::fromText(const char* text) const {
  struct Free {
    void operator()(char* block) const noexcept { utFree(block); }
  };
  std::unique_ptr<char, Free> copy(utStrdup(text));
  if (text && !copy) throw COSOutOfMemoryException();
  const COSValue value = text_->from(COSValue::fromPointer(copy.get()));
  if (value == COSValue::fromPointer(copy.get())) static_cast<void>(copy.release());
  return value;
}

COSValue TypeAccess::fromArray(const vxArray* array) const {
  if (isReference_ && isNumber(array))
    return array_->from(COSValue::fromPointer(objectOf(array, name_).get()));
  return array_->from(COSValue::fromPointer(array));
}

std::optional<std::string> TypeAccess::toText(COSValue value) const {
  ArrayOwner array;
  if (isTextFromArray_ && !value.isNull()) {
    array = toArray(value);
    value = COSValue::fromPointer(array.get());
  }
  const COSValue converted = text_->to(value);
  std::unique_ptr<char, FreeText> text(converted.asPointer<char>());
  // The word itself is the value's own text.
  char* const characters = converted == value ? text.release() : text.get();
  return characters ? std::optional<std::string>(characters) : std::nullopt;
}

ArrayOwner TypeAccess::toArray(COSValue value) const {
  return ArrayOwner(array_->to(value).asPointer<vxArray>());
}

}  // namespace vcos
