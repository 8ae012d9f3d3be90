// Measures how texts of several lines and lists of line styles are made and compared, all
// contenders in turns, and prints how they stand against each other.

#include "../common/Comparisons.h"
#include "Inputs.h"
#include "Rivals.h"

#include <graphics/datatype/NLineStylesDataType.h>
#include <graphics/datatype/NumericOrStringDataType.h>
#include <graphics/datatype/vgdatatypes.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using graphics::datatype::NLineStyles;
using graphics::datatype::NLineStylesDataType;
using graphics::datatype::NumericOrString;
using graphics::datatype::NumericOrStringDataType;
using measuring::Goal;
using measuring::measure;
using texts::ArrayOwner;
using vcos::COSValue;
using vcos::OwnedValue;

constexpr std::size_t kCharacters = 1'000'000;
constexpr std::size_t kNumbers = 100'000;
constexpr std::size_t kLines = 10'000;
constexpr std::size_t kColumns = 40;
constexpr std::size_t kRows = 8;

/// A new object that lasts as long as the program.
template <class Object, class... Arguments>
Object& keep(Arguments&&... arguments) {
  static std::vector<std::unique_ptr<Object>> objects;
  return *objects.emplace_back(std::make_unique<Object>(std::forward<Arguments>(arguments)...));
}

const vxArray* keepArray(ArrayOwner array) {
  return keep<ArrayOwner>(std::move(array)).get();
}

template <class DataType>
const vcos::TypeAccess& typeOf() {
  static const auto access = *vcos::TypeAccess::find(vcos::COSNameID(DataType::kDottedName));
  return access;
}

template <class DataType>
OwnedValue valueFromArray(const vxArray* array) {
  const vcos::TypeAccess& type = typeOf<DataType>();
  return {type.dataType(), type.arrayConversion()->from(COSValue::fromPointer(array))};
}

void expect(bool isRight, const std::string& contender) {
  if (!isRight) measuring::fail(contender + " is wrong");
}

/// Where memcpy copies to.
std::byte* room() {
  static std::vector<std::byte> room(4 * kCharacters * sizeof(vxChar));
  return room.data();
}

// --- making texts -------------------------------------------------------------------------------

/// A text that is made from an array and destroyed. The speed of all contenders is that of the
/// characters of this text, whatever they make themselves.
class Making {
 public:
  Making(std::string name, const vxArray* array, Goal againstCopy = Goal::kNone)
      : name_(std::move(name)),
        text_(valueFromArray<NumericOrStringDataType>(array)) {
    measure(name_,
            [array] { return valueFromArray<NumericOrStringDataType>(array).get().isNull(); });
    const auto bytes = std::as_bytes(characters());
    compete("memcpy", againstCopy,
            [bytes] { return std::memcpy(room(), bytes.data(), bytes.size()); });
  }

  const std::string& name() const { return name_; }
  std::size_t rows() const { return vxGetM(made()); }
  std::span<const vxChar> characters() const { return texts::charactersOf(made()); }
  /// The characters of a row but for the blanks behind them.
  std::string line(std::size_t row) const {
    std::string line;
    for (std::size_t i = row; i < characters().size(); i += rows())
      line += static_cast<char>(characters()[i]);
    return line.substr(0, line.find_last_not_of(' ') + 1);
  }

  template <class Operation>
  void compete(const std::string& contender, Goal goal, Operation operation) const {
    const std::string other = name_ + '/' + contender;
    measure(other, operation);
    measuring::compareSpeeds({name_, contender, name_, other, goal}, characters().size_bytes());
  }
  void competeWithSmaller(const Making& smaller) const {
    measuring::compareSpeeds({name_, "smaller", name_, smaller.name_, Goal::atLeast(0.5)},
                             characters().size_bytes(), smaller.characters().size_bytes());
  }

 private:
  const vxArray* made() const { return text_.get().asPointer<const NumericOrString>()->getPtr(); }

  std::string name_;
  OwnedValue text_;
};

void addNumbers(const std::string& name, ArrayOwner owner) {
  const vxArray* const array = keepArray(std::move(owner));
  const std::span numbers = texts::numbersOf(array);
  const auto& making = keep<Making>(name, array);
  auto& writer = keep<texts::NumberWriter>(numbers);
  writer.write();
  for (std::size_t i = 0; i < numbers.size(); ++i)
    expect(!std::isfinite(numbers[i]) || writer.textOf(i) == making.line(i), name);
  making.compete("to_chars", Goal::atLeast(0.5), [&writer] { return writer.write(); });
}

const Making& addLines(const std::string& name, std::size_t rows, std::size_t count) {
  const vxArray* const array = keepArray(texts::linesInRows(rows, count));
  const auto& making = keep<Making>(name, array);
  const auto split = [rows, text = texts::charactersOf(array)] {
    return texts::splitAndPad(text, rows);
  };
  const texts::Matrix matrix = split();
  expect(matrix.rows == making.rows() &&
             std::ranges::equal(making.characters(),
                                std::span(matrix.characters.get(), making.characters().size())),
         name);
  making.compete("loop", Goal::atLeast(0.8), [split] { return split().rows; });
  return making;
}

