#include "EnumJavaConverter.h"

#include "JavaObjects.h"

#include <graphics/datatype/EnumBase.h>
#include <messages/MessageCatalog.h>
#include <vcos/COSDataType.h>

#include <jni.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace graphics::datatype {

using fl::i18n::MessageCatalog;
using vcos::COSValue;

namespace {

constexpr const char* kFile = "src/EnumJavaConverter";
constexpr JavaName kClass{"com.lindgrove.util.CategoricalVariable"};
constexpr const char* kNewInstance =
    "(I[I[Ljava/lang/String;[Ljava/lang/String;)Lcom/lindgrove/util/CategoricalVariable;";

/// The labels of a type's names in the language of the host.
class Labels {
 public:
  explicit Labels(std::string typeName)
      : catalog_(MessageCatalog::openCatalog("VORTIL::vgdatatypes::vgdatatypes",
                                             fl::i18n::VwLocale::global())),
        key_(std::move(typeName)) {
    std::ranges::replace(key_, '.', '_');
    key_ += '_';
    stem_ = key_.size();
  }

  /// The name itself if it has none.
  fl::ustring of(const std::string& name) {
    key_.replace(stem_, std::string::npos, name);
    try {
      return catalog_->lookup(key_.c_str());
    } catch (const MessageCatalog::MessageNotFound&) {
      return fl::i18n::to_ustring(name);
    }
  }

 private:
  std::unique_ptr<MessageCatalog> catalog_;
  std::string key_;
  std::size_t stem_;
};

Local<jintArray> newNumbers(JNIEnv& java, const VGTypedEnumStringType& table, const Place& place) {
  std::vector<jint> numbers;
  numbers.reserve(table.getEnumStrings().size());
  for (const std::string& name : table.getEnumStrings())
    numbers.push_back(table.numberOf(name).asInteger<jint>());
  const jsize count = javaCount(numbers.size(), place);
  Local<jintArray> array(java, java.NewIntArray(count));
  requireMade(java, array.get(), place);
  java.SetIntArrayRegion(array.get(), 0, count, numbers.data());
  requireNoException(java, place);
  return array;
}

}  // namespace

vcos::JavaTypeConversion* VGTypedEnumStringType::createJavaConverter(
    const VGTypedEnumStringType* table, const char* typeName) {
  return new EnumJavaConverter(table, typeName);
}

EnumJavaConverter::EnumJavaConverter(const VGTypedEnumStringType* table, const char* typeName)
    : table_(table),
      typeName_(typeName) {
  const auto* const type = dynamic_cast<const vcos::COSDataType*>(table);
  nativeTypeName_ = type ? type->getName() : typeName;
}

const char* EnumJavaConverter::getJavaDeclarationName() {
  return kClass.dotted;
}

COSValue EnumJavaConverter::to(COSValue value) const {
  if (value.isNull()) return value;
  const int current = value.asPointer<const EnumBase>()->getIntValue();
  const std::vector<std::string>& names = table_->getEnumStrings();
  Labels labels(typeName_);
  const Place place(kFile);
  const JavaClass javaClass(*this, kClass, place);
  JNIEnv& java = javaClass.java();
  const Local<jintArray> numbers = newNumbers(java, *table_, place);
  const Local<jclass> stringClass = findStringClass(java, place);
  const auto nameTexts = newStringArray(
      java, stringClass.get(), names.size(),
      [&](std::size_t i) { return newAsciiString(java, names[i].c_str(), place); }, place);
  const auto labelTexts = newStringArray(
      java, stringClass.get(), names.size(),
      [&](std::size_t i) { return newJavaString(java, labels.of(names[i]), place); }, place);
  return COSValue::fromPointer(javaClass.newInstance(kNewInstance, current, numbers.get(),
                                                     nameTexts.get(), labelTexts.get()));
}

COSValue EnumJavaConverter::from(COSValue object) const {
  if (object.isNull())
    raiseJavaError("NULL is not a valid value for objects of enumerated type " + typeName_);
  auto* const given = object.asPointer<_jobject>();
  const JavaClass javaClass(*this, kClass, Place(kFile));
  if (!javaClass.java().IsInstanceOf(given, javaClass.get()))
    raiseJavaError(std::string("Input parameter is not an instance of ") + kClass.dotted);
  const std::string label = JavaObject(javaClass, given).text("getLabel");
  const vcos::COSTypeConversion* conversion = stringConversion_;
  if (!conversion) {
    conversion = &textConversionOf(typeName_.c_str());
    stringConversion_ = conversion;
  }
  return conversion->from(COSValue::fromPointer(label.c_str()));
}

}  // namespace graphics::datatype
