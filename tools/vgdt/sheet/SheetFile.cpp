#include "sheet/SheetFile.h"

#include "Errors.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

namespace vgdt {
namespace {

[[noreturn]] void failToRead(const std::string& name) {
  const int error = errno;
  throw RequestError(
      fmt::format("{} cannot be read: {}", name, std::generic_category().message(error)));
}

/// An open file, which is closed in the end unless it is standard input.
class Descriptor {
 public:
  explicit Descriptor(const std::string& name)
      : number_(name == "-" ? STDIN_FILENO : open(name.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (number_ < 0) failToRead(name);
  }
  ~Descriptor() {
    if (number_ != STDIN_FILENO) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }

 private:
  int number_;
};

std::size_t expectedSize(int descriptor) {
  constexpr std::size_t kUnknown = std::size_t{64} << 10U;
  struct stat status {};
  const bool isFile = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
  return isFile ? std::max(static_cast<std::size_t>(status.st_size), kUnknown) : kUnknown;
}

}  // namespace

SheetFile::SheetFile(const std::string& name) {
  const Descriptor file(name);
  if (!readAll(file.number())) failToRead(name);
}

bool SheetFile::readAll(int descriptor) {
  grow(expectedSize(descriptor) + 2);  // the NUL, and a byte in which the end shows
  for (;;) {
    if (size_ + 1 == capacity_) grow(capacity_ * 2);
    const ssize_t count = read(descriptor, bytes_.get() + size_, capacity_ - size_ - 1);
    if (count == 0) break;
    if (count < 0 && errno != EINTR) return false;
    if (count > 0) size_ += static_cast<std::size_t>(count);
  }
  bytes_[size_] = '\0';
  return true;
}

void SheetFile::grow(std::size_t capacity) {
  auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
  std::copy_n(bytes_.get(), size_, bytes.get());
  bytes_ = std::move(bytes);
  capacity_ = capacity;
}

}  // namespace vgdt
