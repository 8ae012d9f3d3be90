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

  const struct {
    const char* name;
    const char* text;
    const char* printed;
  } rows[] = {{"LineStyle", "NON", "none"}, {"Limits", "[1 2]", "[ 1 2 ]"}, {"on_off", "On", "on"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string name = std::string("vortil.graphics.datatype.") + row.name;
    const auto type = vcos::TypeAccess::find(vcos::COSNameID(name.c_str()));
    ASSERT_TRUE(type);
    const vcos::OwnedValue value(type->dataType(), type->fromText(row.text));
    EXPECT_EQ(type->toText(value.get()), row.printed);
    EXPECT_ANY_THROW(type->fromText("neither"));
  }
}

}  // namespace
