#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string_view>

namespace vgdt {

/// Writes JSON on one line as it is told, with a comma wherever one is needed. It allocates
/// nothing, however long a text or a list becomes.
class JsonWriter {
 public:
  /// The stream has to outlive the writer, and has everything only after flush().
  explicit JsonWriter(std::ostream& output) : output_(output) {}

  void openObject() { open('{'); }
  void closeObject() { close('}'); }
  void openList() { open('['); }
  void closeList() { close(']'); }
  /// The name of the next member.
  void key(std::string_view name);

  void null() { token("null"); }
  void boolean(bool value) { token(value ? "true" : "false"); }
  /// NaN and infinities become "NaN", "Inf" and "-Inf".
  void number(double value);
  /// With the digits that tell the value from its neighbours of single precision.
  void number(float value);
  template <std::integral T>
  void number(T value) {
    if constexpr (std::same_as<T, bool>)
      boolean(value);
    else if constexpr (std::unsigned_integral<T>)
      whole(std::uint64_t{value});
    else
      whole(std::int64_t{value});
  }
  /// U+FFFD stands where the text is no UTF-8.
  void text(std::string_view utf8);
  /// `count` UTF-16 units, the first of them at `units` and each `step` units after the one before.
  /// U+FFFD stands for half of a surrogate pair.
  void text(const unsigned short* units, std::size_t count, std::size_t step);
  /// What is JSON already.
  void token(std::string_view json);

  /// Ends the line and hands it to whoever reads the stream.
  void endLine();
  /// Gives everything to the stream.
  void flush();

 private:
  void open(char bracket);
  void close(char bracket);
  void beginValue();
  void whole(std::uint64_t value);
  void whole(std::int64_t value);
  void put(char byte);
  void put(std::string_view bytes);
  void put(char32_t character);

  std::ostream& output_;
  std::array<char, 8192> buffer_;
  std::size_t length_ = 0;
  bool needsComma_ = false;
};

/// A list of what `write` writes of each element.
template <class Elements, class Write>
void writeList(JsonWriter& writer, const Elements& elements, Write&& write) {
  writer.openList();
  for (const auto& element : elements)
    write(element);
  writer.closeList();
}

}  // namespace vgdt
