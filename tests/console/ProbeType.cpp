#include "ProbeType.h"

#include <graphics/datatype/InvalidValueException.h>
#include <graphics/datatype/registration.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/catalog.h>
#include <messages/exceptions.h>
#include <ut/console.h>
#include <ut/memory.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/exceptions.h>
#include <vx/array.h>
#include <vx/errors.h>

#include <stdexcept>

namespace test {
namespace {

using vcos::COSValue;

void failAs(const std::string& text) {
  if (text == "!host") vxErrMsgIdAndTxt("A:b", "text \xff");
  if (text == "!parse") throw gui_objects::convert_from_string_utils::ParseException();
  if (text == "!invalid") throw graphics::datatype::InvalidValueException("C:d", "out of range");
  if (text == "!cosmemory") throw vcos::COSOutOfMemoryException();
  if (text == "!hostmemory") throw Lindgrove::System::OutOfMemoryException_DEPRECATED();
  if (text == "!new") throw std::bad_alloc();
  if (text == "!standard") throw std::runtime_error("what it says");
  if (text == "!number") throw 7;
}

class TextConversion final : public vcos::COSTypeConversion {
 public:
  COSValue from(COSValue text) const override {
    return ProbeType::instance().make(text.asPointer<char>());
  }
  COSValue to(COSValue value) const override {
    if (value.isNull()) return {};
    const std::string& text = ProbeType::textOf(value);
    if (text == "!to") vxErrMsgIdAndTxt("E:f", "no text");
    return COSValue::fromPointer(utStrdup(text.c_str()));
  }
};

class ArrayConversion final : public vcos::COSTypeConversion {
 public:
  COSValue from(COSValue array) const override {
    return ProbeType::instance().make(vxArrayToStdString(array.asPointer<vxArray>()));
  }
  COSValue to(COSValue value) const override {
    if (value.isNull()) return {};
    const std::string& text = ProbeType::textOf(value);
    if (text == "!to") throw std::bad_alloc();
    return COSValue::fromPointer(vxCreateString(text.c_str()));
  }
};

}  // namespace

ProbeType& ProbeType::instance() {
  static ProbeType& type = []() -> ProbeType& {
    auto* made = new ProbeType;
    graphics::datatype::registerDatatype(made);
    const vcos::COSNameID name("vortil.graphics.datatype.Probe");
    vcos::COSTypeRepository::addConversion(vcos::COSNameID("string"), name, new TextConversion);
    vcos::COSTypeRepository::addConversion(vcos::COSNameID("any"), name, new ArrayConversion);
    return *made;
  }();
  return type;
}

COSValue ProbeType::getDefaultValue() const {
  static const std::string text = "default";
  return COSValue::fromPointer(&text);
}

bool ProbeType::isEqual(COSValue a, COSValue b) const {
  return a.isNull() || b.isNull() ? a == b : textOf(a) == textOf(b);
}

COSValue ProbeType::copy(COSValue value) const {
  return value.isNull() ? value : make(textOf(value));
}

void ProbeType::destroy(COSValue value) const {
  if (value.isNull()) return;
  --live_;
  delete value.asPointer<std::string>();
}

COSValue ProbeType::make(const std::string& text) const {
  failAs(text);
  if (text == "!talk") utPrintf("first\nsecond");
  if (text == "!leave") static_cast<void>(vxCreateDoubleScalar(1));
  if (text == "!warn") vxWarningMsgId(VORTIL::array::SizeLimitExceeded("2x3"));
  auto* const value = new std::string(text);
  ++live_;
  return COSValue::fromPointer(value);
}

}  // namespace test
