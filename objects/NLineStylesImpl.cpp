#include "JavaObjects.h"
#include "NewArray.h"
#include "PropertyDataType.ipp"
#include "TypeRegistration.h"

#include <graphics/datatype/NLineStylesDataType.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/catalog.h>
#include <messages/exceptions.h>
#include <vx/errors.h>
#include <vx/scopes.h>
#include <boost/tokenizer.hpp>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <span>
#include <utility>

namespace graphics::datatype {

using vcos::COSValue;
namespace convert = gui_objects::convert_from_string_utils;
namespace messages = VORTIL::vgdatatypes;

LineMarkerStyle::LineMarkerStyle(std::string text) {
  std::string color;
  const bool isStyle =
      convert::stringToColorMarkerLineStyle(text.c_str(), color, lineStyle_, markerStyle_);
  if (!isStyle || !color.empty() || (lineStyle_.empty() && markerStyle_.empty()))
    vxErrMsgId(messages::InvalidMarkerLineStyle(text));
  text_ = std::move(text);
}

namespace {

using Styles = std::vector<LineMarkerStyle>;

Styles stylesOfCells(const vxArray* cells) {
  Styles styles;
  for (std::size_t i = 0; i < vxGetNumberOfElements(cells); ++i) {
    const vxArray* const element = vxGetCell(cells, i);
    if (!element || vxGetClassID(element) != vxCHAR_CLASS) vxErrMsgId(messages::InvalidInput());
    styles.emplace_back(vxArrayToStdString(element));
  }
  return styles;
}

/// Empty pieces count, and are refused as styles.
Styles stylesOfText(const std::string& text) {
  const boost::char_separator<char> separator("|", "", boost::keep_empty_tokens);
  Styles styles;
  for (const std::string& piece : boost::tokenizer(text, separator))
    styles.emplace_back(piece);
  return styles;
}

/// The characters of a row up to its first NUL.
std::string textOfRow(const vxArray* array, std::size_t row) {
  const std::span characters(static_cast<const vxChar*>(vxGetData(array)),
                             vxGetNumberOfElements(array));
  std::vector<vxChar> text;
  for (std::size_t i = row; i < characters.size() && characters[i] != 0; i += vxGetM(array))
    text.push_back(characters[i]);
  return vxArrayToStdString(ArrayPtr(vxCreateString_UTF16(text.data(), text.size())).get());
}

Styles stylesOfRows(const vxArray* array) {
  Styles styles;
  for (std::size_t row = 0; row < vxGetM(array); ++row)
    styles.emplace_back(textOfRow(array, row));
  return styles;
}

Styles stylesOf(const vxArray* array) {
  const vxClassID classID = array ? vxGetClassID(array) : vxClassID();
  if (classID != vxCELL_CLASS && classID != vxCHAR_CLASS) vxErrMsgId(messages::InvalidInput());
  if (vxIsEmpty(array)) vxErrMsgId(messages::NotEnoughStyles());
  if (classID == vxCELL_CLASS) return stylesOfCells(array);
  return vxIsVector(array) ? stylesOfText(vxArrayToStdString(array)) : stylesOfRows(array);
}

/// The host's operations give null where others throw.
template <class Owner>
Owner notNull(Owner owner) {
  if (!owner) throw Lindgrove::System::OutOfMemoryException_DEPRECATED();
  return owner;
}

vxArray* newCells(const Styles& styles) {
  const std::size_t dimensions[] = {styles.size(), 1};
  ArrayPtr cells(vxCreateCellArray(2, dimensions));
  for (std::size_t i = 0; i < styles.size(); ++i)
    vxSetCell(cells.get(), i, vxCreateString(styles[i].getString()));
  return cells.release();
}

/// The host pads the rows with NULs, and here they end in blanks.
vxArray* newRows(const Styles& styles) {
  struct Free {
    void operator()(const char** table) const noexcept { vxFree(table); }
  };
  const auto table = notNull(std::unique_ptr<const char*[], Free>(
      static_cast<const char**>(vxCalloc(styles.size(), sizeof(const char*)))));
  std::ranges::transform(styles, table.get(), &LineMarkerStyle::getString);
  ArrayPtr rows = notNull(ArrayPtr(vxCreateCharMatrixFromStrings(styles.size(), table.get())));
  const std::span characters(static_cast<vxChar*>(vxGetWritableData(rows.get())),
                             vxGetNumberOfElements(rows.get()));
  std::ranges::replace(characters, vxChar{0}, vxChar{' '});
  return rows.release();
}

}  // namespace

NLineStyles::NLineStyles() : styles_(1, LineMarkerStyle("-")) {}

NLineStyles::NLineStyles(const vxArray* array)
    : styles_(stylesOf(array)),
      form_(vxGetClassID(array) == vxCELL_CLASS ? Form::kCell : Form::kText) {}

NLineStyles::NLineStyles(const std::vector<std::string>& texts)
    : styles_(texts.begin(), texts.end()) {
  if (styles_.empty()) vxErrMsgId(messages::NotEnoughStyles());
}

NLineStyles::NLineStyles(const NLineStyles& other) {
  copy(other);
}

NLineStyles& NLineStyles::operator=(const NLineStyles& other) {  // NOLINT: no test for itself
  destroy();
  copy(other);
  return *this;
}

void NLineStyles::copy(const NLineStyles& other) {
  const std::size_t count = other.styles_.size();
  styles_.reserve(styles_.size() + count);  // they may be the same list
  std::copy_n(other.styles_.begin(), count, std::back_inserter(styles_));
  form_ = other.form_;
}

void NLineStyles::destroy() noexcept {
  styles_.clear();
}

vxArray* NLineStyles::getMatrixRepresentation() const {
  return form_ == Form::kCell ? newCells(styles_) : newRows(styles_);
}

template <>
struct PropertyTypeTraits<NLineStylesDataType> : PlainValues<NLineStyles> {
  static constexpr std::size_t kBytes = 32;
  static_assert(sizeof(NLineStyles) == kBytes);
};
template class NamedDataType<NLineStylesDataType>;
template class PropertyDataType<NLineStylesDataType, NLineStyles>;

COSValue NLineStylesSC::to(COSValue) const {
  return {};
}

COSValue NLineStylesSC::from(COSValue text) const {
  const ArrayPtr array(convert::parse_strings(text.asPointer<const char>()));
  return COSValue::fromPointer(array ? new NLineStyles(array.get()) : new NLineStyles);
}

COSValue NLineStylesVC::to(COSValue value) const {
  const auto* const styles = value.asPointer<const NLineStyles>();
  return styles ? COSValue::fromPointer(styles->getMatrixRepresentation()) : value;
}

COSValue NLineStylesVC::from(COSValue array) const {
  return COSValue::fromPointer(new NLineStyles(array.asPointer<const vxArray>()));
}

namespace {

struct NLineStylesInJava {
  using Value = NLineStyles;
  static constexpr JavaName kClass{"com.lindgrove.vg.types.VGLineStyles"};
  static constexpr const char* kFile = "objects/NLineStylesImpl";
  static constexpr const char* kNullText = "Input parameter for NLineStyles must not be NULL ";

