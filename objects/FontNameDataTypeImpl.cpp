#include "HostText.h"
#include "JavaObjects.h"
#include "PropertyDataType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/FontNameDataType.h>
#include <java/environment.h>
#include <java/strings.h>
#include <ut/unicode.h>
#include <vx/array.h>
#include <vx/errors.h>

#include <jni.h>

#include <cstring>
#include <memory>
#include <string>

namespace graphics::datatype {

using gui_objects::UTF16String;
using vcos::COSValue;

template <>
struct PropertyTypeTraits<FontNameDataType> {
  static constexpr std::size_t kBytes = 1;  // kept: a character, however long the name is
};
template class NamedDataType<FontNameDataType>;

namespace {

constexpr const char* kError = "VORTIL:class:VORTILConversionError";

bool isRow(const vxArray* array) {
  return array && !vxIsEmpty(array) && vxGetNumberOfDimensions(array) == 2 && vxGetM(array) == 1;
}

}  // namespace

COSValue FontNameDataType::getDefaultValue() const {
  static constinit COSValue name;
  if (name.isNull()) name = COSValue::fromPointer(copyText("FixedWidth"));
  return name;
}

bool FontNameDataType::isEqual(COSValue a, COSValue b) const {
  if (a.isNull()) return b.isNull();
  return std::strcmp(a.asPointer<const char>(), b.isNull() ? "" : b.asPointer<const char>()) == 0;
}

COSValue FontNameDataType::copy(COSValue value) const {
  return COSValue::fromPointer(copyText(value.asPointer<const char>()));
}

void FontNameDataType::destroy(COSValue value) const {
  utFree(value.asPointer<char>());
}

COSValue FontNameSC::to(COSValue value) const {
  return value;
}

COSValue FontNameSC::from(COSValue text) const {
  return COSValue::fromPointer(copyText(text.asPointer<const char>()));
}

COSValue FontNameVC::to(COSValue value) const {
  return arrayTextConversion()->to(value);
}

COSValue FontNameVC::from(COSValue array) const {
  if (!isRow(array.asPointer<const vxArray>())) vxErrMsgIdAndTxt(kError, "Invalid font name");
  HostText name(arrayTextConversion()->from(array).asPointer<char>());
  if (!name || *name == '\0') vxErrMsgIdAndTxt(kError, "Invalid font: null or empty string");
  return COSValue::fromPointer(name.release());
}

VGDT_REGISTER_TYPE(FontName, init_VortilGraphicsDatatype_FontNameDataType,
                   init_VortilGraphicsDatatype_FontNameDataType_callback)

UTF16String asUTF16String(const char* text) {
  if (!text) return {};
  struct Free {
    void operator()(unsigned short* units) const noexcept { utFree(units); }
  };
  const std::unique_ptr<unsigned short, Free> units(utf8_to_utf16(text, -1));
  if (!units) throw vcos::COSOutOfMemoryException();
  return units.get();
}

// --- Java ---------------------------------------------------------------------------------------

namespace {

constexpr const char* kFile = "objects/FontNameDataTypeImpl";
constexpr JavaName kFontName{"com.lindgrove.vg.types.VGFontName"};

}  // namespace

bool isFontNameValidIgnoreCase(const char* name) {
  if (!name || *name == '\0') return false;
  JNIEnv* const java = GetJNIEnvR();
  if (!java) return true;
  const Local<jclass> javaClass(*java, java->FindClass(kFontName.path));
  if (!javaClass.get() || java->ExceptionCheck()) {
    java->ExceptionClear();
    vxErrMsgIdAndTxt(kError, "JNI cannot find class %s in file %s line %d", kFontName.path, kFile,
                     __LINE__);
  }
  const Local<jstring> javaName(*java, vljCreateStringFromUString(java, asUTF16String(name)));
  const jmethodID isValid =
      javaName.get() ? java->GetStaticMethodID(javaClass.get(), "isFontNameValidIgnoreCase",
                                               "(Ljava/lang/String;)Z")
                     : nullptr;
  const bool result = isValid && java->CallStaticBooleanMethod(javaClass.get(), isValid,
                                                               javaName.get()) == JNI_TRUE;
  if (!java->ExceptionCheck()) return result;
  java->ExceptionClear();
  return false;
}

namespace {

struct FontNameInJava {
  using Value = char;  // the first of the name
  static constexpr JavaName kClass = kFontName;
  static constexpr const char* kFile = graphics::datatype::kFile;
  static constexpr const char* kNullText = "Invalid font: null";

  static jobject toJava(const JavaClass& javaClass, const char& name) {
    const auto javaName = newJavaString(javaClass.java(), &name, Place(kFile));
    return javaClass.newInstance("(Ljava/lang/String;)Lcom/lindgrove/vg/types/VGFontName;",
                                 javaName.get());
  }
  static COSValue fromJava(const JavaObject& object) {
    const std::string name = object.text("getFontName");
    if (name.empty()) Place(kFile).raise("Invalid font name");
    return COSValue::fromPointer(copyText(name.c_str()));
  }
};

}  // namespace

VGDT_JAVA_CONVERSION(FontNameJC, FontNameInJava)

}  // namespace graphics::datatype
