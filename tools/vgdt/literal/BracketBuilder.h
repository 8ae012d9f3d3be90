#pragma once

#include "literal/LiteralValue.h"

#include <messages/ustring.h>
#include <vcos/COSInterface.h>
#include <vx/array.h>

#include <span>
#include <vector>

namespace vgdt {

/// Collects what stands in square brackets, row by row, and makes the matrix.
class BracketBuilder {
 public:
  void addLogical(bool value, std::size_t position);
  void addNumber(double number, std::size_t position);
  void addNumbers(std::span<const double> numbers, std::size_t position);
  /// Texts in one row are joined.
  void addText(fl::ustring text, std::size_t position);
  /// The elements of an object array; LiteralError if it is none.
  void addObjects(const vxArray* array, std::size_t position);
  /// `position` is where the row begins. LiteralError if it is not as long as the first one.
  void closeRow(std::size_t position);
  /// Logical, double, char or objects; 0 by 0 double if nothing was added.
  LiteralValue finish(std::size_t position);

 private:
  enum class Kind { Nothing, Logical, Number, Text, Object };

  void admit(Kind kind, std::size_t position);
  vxClassID classID() const;
  vcos::ArrayOwner objects() const;
  /// Of what was added, row by row; only one of the stores is in use.
  std::size_t count() const { return elements_.size() + characters_.size() + objects_.size(); }

  Kind kind_ = Kind::Nothing;
  std::vector<double> elements_;
  fl::ustring characters_;
  std::vector<vcos::COSInterfacePtr> objects_;
  std::size_t rows_ = 0;
  std::size_t columns_ = 0;
  std::size_t rowBegin_ = 0;
};

}  // namespace vgdt
