#include <ut/class_numbers.h>
#include <ut/faults.h>

#include <algorithm>
#include <span>
#include <string>
#include <vector>

namespace {

struct ClassRow {
  std::string name;
  int base;
};

/// By number. There are few. Made with the first, since looking for one must not fail.
constinit std::vector<ClassRow>* registered = nullptr;

std::span<const ClassRow> rows() noexcept {
  return registered ? std::span<const ClassRow>(*registered) : std::span<const ClassRow>();
}

}  // namespace

int utGetClassNum(const char* name) noexcept {
  const auto found = std::ranges::find(rows(), name, &ClassRow::name);
  return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

int utRegisterObjectClass(const char* name, int baseClassNumber, int) {
  vghost::faults::countHostCall("utRegisterObjectClass");
  const int known = utGetClassNum(name);
  if (known != -1) return known;
  if (!registered) registered = new std::vector<ClassRow>;
  registered->push_back({name, baseClassNumber});
  return static_cast<int>(rows().size()) - 1;
}

bool utInstanceOf(int classNumber, int baseClassNumber) noexcept {
  const auto isClass = [](int number) {
    return number >= 0 && static_cast<std::size_t>(number) < rows().size();
  };
  // A class is registered after its base, which bounds the walk.
  for (int number = classNumber; isClass(number);) {
    if (number == baseClassNumber) return true;
    const int base = rows()[static_cast<std::size_t>(number)].base;
    number = base < number ? base : -1;
  }
  return false;
}