void addLinesOfSizes(const std::string& name, std::size_t rows) {
  const Making& smallest = addLines(name + "/1e4", rows, kCharacters / 100);
  addLines(name + "/1e5", rows, kCharacters / 10).competeWithSmaller(smallest);
  addLines(name + "/1e6", rows, kCharacters).competeWithSmaller(smallest);
}

/// Nothing but a search for a line feed may depend on the size. No byte of these letters is one.
void addOneLine() {
  const vxArray* const array = keepArray(texts::letters(1, kCharacters));
  const auto& making = keep<Making>("letters/1e6", array, Goal::atLeast(1));
  const std::span text = making.characters();
  expect(text.data() == texts::charactersOf(array).data(), making.name());
  making.compete("memchr", Goal::kNone,
                 [text] { return std::memchr(text.data(), '\n', text.size_bytes()); });
}

// --- comparing texts ----------------------------------------------------------------------------

void addComparison(const std::string& name, const vxArray* a, const vxArray* b, bool areEqual,
                   Goal goal) {
  const vcos::COSDataType& type = typeOf<NumericOrStringDataType>().dataType();
  auto& textA = keep<OwnedValue>(type, COSValue::fromPointer(new NumericOrString(a)));
  auto& textB = keep<OwnedValue>(type, COSValue::fromPointer(new NumericOrString(b)));
  const auto compare = [&] { return type.isEqual(textA.get(), textB.get()); };
  const auto compareStrings = [a, b] { return texts::haveEqualStrings(a, b); };
  expect(compare() == areEqual, name);
  expect(compareStrings() == areEqual, name + " with strings");
  const std::string other = name + "/strings";
  measure(name, compare);
  measure(other, compareStrings);
  measuring::compareTimes({name, "strings", name, other, goal});
}

void addComparisons() {
  constexpr Goal kFifth = Goal::atMost(0.2);
  using texts::letters;
  using texts::rowsInCells;
  using texts::withChange;

  const auto newMatrix = [] { return letters(kCharacters / kColumns, kColumns); };
  const vxArray* const matrix = keepArray(newMatrix());
  addComparison("matrices/same", matrix, keepArray(newMatrix()), true, kFifth);
  addComparison("matrices/firstDiffers", matrix, keepArray(withChange(newMatrix(), 0)), false,
                kFifth);
  addComparison("matrices/lastDiffers", matrix, keepArray(withChange(newMatrix(), kCharacters - 1)),
                false, kFifth);

  constexpr Goal kHalf = Goal::atMost(0.5);
  const auto newLines = [] { return letters(kLines, kColumns); };
  const vxArray* const lines = keepArray(newLines());
  const vxArray* const cells = keepArray(rowsInCells(lines));
  addComparison("cells/same", cells, keepArray(rowsInCells(lines)), true, kHalf);
  addComparison("cells/firstDiffers", cells,
                keepArray(rowsInCells(withChange(newLines(), 0).get())), false, kHalf);
  addComparison("cells/lastDiffers", cells,
                keepArray(rowsInCells(withChange(newLines(), kLines - 1).get())), false, kHalf);
  addComparison("matrixAndCells/same", lines, cells, true, kHalf);
}

// --- lists of styles ----------------------------------------------------------------------------

void addStyles() {
  constexpr const char* kStyles = "-|--|:";
  const vcos::TypeAccess& type = typeOf<NLineStylesDataType>();
  const auto make = [&type] {
    return OwnedValue(type.dataType(), type.textConversion()->from(COSValue::fromPointer(kStyles)));
  };
  const OwnedValue made = make();
  const auto parsed = texts::parseStyles(kStyles);
  const auto isSame = [](const auto& style, const texts::Style& other) {
    return style.getString() == other.text && style.getLineStyle() == other.line &&
           style.getMarkerStyle() == other.marker;
  };
  const std::string name = "styles/text";
  expect(parsed && std::ranges::equal(made.get().asPointer<const NLineStyles>()->getStyles(),
                                      *parsed, isSame),
         name);
  measure(name, [make] { return make().get().isNull(); });
  measure(name + "/parse", [] { return texts::parseStyles(kStyles)->size(); });
  measuring::compareTimes({name, "parse", name, name + "/parse", Goal::atMost(3)});
}

}  // namespace

int main(int argc, char** argv) {
  measuring::takeArguments(argc, argv);
  VLInitialize_vgdatatypes();
  addNumbers("numbers/mixed", texts::mixedNumbers(kNumbers));
  addNumbers("numbers/whole", texts::wholeNumbers(kNumbers));
  addLinesOfSizes("lines/row", 1);
  addLinesOfSizes("lines/matrix", kRows);
  addOneLine();
  addComparisons();
  addStyles();
  measuring::printComparisons(measuring::runBenchmarks());
}
