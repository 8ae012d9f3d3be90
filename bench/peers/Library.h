#pragma once

#include "contest.h"

#include <vcos/COSDataType.h>
#include <vcos/COSTypeRepository.h>
#include <vcos/TypeAccess.h>

#include <cstddef>
#include <span>

namespace peers {

/// A type of the library, which is started if it is not; by the type's dotted name.
const vcos::COSDataType& libraryType(const char* name);

/// Starts the library and says how many types its package has then.
double countLibraryTypes(std::size_t);

/// A 1-by-n double array.
vcos::ArrayOwner newArray(std::span<const double> elements);

/// A value of a data type, which destroys it.
template <class DataType>
class Value {
 public:
  Value(const vcos::COSDataType& type, vcos::COSValue word) : type_(&type), word_(word) {}
  ~Value() { type_->destroy(word_); }
  Value(const Value&) = delete;
  Value& operator=(const Value&) = delete;

  const auto& get() const { return *word_.asPointer<const typename DataType::ValueClass>(); }

 private:
  const vcos::COSDataType* type_;
  vcos::COSValue word_;
};

/// Adds the measurement of a conversion of the library, from the type `outside` to `DataType`. It
/// is looked up now. `given` is a pointer, and `numbersOf` reads a value for the check.
template <class DataType, class Given, std::size_t count>
void competeByConversion(const char* work, const char* outside, const Task<Given, count>& task,
                         Numbers<count> (*numbersOf)(const typename DataType::ValueClass&)) {
  const vcos::COSNameID name(DataType::kDottedName);
  const vcos::COSDataType& type = libraryType(DataType::kDottedName);
  const auto* conversion = vcos::COSTypeRepository::getConversion(vcos::COSNameID(outside), name);
  competeInMaking(
      work, kOurs, Goal::kNone, task,
      [&type, conversion](Given given) {
        return Value<DataType>(type, conversion->from(vcos::COSValue::fromPointer(given)));
      },
      [numbersOf](const Value<DataType>& value) { return numbersOf(value.get()); });
}

}  // namespace peers
