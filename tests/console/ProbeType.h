#pragma once

#include <graphics/datatype/HostAllocated.h>
#include <graphics/datatype/InvalidValueException.h>
#include <graphics/datatype/registration.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/catalog.h>
#include <messages/exceptions.h>
#include <ut/console.h>
#include <vcos/COSDataType.h>
#include <vcos/COSTypeConversion.h>
#include <vcos/COSTypeRepository.h>
#include <vx/array.h>
#include <vx/errors.h>

#include <stdexcept>
#include <string>

namespace test {

using vcos::COSValue;

/// A text. One that begins with "!" makes its conversions do what the rest says, such as "!parse".
struct Probe : graphics::datatype::HostAllocated {
  static COSValue make(const std::string& text) {
    if (text == "!host") vxErrMsgIdAndTxt("A:b", "text \xff");
    if (text == "!parse") throw gui_objects::convert_from_string_utils::ParseException();
    if (text == "!invalid") throw graphics::datatype::InvalidValueException("C:d", "out of range");
    if (text == "!cosmemory") throw vcos::COSOutOfMemoryException();
    if (text == "!hostmemory") throw Lindgrove::System::OutOfMemoryException_DEPRECATED();
    if (text == "!new") throw std::bad_alloc();
    if (text == "!standard") throw std::runtime_error("what it says");
    if (text == "!number") throw 7;
    if (text == "!talk") utPrintf("first\nsecond");
    if (text == "!leave") static_cast<void>(vxCreateDoubleScalar(1));
    if (text == "!warn") vxWarningMsgId(VORTIL::array::SizeLimitExceeded("2x3"));
    return COSValue::fromPointer(new Probe(text));
  }
  static const std::string& textOf(COSValue value) { return value.asPointer<const Probe>()->text; }

  explicit Probe(std::string ownText) : text(std::move(ownText)) {}
  std::string text;
};

class ProbeType final : public vcos::COSDataType {
 public:
  const char* getDeclarationName() const override { return "probe"; }
  const char* getName() const override { return "Probe"; }
  COSValue getDefaultValue() const override {
    static const Probe value("default");
    return COSValue::fromPointer(&value);
  }
  int getStorageType() const override { return 7; }
  const char* getCategoryName() const override { return "Test"; }
  std::size_t getSizeInBits() const override { return 64; }
  bool isEqual(COSValue a, COSValue b) const override {
    return a.isNull() || b.isNull() ? a == b : Probe::textOf(a) == Probe::textOf(b);
  }
  int compare(COSValue a, COSValue b) const override { return isEqual(a, b) ? 0 : 2; }
  std::size_t getValueSizeInBytes(COSValue) const override { return sizeof(Probe); }
  COSValue copy(COSValue value) const override {
    return value.isNull() ? value : Probe::make(Probe::textOf(value));
  }
  void destroy(COSValue value) const override { delete value.asPointer<Probe>(); }
};

/// From and to what `read` and `write` know.
template <auto read, auto write>
class ProbeConversion final : public vcos::COSTypeConversion {
  COSValue from(COSValue outside) const override { return Probe::make(read(outside)); }
  COSValue to(COSValue value) const override {
    return value.isNull() ? value : COSValue::fromPointer(write(Probe::textOf(value)));
  }
};

inline const char* readText(COSValue text) {
  return text.asPointer<char>();
}
inline char* writeText(const std::string& text) {
  if (text == "!to") vxErrMsgIdAndTxt("E:f", "no text");
  return utStrdup(text.c_str());
}
inline std::string readArray(COSValue array) {
  return vxArrayToStdString(array.asPointer<vxArray>());
}
inline vxArray* writeArray(const std::string& text) {
  if (text == "!to") throw std::bad_alloc();
  return vxCreateString(text.c_str());
}

/// In the library's package as "Probe".
inline void registerProbe() {
  graphics::datatype::registerDatatype(new ProbeType);
  const vcos::COSNameID name("vortil.graphics.datatype.Probe");
  vcos::COSTypeRepository::addConversion(vcos::COSNameID("string"), name,
                                         new ProbeConversion<readText, writeText>);
  vcos::COSTypeRepository::addConversion(vcos::COSNameID("any"), name,
                                         new ProbeConversion<readArray, writeArray>);
}

}  // namespace test
