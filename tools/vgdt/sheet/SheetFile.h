#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace vgdt {

/// What a file has, read at once.
class SheetFile {
 public:
  /// "-" stands for standard input. RequestError if the file cannot be read.
  explicit SheetFile(const std::string& name);

  /// A NUL stands behind it.
  std::string_view text() const { return {bytes_.get(), size_}; }

 private:
  /// False, with errno set, if something cannot be read.
  bool readAll(int descriptor);
  /// Room for so many bytes, which keeps those that there are.
  void grow(std::size_t capacity);

  std::unique_ptr<char[]> bytes_;
  std::size_t capacity_ = 0;
  std::size_t size_ = 0;
};

}  // namespace vgdt
