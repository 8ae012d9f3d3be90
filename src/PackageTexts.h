#pragma once

/// The texts of the packages that the library makes, for register_package().

namespace graphics::datatype {

inline const char* noDescription(const char*) {
  return "";
}
inline const char* noDetails(const char*) {
  return "no details";
}

}  // namespace graphics::datatype
