#include <graphics/datatype/EnumBase.h>
#include <graphics/datatype/EnumCache.h>

#include <utility>

namespace graphics::datatype::utils {

using vcos::COSValue;

EnumCache::EnumCache(const EnumStringType& table) : table_(table) {}

vxArray* EnumCache::getVxArrayStringFor(const COSValue& value) {
  if (value.isNull()) return vxCreateString("");
  const int enumerator = value.asPointer<const EnumBase>()->getIntValue();
  Vprotected_vxArray& name = names_[enumerator];
  if (!name.get()) {
    Vprotected_vxArray made(
        vxCreateString(table_.getEnumString(COSValue::fromInteger(enumerator))));
    made.myLocalize();
    name = std::move(made);
  }
  return vxCreateSharedDataCopy(name.get());
}

}  // namespace graphics::datatype::utils
