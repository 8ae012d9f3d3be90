#include "literal/LiteralFunctions.h"

#include "ArrayElements.h"
#include "literal/Literal.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>
#include <set>

namespace vgdt {
namespace {

using Arguments = std::span<LiteralValue>;

[[noreturn]] void refuse(const LiteralValue& argument, std::string_view problem) {
  throw LiteralError(argument.position, std::string(problem));
}

void requireCount(const LiteralCall& call, bool enough, std::string_view expected) {
  if (!enough)
    throw LiteralError(call.position, fmt::format("{} takes {}", call.function, expected));
}

std::optional<vxClassID> classNamed(std::string_view name) {
  for (int number = vxLOGICAL_CLASS; number <= vxUINT64_CLASS; ++number) {
    const auto classID = static_cast<vxClassID>(number);
    if (name == vxClassName(classID)) return classID;
  }
  return std::nullopt;
}

bool isText(const LiteralValue& value) {
  return vxGetClassID(value.array.get()) == vxCHAR_CLASS;
}

bool isRealNumeric(const vxArray* array) {
  return vxIsNumeric(array) && !vxIsComplex(array);
}

// --- casts ---------------------------------------------------------------------------------------

bool hasNaN(const vxArray* array) {
  const auto isAnyNaN = []<class T>(std::span<const T> elements) {
    return std::ranges::any_of(elements, [](T element) { return element != element; });
  };
  return withElementType(vxGetClassID(array), [&]<class T>(std::type_identity<T>) {
    return isAnyNaN(elementsOf<T>(array));
  });
}

void requireCastable(const LiteralValue& argument, vxClassID target) {
  const vxArray* array = argument.array.get();
  if (!hasPlainElements(vxGetClassID(array)))
    refuse(argument, "expected numbers, logicals or a text");
  const bool unordered = target == vxLOGICAL_CLASS || target == vxCHAR_CLASS;
  if (unordered && vxIsComplex(array))
    refuse(argument, "a complex number is no logical and no character");
  if (target == vxLOGICAL_CLASS && hasNaN(array)) refuse(argument, "NaN is no logical");
  const bool mayBeSparse = target == vxDOUBLE_CLASS || target == vxLOGICAL_CLASS;
  if (vxIsSparse(array) && !mayBeSparse) refuse(argument, "only double and logical can be sparse");
}

/// With the size, the imaginary parts and the sparsity.
vcos::ArrayOwner castArray(const vxArray* array, vxClassID classID) {
  vxArray* const cast = vxMustBe(array, classID);
  vcos::ArrayOwner result(cast == array ? vxCreateSharedDataCopy(array) : cast);
  return vxIsSparse(array) ? vcos::ArrayOwner(vxCreateSparse(result.get())) : std::move(result);
}

vcos::ArrayOwner cast(const LiteralCall& call) {
  requireCount(call, call.arguments.size() == 1, "one value");
  const LiteralValue& argument = call.arguments.front();
  const vxClassID target = *classNamed(call.function);
  requireCastable(argument, target);
  return castArray(argument.array.get(), target);
}

// --- sizes ---------------------------------------------------------------------------------------

std::size_t sizeOf(const LiteralValue& argument) {
  const vxArray* array = argument.array.get();
  if (!isRealNumeric(array) || !vxIsScalar(array)) refuse(argument, "expected a size: one number");
  const double size = vxGetScalar(array);
  if (!(size >= 0) || size != std::floor(size))
    refuse(argument, "expected a size: a whole number that is not negative");
  return asSize(size);
}

std::vector<std::size_t> sizesOf(Arguments arguments) {
  std::vector<std::size_t> sizes;
  std::ranges::transform(arguments, std::back_inserter(sizes), sizeOf);
  return sizes;
}

/// As sizesOf, but a single n stands for n by n.
std::vector<std::size_t> dimensionsFrom(const LiteralCall& call, Arguments arguments) {
  requireCount(call, !arguments.empty(), "at least one size");
  std::vector<std::size_t> sizes = sizesOf(arguments);
  if (sizes.size() == 1) sizes.push_back(sizes.front());
  return sizes;
}

vxClassID classOf(const LiteralValue& argument) {
  const std::string name = vxArrayToStdString(argument.array.get());
  const std::optional<vxClassID> classID = classNamed(name);
  if (!classID || *classID == vxCHAR_CLASS)
    refuse(argument, "expected the name of a numeric class or 'logical'");
  return *classID;
}

vcos::ArrayOwner zeros(const LiteralCall& call) {
  Arguments sizes = call.arguments;
  vxClassID classID = vxDOUBLE_CLASS;
  if (!sizes.empty() && isText(sizes.back())) {
    classID = classOf(sizes.back());
    sizes = sizes.first(sizes.size() - 1);
  }
  return makeArray(classID, dimensionsFrom(call, sizes));
}

vcos::ArrayOwner ones(const LiteralCall& call) {
  vcos::ArrayOwner result = zeros(call);
  withElementType(vxGetClassID(result.get()), [&]<class T>(std::type_identity<T>) {
    std::ranges::fill(writableElementsOf<T>(result.get()), T(1));
  });
  return result;
}

vcos::ArrayOwner cell(const LiteralCall& call) {
  const std::vector<std::size_t> dimensions = dimensionsFrom(call, call.arguments);
  return vcos::ArrayOwner(vxCreateCellArray(dimensions.size(), dimensions.data()));
}

std::size_t productOf(const std::vector<std::size_t>& sizes) {
  std::size_t product = std::ranges::count(sizes, 0U) != 0 ? 0 : 1;
  for (const std::size_t size : sizes)
    if (__builtin_mul_overflow(product, size, &product))
      return std::numeric_limits<std::size_t>::max();
  return product;
}

vcos::ArrayOwner reshape(const LiteralCall& call) {
  requireCount(call, call.arguments.size() >= 3, "a value and at least two sizes");
  const LiteralValue& value = call.arguments.front();
  const std::vector<std::size_t> sizes = sizesOf(call.arguments.subspan(1));
  const std::size_t count = vxGetNumberOfElements(value.array.get());
  if (productOf(sizes) != count)
    refuse(call.arguments[1], fmt::format("expected sizes for {} elements", count));
  if (vxIsSparse(value.array.get()) && sizes.size() != 2)
    refuse(value, "a sparse array has two dimensions");
  vcos::ArrayOwner result(vxCreateSharedDataCopy(value.array.get()));
  vxSetDimensions(result.get(), sizes.data(), sizes.size());
  return result;
}

// --- composition ---------------------------------------------------------------------------------

void requireComplexPart(const LiteralValue& argument) {
  const vxArray* array = argument.array.get();
  if (!isRealNumeric(array) || vxIsSparse(array)) refuse(argument, "expected real, full numbers");
}

vcos::ArrayOwner complex(const LiteralCall& call) {
  requireCount(call, call.arguments.size() == 2, "a real and an imaginary part");
  std::ranges::for_each(call.arguments, requireComplexPart);
  const vxArray* real = call.arguments[0].array.get();
  const vxArray* imaginary = call.arguments[1].array.get();
  if (vxGetClassID(real) != vxGetClassID(imaginary) ||
      !std::ranges::equal(dimensionsOf(real), dimensionsOf(imaginary)))
    refuse(call.arguments[1], "expected an imaginary part of the real part's class and size");
  vcos::ArrayOwner result = makeArray(vxGetClassID(real), dimensionsOf(real), vxCOMPLEX);
  withElementType(vxGetClassID(real), [&]<class T>(std::type_identity<T>) {
    std::ranges::copy(elementsOf<T>(real), writableElementsOf<T>(result.get()).begin());
    std::ranges::copy(elementsOf<T>(imaginary), writableImaginaryPartsOf<T>(result.get()).begin());
  });
  return result;
}

vcos::ArrayOwner sparse(const LiteralCall& call) {
  requireCount(call, call.arguments.size() == 1, "one value");
  const LiteralValue& argument = call.arguments.front();
  const vxClassID classID = vxGetClassID(argument.array.get());
  if ((classID != vxDOUBLE_CLASS && classID != vxLOGICAL_CLASS) ||
      vxGetNumberOfDimensions(argument.array.get()) != 2)
    refuse(argument, "expected a double or logical matrix");
  return vcos::ArrayOwner(vxCreateSparse(argument.array.get()));
}

std::string fieldName(const LiteralValue& argument) {
  std::string name = isText(argument) ? vxArrayToStdString(argument.array.get()) : "";
  const auto isLetter = [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; };
  const auto mayFollow = [](char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
  };
  if (name.empty() || !isLetter(name.front()) || !std::ranges::all_of(name, mayFollow))
    refuse(argument, "expected a field name in quotes: a letter, then letters, digits and _");
  return name;
}

std::vector<std::string> fieldNames(Arguments arguments) {
  std::vector<std::string> names;
  std::set<std::string> seen;
  for (std::size_t i = 0; i < arguments.size(); i += 2) {
    names.push_back(fieldName(arguments[i]));
    if (!seen.insert(names.back()).second) refuse(arguments[i], "this field is there already");
  }
  return names;
}

vcos::ArrayOwner structure(const LiteralCall& call) {
  requireCount(call, call.arguments.size() % 2 == 0, "pairs of a field name and a value");
  const std::vector<std::string> names = fieldNames(call.arguments);
  std::vector<const char*> texts(names.size());
  std::ranges::transform(names, texts.begin(), &std::string::c_str);
  const int count = static_cast<int>(names.size());
  vcos::ArrayOwner result(vxCreateStructMatrix(1, 1, count, texts.data()));
  for (int field = 0; field < count; ++field) {
    LiteralValue& value = call.arguments[2 * static_cast<std::size_t>(field) + 1];
    vxSetFieldByNumber(result.get(), 0, field, value.array.release());
  }
  return result;
}

struct Row {
  std::string_view name;
  vcos::ArrayOwner (*evaluate)(const LiteralCall& call);
};

constexpr Row kFunctions[] = {
    {"zeros", zeros},     {"ones", ones},     {"cell", cell},        {"reshape", reshape},
    {"complex", complex}, {"sparse", sparse}, {"struct", structure},
};

const Row* findRow(std::string_view name) {
  const auto* row = std::ranges::find(kFunctions, name, &Row::name);
  return row == std::end(kFunctions) ? nullptr : row;
}

}  // namespace

bool isLiteralFunction(std::string_view name) {
  return findRow(name) || classNamed(name);
}

vcos::ArrayOwner evaluate(const LiteralCall& call) {
  const Row* row = findRow(call.function);
  return row ? row->evaluate(call) : cast(call);
}

}  // namespace vgdt
