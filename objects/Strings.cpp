#include "HostText.h"
#include "JavaObjects.h"
#include "NewArray.h"
#include "PropertyDataType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/CaseInsensitiveStringDataType.h>
#include <graphics/datatype/NStringsDataType.h>
#include <graphics/datatype/UTF16StringDataType.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/catalog.h>
#include <vx/errors.h>

#include <strings.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace graphics::datatype {

using gui_objects::UTF16String;
using vcos::COSValue;

// --- UTF16String --------------------------------------------------------------------------------

template <>
struct PropertyTypeTraits<UTF16StringDataType> : PlainValues<UTF16String> {
  static constexpr std::size_t kBytes = 8;  // kept: a pointer, although the string is larger
};
template class NamedDataType<UTF16StringDataType>;
template class PropertyDataType<UTF16StringDataType, UTF16String>;

namespace {

/// Null for null and for an empty text, which are written alike.
const UTF16String* textIn(COSValue value) {
  const auto* const text = value.asPointer<const UTF16String>();
  return text && !text->empty() ? text : nullptr;
}

UTF16String oneString(const vxArray* array) {
  if (!array) return {};
  if (vxGetClassID(array) != vxCHAR_CLASS)
    vxErrMsgId(VORTIL::datatypes::UTF16StringDataType::ArrayClass());
  if (vxIsEmpty(array)) return {};
  std::vector<UTF16String> strings = gui_objects::createUTF16StringsFromArray(array);
  if (strings.empty()) return {};
  if (strings.size() > 1) vxErrMsgId(VORTIL::datatypes::UTF16StringDataType::NumberOfStrings());
  return std::move(strings.front());
}

}  // namespace

COSValue UTF16StringSC::to(COSValue value) const {
  const UTF16String* const text = textIn(value);
  if (!text) return {};
  auto* const bytes = static_cast<char*>(utMalloc(text->size() + 1));
  if (!bytes) throw vcos::COSOutOfMemoryException();
  // Kept: callers rely on one byte for each unit.
  *std::ranges::transform(*text, bytes, [](auto unit) { return static_cast<char>(unit); }).out =
      '\0';
  return COSValue::fromPointer(bytes);
}

COSValue UTF16StringSC::from(COSValue text) const {
  return COSValue::fromPointer(
      new UTF16String(gui_objects::test::makeUTF16StringFromCharPtr(text.asPointer<const char>())));
}

COSValue UTF16StringVC::to(COSValue value) const {
  const UTF16String* const text = textIn(value);
  return COSValue::fromPointer(text ? vxCreateString_UTF16(text->data(), text->size())
                                    : vxCreateNumericMatrix(0, 0, vxCHAR_CLASS, vxREAL));
}

COSValue UTF16StringVC::from(COSValue array) const {
  return COSValue::fromPointer(new UTF16String(oneString(array.asPointer<const vxArray>())));
}

namespace {

constexpr const char* kJavaFile = "objects/Strings";
constexpr JavaName kJavaString{"java.lang.String"};
constexpr JavaName kJavaStrings{"java.lang.String[]"};

struct UTF16StringInJava {
  static constexpr JavaName kClass = kJavaString;

  static COSValue ofNull() { return COSValue::fromPointer(new UTF16String); }
  static COSValue fromJava(const JavaObject& object) {
    return COSValue::fromPointer(new UTF16String(
        unitsOf(object.java(), static_cast<jstring>(object.get()), Place(kJavaFile))));
  }
};

struct NStringsInJava {
  static constexpr JavaName kClass = kJavaStrings;

  static COSValue ofNull() { return COSValue::fromPointer(new NStrings); }
  static COSValue fromJava(const JavaObject& object) {
    std::vector<UTF16String> list;
    forEachText(
        object.java(), static_cast<jobjectArray>(object.get()),
        [&list](UTF16String text) { list.push_back(std::move(text)); }, Place(kJavaFile));
    const ArrayPtr cells(vxCreateCellMatrix(list.size(), 1));
    for (std::size_t i = 0; i < list.size(); ++i)
      vxSetCell(cells.get(), i, vxCreateString_UTF16(list[i].data(), list[i].size()));
    return COSValue::fromPointer(new NStrings(cells.get()));
  }
};

}  // namespace

COSValue UTF16StringJC::to(COSValue value) const {
  const Place place(kJavaFile);
  const auto* const text = value.asPointer<const UTF16String>();
  return COSValue::fromPointer(newJavaString(requireJava(*this, kJavaString.path, place),
                                             text ? *text : UTF16String(), place)
                                   .release());
}

