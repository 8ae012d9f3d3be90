#pragma once

#include <cstddef>
#include <istream>
#include <memory>
#include <string_view>

namespace vgdt {

/// Reads lines of a limited length. The rest of a longer line is skipped without being held.
class LineReader {
 public:
  static constexpr std::size_t kMaxLength = std::size_t{8} << 20U;

  enum class Result { Line, TooLong, End };

  /// The stream has to outlive the reader.
  explicit LineReader(std::istream& input);

  /// On TooLong, line() is what fitted.
  Result next();
  /// The line without its line feed; valid until the next call of next().
  std::string_view line() const { return line_; }

 private:
  std::istream& input_;
  std::unique_ptr<char[]> buffer_;
  std::string_view line_;
};

}  // namespace vgdt
