#pragma once

#include <vcos/COSDataType.h>
#include <vcos/COSTypeConversion.h>

#include <string>

namespace test {

/// A type whose values are pointers. It counts what is made and ended, and a text or char array
/// that begins with "!" makes its conversions do what the rest says, such as "!parse".
class ProbeType final : public vcos::COSDataType {
 public:
  /// Registered in the library's package as "Probe".
  static ProbeType& instance();

  const char* getDeclarationName() const override { return "probe"; }
  const char* getName() const override { return "Probe"; }
  vcos::COSValue getDefaultValue() const override;
  int getStorageType() const override { return 7; }
  const char* getCategoryName() const override { return "Test"; }
  std::size_t getSizeInBits() const override { return 64; }
  bool isEqual(vcos::COSValue a, vcos::COSValue b) const override;
  int compare(vcos::COSValue a, vcos::COSValue b) const override { return isEqual(a, b) ? 0 : 2; }
  std::size_t getValueSizeInBytes(vcos::COSValue) const override { return sizeof(std::string); }
  vcos::COSValue copy(vcos::COSValue value) const override;
  void destroy(vcos::COSValue value) const override;

  /// Makes a value, or fails in the way that the text names.
  vcos::COSValue make(const std::string& text) const;
  static const std::string& textOf(vcos::COSValue value) { return *value.asPointer<std::string>(); }

  int liveValues() const { return live_; }

 private:
  mutable int live_ = 0;
};

}  // namespace test
