#include "JavaObjects.h"
#include "OnOffBooleanJavaConverter.h"
#include "TypeRegistration.h"
#include "WordEnumeration.h"

#include <graphics/datatype/OnOffBooleanDataType.h>
#include <messages/catalog.h>
#include <vx/array.h>
#include <vx/errors.h>
#include <vx/protected_array.h>

#include <locale>
#include <string>

namespace graphics::datatype {

using vcos::COSValue;
namespace messages = VORTIL::datatypes::onoffboolean;

namespace {

constexpr std::size_t kReportedBytes = 1;  // kept, although a word holds the value

class BoolEnumeration final : public WordEnumeration {};

const char* textOf(COSValue value) {
  return value.asLogical() ? "on" : "off";
}

Vprotected_vxArray guardedText(bool value) {
  Vprotected_vxArray array(vxCreateString(textOf(COSValue::fromLogical(value))));
  array.myLocalize();
  return array;
}

}  // namespace

vcos::COSDataType* OnOffBooleanDataType::getType() {
  static OnOffBooleanDataType* type = nullptr;
  if (!type) type = new OnOffBooleanDataType;
  return type;
}

const char* OnOffBooleanDataType::getDeclarationName() const {
  return "char";
}
const char* OnOffBooleanDataType::getName() const {
  return "on_off";
}
const char* OnOffBooleanDataType::getPossibleValuesDescription() const {
  return "on/off";
}
bool OnOffBooleanDataType::isPossibleValuesFinite() const {
  return true;
}

vcos::Enumeration<COSValue> OnOffBooleanDataType::getPossibleValues() const {
  auto* list = new BoolEnumeration;
  vcos::Enumeration<COSValue> values(list);
  list->reserve(2);
  list->add(COSValue::fromLogical(true));
  list->add(COSValue::fromLogical(false));
  return values;
}

COSValue OnOffBooleanDataType::getDefaultValue() const {
  return COSValue::fromLogical(false);
}
int OnOffBooleanDataType::getStorageType() const {
  return 0;
}
const char* OnOffBooleanDataType::getCategoryName() const {
  return "Fundamental";
}
std::size_t OnOffBooleanDataType::getSizeInBits() const {
  return 8 * kReportedBytes;
}
std::size_t OnOffBooleanDataType::getValueSizeInBytes(COSValue) const {
  return kReportedBytes;
}

bool OnOffBooleanDataType::isEqual(COSValue a, COSValue b) const {
  return a.asLogical() == b.asLogical();
}

int OnOffBooleanDataType::compare(COSValue a, COSValue b) const {
  return int{a.asLogical()} - int{b.asLogical()};
}

COSValue OnOffBooleanDataType::copy(COSValue value) const {
  return value;
}
void OnOffBooleanDataType::destroy(COSValue) const {}

COSValue OnOffBooleanSC::to(COSValue value) const {
  return COSValue::fromPointer(textOf(value));
}

COSValue OnOffBooleanSC::from(COSValue text) const {
  if (text.isNull()) vxErrMsgId(messages::UnknownOnOffBooleanValue());
  std::string lowered = text.asPointer<const char>();
  std::use_facet<std::ctype<char>>(std::locale())
      .tolower(lowered.data(), lowered.data() + lowered.size());
  if (lowered == "on") return COSValue::fromLogical(true);
  if (lowered == "off" || lowered == "of") return COSValue::fromLogical(false);
  vxErrMsgId(messages::UnknownOnOffBooleanValue());
}

COSValue OnOffBooleanVC::to(COSValue value) const {
  static const Vprotected_vxArray on = guardedText(true);
  static const Vprotected_vxArray off = guardedText(false);
  const Vprotected_vxArray& text = value.asLogical() ? on : off;
  return COSValue::fromPointer(vxCreateSharedDataCopy(text.get()));
}

COSValue OnOffBooleanVC::from(COSValue value) const {
  const auto* array = value.asPointer<const vxArray>();
  if (!array || vxGetClassID(array) != vxCHAR_CLASS) vxErrMsgId(messages::IncorrectValue());
  std::string text;
  try {
    text = vxArrayToStdString(array);
  } catch (...) {
    vxErrMsgId(component_VORTIL::component_vg::catalog_datatypes::key_OutOfMemory());
  }
  return OnOffBooleanSC().from(COSValue::fromPointer(text.c_str()));
}

namespace {

class OnOffBooleanJavaConverter final : public AbstractJavaConverter {
 public:
  COSValue to(COSValue value) const override {
    return COSValue::fromPointer(JavaClass(*this, kClass, Place(kFile))
                                     .create("(Z)V", static_cast<jboolean>(value.asLogical())));
  }

  COSValue from(COSValue object) const override {
    return objectFromJava<OnOffBooleanJavaConverter>(*this, object, Place(kFile));
  }

  const char* getJavaDeclarationName() override { return kClass.dotted; }

  static constexpr JavaName kClass{"java.lang.Boolean"};
  static constexpr const char* kFile = "src/OnOffBooleanDataType";
  static constexpr const char* kNullText = "Input parameter for OnOffBoolean must not be NULL ";

  static COSValue fromJava(const JavaObject& object) {
    return COSValue::fromLogical(object.truth("booleanValue"));
  }
};

/// The conversion of "bool", which only this type has, comes between those for text and for Java.
vcos::JavaTypeConversion* addBoolFirst(vcos::COSDataType&, const char*) {
  addConversion<OnOffBooleanSC>("string", "bool");
  return new OnOffBooleanJavaConverter;
}

}  // namespace

std::unique_ptr<AbstractJavaConverter> newOnOffBooleanJavaConverter() {
  return std::make_unique<OnOffBooleanJavaConverter>();
}

/// This type alone says so when the class system refuses it.
template <>
void registerType<OnOffBooleanDataType, OnOffBooleanVC, OnOffBooleanSC, addBoolFirst>() {
  auto* type = dynamic_cast<OnOffBooleanDataType*>(OnOffBooleanDataType::getType());
  if (!type) return;
  try {
    addType(*type, OnOffBooleanDataType::kDottedName,
            {makeConversion<OnOffBooleanDataType, OnOffBooleanVC>,
             makeConversion<OnOffBooleanDataType, OnOffBooleanSC>, addBoolFirst});
  } catch (const vcos::COSException&) {
    vxErrMsgId(messages::MultipleRegistry());
  }
}

static void registerOnOffBoolean();
VGDT_REGISTER_TYPE_WITH(OnOffBoolean, addBoolFirst, init_datatypes_OnOffBooleanDataType,
                        registerOnOffBoolean)

}  // namespace graphics::datatype
