#include <ut/decimal.h>

#include <locale.h>
#include <stdlib.h>

#include <string>

namespace vghost {

double hugeOrTiny(std::string_view decimal) {
  static const locale_t classic = newlocale(LC_ALL_MASK, "C", nullptr);
  return strtod_l(std::string(decimal).c_str(), nullptr, classic);
}

}  // namespace vghost
