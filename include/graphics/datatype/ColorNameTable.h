#pragma once

#include <graphics/datatype/export.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace graphics::datatype {

/// The colour names of the process. A name is found by any text that begins it and no other name,
/// and by the name itself in any case:
///
///     ColorNameTable& names = *ColorNameTable::getInstance();
///     names.addNamedColor("pink", 1, 0.75, 0.8, false);
///     names.getColorValue("PI").green;  // 0.75
///
/// Only the text that is looked up is folded to lower case, by the C library's tolower(), and no
/// name is. Kept: a name with a capital letter is listed and can be replaced, and no text finds it.
///
/// Several threads may look names up at once, while none adds any. A look-up takes no memory,
/// unless it tells of an ambiguous name. What adds names or lists them may throw a std::bad_alloc,
/// which changes nothing.
class VGDT_API ColorNameTable {
 public:
  /// Fractions of red, green and blue; numbers outside 0 to 1 are kept as they are.
  struct ColorValue {
    double red;
    double green;
    double blue;
  };
  /// In the order of the names' bytes.
  using ColorMap = std::map<std::string, ColorValue, std::less<>>;

  /// The one table, made at the first call and never destroyed.
  static ColorNameTable* getInstance();

  /// A table of the fourteen names that reset() leaves.
  ColorNameTable();

  /// Removes all names, and adds the fourteen that a table begins with.
  void reset();

  static ColorValue createColorValueFromRGB(double red, double green, double blue);

  /// Whether a text begins any name: it may be ambiguous. The empty text begins every name, null
  /// none.
  bool isNameInTable(const char* name) const;

  /// The colour of the name that equals a text or, if none does, of the only one that it begins.
  ///
  /// Errors: MissingNameException if it begins none; AmbiguousNameException if it begins several,
  /// after a line with the text on the host's console.
  ColorValue getColorValue(const char* name) const;
  /// As getColorValue(), but null for a text that begins no name. The colour is the table's.
  const ColorValue* findColor(const char* name) const;

  /// Adds a name, or changes the colour of the name that equals it byte for byte. A name may hold a
  /// NUL; no text that is looked up reaches beyond it.
  ///
  /// Errors: "VORTIL:datatypes:colornametable:AddNameColor" if `overwrite` is false and the name
  /// begins one that is there. Kept: a name that one of the table begins is accepted.
  void addNamedColor(std::string name, double red, double green, double blue, bool overwrite);

  /// The table's own map, which later changes of the table change.
  const ColorMap& getColorMap() const;
  /// The colours and the names, both in the order of the map.
  std::vector<ColorValue> getColors() const;
  std::vector<std::string> getNames() const;

 private:
  ColorMap colors_;
};

}  // namespace graphics::datatype
