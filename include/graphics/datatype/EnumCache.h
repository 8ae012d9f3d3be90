#pragma once

#include <graphics/datatype/EnumStringType.h>
#include <vx/protected_array.h>

#include <map>

namespace graphics::datatype::utils {

/// The names of a table as host arrays, each made when it is first asked for. Later calls return
/// arrays that share its data.
///
///     utils::EnumCache cache(table);
///     vxArray* name = cache.getVxArrayStringFor(word);  // 'dashed', say
///     vxDestroyArray(name);
class VGDT_API EnumCache {
 public:
  /// The table has to outlive the cache.
  explicit EnumCache(const EnumStringType& table);

  /// The name of an enumerated value as a char array, empty for the null word and for a value that
  /// has no name. It belongs to the caller and shares its data with the cache.
  [[nodiscard]] vxArray* getVxArrayStringFor(const vcos::COSValue& value);

 private:
  const EnumStringType& table_;
  std::map<int, Vprotected_vxArray> names_;
};

}  // namespace graphics::datatype::utils
