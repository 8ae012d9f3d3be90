// usage: write_labels <file>
// Writes the source of the root bundle of the library's labels. Labels come back as values, so each
// is its name but for capital letters, and there is no bundle of another language.

#include <messages/MessageCatalog.h>

#include <algorithm>
#include <fstream>
#include <initializer_list>
#include <iomanip>
#include <string>

namespace {

/// Words begin with a capital letter, signs such as "o" and "3d" do not.
std::string capitalized(std::string name) {
  if (name.size() > 1 && name[0] >= 'a' && name[0] <= 'z')
    name[0] = static_cast<char>(name[0] - 'a' + 'A');
  return name;
}

void writeLabels(std::ostream& out, const std::string& type,
                 std::initializer_list<const char*> names) {
  // Texts are read in the language of the process, and in Turkish the small letter of "I" is not
  // "i". So a type with such a name has no capitals at all.
  const bool isLower = std::ranges::any_of(names, [](const char* name) { return *name == 'i'; });
  for (const char* name : names) {
    const std::string key = "vortil_graphics_datatype_" + type + "_" + name;
    out << "  " << std::quoted(fl::i18n::MessageCatalog::storedKey(key)) << " { "
        << std::quoted(isLower ? name : capitalized(name)) << " }\n";
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  std::ofstream out(arguments[1]);
  out << "root {\n";
  // clang-format off
#define VGDT_ENUM_TYPE(Type, Style, Default) writeLabels(out, #Type, {
#define VGDT_ENUM_NAME(Type, Label, Name, Value) Name,
#define VGDT_ENUM_END(Type) });
#include <graphics/datatype/enumerated_types.def>
  // clang-format on
  out << "}\n";
  return out.flush() ? 0 : 1;
}
