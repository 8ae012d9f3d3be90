#include "requests/LineReader.h"

#include <limits>

namespace vgdt {
namespace {

constexpr std::size_t kBufferSize = LineReader::kMaxLength + 1;  // with the NUL of getline

}  // namespace

LineReader::LineReader(std::istream& input)
    : input_(input),
      buffer_(std::make_unique_for_overwrite<char[]>(kBufferSize)) {}

LineReader::Result LineReader::next() {
  input_.getline(buffer_.get(), static_cast<std::streamsize>(kBufferSize));
  auto length = static_cast<std::size_t>(input_.gcount());
  const bool isCut = input_.fail() && length == kMaxLength;
  if (input_.fail() && !isCut) return Result::End;
  if (isCut) {
    input_.clear();
    input_.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
  } else if (!input_.eof()) {
    --length;  // the line feed counts as read
  }
  line_ = {buffer_.get(), length};
  return isCut ? Result::TooLong : Result::Line;
}

}  // namespace vgdt
