#pragma once

#include "literal/BracketBuilder.h"
#include "literal/Literal.h"
#include "literal/LiteralValue.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace vgdt {

/// Turns what the grammar recognises into arrays. Each operation gets the text that was matched,
/// which also says where it stands.
class LiteralBuilder {
 public:
  LiteralBuilder(std::string_view literal, const WordResolver& words)
      : literal_(literal),
        words_(words) {}

  std::size_t positionOf(const char* place) const {
    return static_cast<std::size_t>(place - literal_.data());
  }
  std::size_t positionOf(std::string_view token) const { return positionOf(token.data()); }
  vcos::ArrayOwner result() { return std::move(values_.back().array); }

  void firstNumber(std::string_view token) {
    first_ = readNumber(token);
    last_.reset();
  }
  void lastNumber(std::string_view token) { last_ = readNumber(token); }

  void numberValue(std::string_view token);
  void logicalValue(std::string_view token);
  void textValue(std::string_view token);
  void handleValue(std::string_view token);
  void emptyHandleValue(std::string_view token);

  void numberElement(std::string_view token);
  void logicalElement(std::string_view token);
  void textElement(std::string_view token);
  void bracketRow(std::string_view token) { bracket_.closeRow(positionOf(token)); }

  /// Takes the word at the front of `rest` if it is known; its length, or else 0.
  std::size_t knownWord(std::string_view rest, bool isElement);

  void openBracket(std::string_view token);
  void closeBracket(std::string_view token);
  void openCell(std::string_view token) { open(token, {}); }
  void cellRow(std::string_view token);
  void closeCell(std::string_view token);
  void openCall(std::string_view token);
  void closeCall(std::string_view token);

 private:
  /// A bracket, cell array or call whose end is still to come.
  struct Composite {
    std::string_view function;
    std::size_t firstValue;
    std::size_t rows = 0;
    std::size_t columns = 0;
  };

  void push(vxArray* array, std::string_view token) { push(vcos::ArrayOwner(array), token); }
  void push(vcos::ArrayOwner array, std::string_view token) {
    values_.push_back({std::move(array), positionOf(token)});
  }
  void open(std::string_view token, std::string_view function);
  vcos::ArrayOwner range(std::string_view token) const;
  std::span<LiteralValue> valuesSince(std::size_t first) {
    return std::span(values_).subspan(first);
  }
  /// Ends the innermost composite and puts its array in the place of its parts.
  void close(vcos::ArrayOwner array, std::string_view token);

  std::string_view literal_;
  const WordResolver& words_;
  std::vector<LiteralValue> values_;
  std::vector<Composite> open_;
  BracketBuilder bracket_;  // brackets do not nest
  double first_ = 0;
  std::optional<double> last_;
};

}  // namespace vgdt
