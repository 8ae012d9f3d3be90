#pragma once

#include <vcos/COSValue.h>
#include <vcos/Enumeration.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace vcos {

/// Walks a list of words.
class ValueListEnumeration final : public EnumerationUtil<COSValue> {
 public:
  explicit ValueListEnumeration(std::vector<COSValue> values) : values_(std::move(values)) {}
  bool hasMoreElements() const override { return next_ < values_.size(); }
  COSValue nextElement() override { return values_[next_++]; }

 private:
  std::vector<COSValue> values_;
  std::size_t next_ = 0;
};

}  // namespace vcos
