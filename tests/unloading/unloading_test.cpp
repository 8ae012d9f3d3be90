// A program that loads the library by its file, as a host does: it does not link it.

#include <dlfcn.h>
#include <gtest/gtest.h>
#include <vcos/TypeAccess.h>

#include <string>

namespace {

TEST(Unloading, LeavesTheTypesWhereTheHostReachesThem) {
  void* library = dlopen(VGDT_LIBRARY, RTLD_NOW | RTLD_LOCAL);
  ASSERT_NE(library, nullptr) << dlerror();
  const auto initialize = reinterpret_cast<void (*)()>(dlsym(library, "VLInitialize_vgdatatypes"));
  ASSERT_NE(initialize, nullptr) << dlerror();
  initialize();
  ASSERT_EQ(dlclose(library), 0);

  const char* const rows[][3] = {
      {"LineStyle", "NON", "none"}, {"Limits", "[1 2]", "[ 1 2 ]"}, {"on_off", "On", "on"}};
  for (const auto& [name, text, printed] : rows) {
    SCOPED_TRACE(name);
    const std::string dottedName = std::string("vortil.graphics.datatype.") + name;
    const auto type = vcos::TypeAccess::find(vcos::COSNameID(dottedName.c_str())).value();
    const vcos::OwnedValue value(type.dataType(), type.fromText(text));
    EXPECT_EQ(type.toText(value.get()), printed);
    EXPECT_ANY_THROW(type.fromText("neither"));
  }
}

}  // namespace
