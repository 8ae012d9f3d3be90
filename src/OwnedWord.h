#pragma once

#include <vcos/COSDataType.h>
#include <vcos/COSValue.h>

namespace graphics::datatype {

/// A value of a type, destroyed when its owner ends.
class OwnedWord {
 public:
  OwnedWord(const vcos::COSDataType& type, vcos::COSValue word) noexcept
      : type_(type),
        word_(word) {}
  OwnedWord(const OwnedWord&) = delete;
  OwnedWord& operator=(const OwnedWord&) = delete;
  ~OwnedWord() { type_.destroy(word_); }

  vcos::COSValue get() const noexcept { return word_; }

 private:
  const vcos::COSDataType& type_;
  vcos::COSValue word_;
};

}  // namespace graphics::datatype