  static jobject toJava(const JavaClass& javaClass, const NLineStyles& styles) {
    const Place place(kFile);
    const auto stringClass = findStringClass(javaClass.java(), place);
    const auto newTexts = [&](auto part) {
      const auto newText = [&](std::size_t i) {
        return newJavaString(javaClass.java(), (styles.getStyles()[i].*part)(), place);
      };
      return newStringArray(javaClass.java(), stringClass.get(), styles.getStyles().size(), newText,
                            place);
    };
    const auto lines = newTexts(&LineMarkerStyle::getLineStyle);
    const auto markers = newTexts(&LineMarkerStyle::getMarkerStyle);
    const jobject made = javaClass.tryNewInstance(
        "([Ljava/lang/String;[Ljava/lang/String;)Lcom/lindgrove/vg/types/VGLineStyles;",
        lines.get(), markers.get());
    if (!javaClass.succeeded(made)) place.raise("Line styles are not parsable");
    return made;
  }

  static COSValue fromJava(const JavaObject& object) {
    const Local<> styles = object.object("getConcatenatedStyles", "()[Ljava/lang/String;");
    std::vector<std::string> texts;
    forEachText(
        object.java(), static_cast<jobjectArray>(styles.get()),
        [&texts](auto units) { texts.push_back(utf8Of(std::move(units))); }, Place(kFile));
    return COSValue::fromPointer(new NLineStyles(texts));
  }
};

}  // namespace

VGDT_JAVA_CONVERSION(NLineStylesJC, NLineStylesInJava)

VGDT_REGISTER_TYPE(NLineStyles, init_VortilGraphicsDatatype_NLineStylesDataType,
                   init_VortilGraphicsDatatype_NLineStylesDataType_callback)

}  // namespace graphics::datatype