COSValue UTF16StringJC::from(COSValue object) const {
  return objectFromJava<UTF16StringInJava>(*this, object, Place(kJavaFile));
}

const char* UTF16StringJC::getJavaDeclarationName() {
  return kJavaString.dotted;
}

VGDT_REGISTER_TYPE(UTF16String, init_VortilGraphicsDatatype_UTF16StringDataType,
                   init_VortilGraphicsDatatype_UTF16StringDataType_callback)

// --- CaseInsensitiveString ----------------------------------------------------------------------

template <>
struct PropertyTypeTraits<CaseInsensitiveStringDataType> {
  static constexpr std::size_t kBytes = 1;  // kept: a character, however long the text is
};
template class NamedDataType<CaseInsensitiveStringDataType>;

COSValue CaseInsensitiveStringDataType::getDefaultValue() const {
  return {};
}

bool CaseInsensitiveStringDataType::isEqual(COSValue a, COSValue b) const {
  if (a.isNull() || b.isNull()) return a == b;
  return strcasecmp(a.asPointer<const char>(), b.asPointer<const char>()) == 0;
}

COSValue CaseInsensitiveStringDataType::copy(COSValue value) const {
  return COSValue::fromPointer(copyText(value.asPointer<const char>()));
}

void CaseInsensitiveStringDataType::destroy(COSValue value) const {
  utFree(value.asPointer<char>());
}

COSValue CaseInsensitiveStringSC::to(COSValue) const {
  return {};
}

COSValue CaseInsensitiveStringSC::from(COSValue text) const {
  return text;
}

COSValue CaseInsensitiveStringVC::to(COSValue value) const {
  return COSValue::fromPointer(vxCreateString(value.asPointer<const char>()));
}

COSValue CaseInsensitiveStringVC::from(COSValue array) const {
  if (array.isNull()) return array;
  const std::string text = vxArrayToStdString(array.asPointer<const vxArray>());
  return COSValue::fromPointer(copyText(text.c_str()));
}

VGDT_REGISTER_TYPE(CaseInsensitiveString, init_VortilGraphicsDatatype_CaseInsensitiveStringDataType,
                   init_VortilGraphicsDatatype_CaseInsensitiveStringDataType_callback)

// --- NStrings -----------------------------------------------------------------------------------

template <>
struct PropertyTypeTraits<NStringsDataType> : PlainValues<NStrings> {
  static constexpr std::size_t kBytes = 24;
  static_assert(sizeof(NStrings) == kBytes);
};
template class NamedDataType<NStringsDataType>;
template class PropertyDataType<NStringsDataType, NStrings>;

COSValue NStringsSC::to(COSValue) const {
  return {};
}

COSValue NStringsSC::from(COSValue text) const {
  using gui_objects::convert_from_string_utils::parse_strings;
  const ArrayPtr array(parse_strings(text.asPointer<const char>()));
  return COSValue::fromPointer(array ? new NStrings(array.get()) : new NStrings);
}

COSValue NStringsVC::to(COSValue value) const {
  const auto* const strings = value.asPointer<const NStrings>();
  return COSValue::fromPointer(strings ? strings->toMatrix() : NStrings().toMatrix());
}

COSValue NStringsVC::from(COSValue array) const {
  return COSValue::fromPointer(new NStrings(array.asPointer<const vxArray>()));
}

COSValue NStringsJC::to(COSValue value) const {
  const Place place(kJavaFile);
  JNIEnv& java = requireJava(*this, kJavaString.path, place);
  const ArrayPtr cells(NStringsVC().to(value).asPointer<vxArray>());
  const auto newText = [&](std::size_t i) {
    const vxArray* const text = vxGetCell(cells.get(), i);
    return newJavaString(java, unitsIn(text), place);
  };
  const auto stringClass = findStringClass(java, place);
  return COSValue::fromPointer(
      newStringArray(java, stringClass.get(), vxGetNumberOfElements(cells.get()), newText, place)
          .release());
}

COSValue NStringsJC::from(COSValue object) const {
  return objectFromJava<NStringsInJava>(*this, object, Place(kJavaFile));
}

const char* NStringsJC::getJavaDeclarationName() {
  return kJavaStrings.dotted;
}

VGDT_REGISTER_TYPE(NStrings, init_VortilGraphicsDatatype_NStringsDataType,
                   init_VortilGraphicsDatatype_NStringsDataType_callback)

}  // namespace graphics::datatype
