#include "../ut/SharedCount.h"
#include "ArrayHeader.h"

#include <messages/catalog.h>
#include <messages/exceptions.h>
#include <unistd.h>
#include <ut/faults.h>
#include <vx/errors.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
#include <numeric>

using vghost::faults::countHostCall;

namespace vghost {
namespace {

constinit Tally live;
constinit SharedCount liveBytes;

struct ClassRow {
  const char* name;
  std::size_t elementSize;  // 0: no plain elements
};

constexpr ClassRow kUnknownClass{"unknown", 0};

/// By class number.
constexpr ClassRow kClasses[] = {
    kUnknownClass,           // 0
    {"cell", 0},             // 1
    {"struct", 0},           // 2
    {"logical", 1},          // 3
    {"char", 2},             // 4
    kUnknownClass,           // 5
    {"double", 8},           // 6
    {"single", 4},           // 7
    {"int8", 1},             // 8
    {"uint8", 1},            // 9
    {"int16", 2},            // 10
    {"uint16", 2},           // 11
    {"int32", 4},            // 12
    {"uint32", 4},           // 13
    {"int64", 8},            // 14
    {"uint64", 8},           // 15
    {"function_handle", 0},  // 16
    {"object", 0},           // 17
};
static_assert(std::size(kClasses) == vxOBJECT_CLASS + 1 &&
              kClasses[vxUINT64_CLASS].elementSize == 8);

constexpr bool isNumeric(vxClassID classID) noexcept {
  return classID >= vxDOUBLE_CLASS && classID <= vxUINT64_CLASS;
}

constexpr const ClassRow& rowOf(vxClassID classID) noexcept {
  const auto index = static_cast<std::size_t>(classID);
  return index < std::size(kClasses) ? kClasses[index] : kUnknownClass;
}

/// What the elements of all arrays may take together: by default a quarter of the machine's memory,
/// since whoever makes an array has it in another form beside it.
std::size_t& memoryLimit() noexcept {
  static std::size_t limit = static_cast<std::size_t>(sysconf(_SC_PHYS_PAGES)) *
                             static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) / 4;
  return limit;
}

std::size_t memoryLeft() noexcept {
  return memoryLimit() - std::min(liveBytes.get(), memoryLimit());
}

[[noreturn]] void raiseTooLarge(const std::size_t* dimensions, std::size_t numberOfDimensions) {
  vxErrMsgId(VORTIL::array::SizeLimitExceeded(sizeText(dimensions, numberOfDimensions)));
}

/// Number of elements; raises if it overflows. The dimensions beside a zero are checked as well, so
/// that every product of dimensions fits.
std::size_t checkedCount(const std::size_t* dimensions, std::size_t numberOfDimensions) {
  std::size_t product = 1;
  bool empty = false;
  bool tooLarge = false;
  for (std::size_t i = 0; i < numberOfDimensions; ++i) {
    empty |= dimensions[i] == 0;
    tooLarge |= __builtin_mul_overflow(product, std::max<std::size_t>(dimensions[i], 1), &product);
  }
  if (tooLarge) raiseTooLarge(dimensions, numberOfDimensions);
  return empty ? 0 : product;
}

/// Slots or object references that make one element of an array.
std::size_t widthOf(vxClassID classID, const Names& names) noexcept {
  return classID == vxSTRUCT_CLASS ? names->size() : 1;
}

std::size_t bytesPerElement(vxClassID classID, bool complex, const Names& names) noexcept {
  const std::size_t plain = rowOf(classID).elementSize;
  return plain == 0 ? widthOf(classID, names) * sizeof(void*) : plain * (complex ? 2 : 1);
}

/// The names of an array that is made by class and size alone.
Names defaultNames(vxClassID classID) {
  switch (classID) {
    case vxSTRUCT_CLASS:
      return makeNames({});
    case vxFUNCTION_CLASS:
      return makeNames({""});
    default:
      return nullptr;
  }
}

std::size_t bytesPerElement(const vxArray& array) noexcept {
  return bytesPerElement(array.classID, array.complex, array.names);
}

/// Before a block like the array's own is made.
void requireMemoryForCopy(const vxArray& array) {
  requireMemory(array.count(), bytesPerElement(array), array.dimensions.data(),
                array.dimensions.size());
}

BlockPtr createBlock(const vxArray& array, std::size_t count) {
  if (count == 0 || array.classID == vxFUNCTION_CLASS) return nullptr;
  if (array.elementSize() != 0)
    return BlockPtr(new PlainBlock(count, array.elementSize(), array.complex));
  if (array.classID == vxOBJECT_CLASS) return BlockPtr(new ObjectBlock(count, 1));
  return BlockPtr(new CellBlock(count, widthOf(array.classID, array.names)));
}

vxArray* createElements(const char* operation, vxClassID classID, const std::size_t* dimensions,
                        std::size_t numberOfDimensions, vxComplexity complexity = vxREAL) {
  countHostCall(operation);
  return createArray(classID, dimensions, numberOfDimensions, complexity).release();
}

vxArray* createNumeric(const char* operation, vxClassID classID, const std::size_t* dimensions,
                       std::size_t numberOfDimensions, vxComplexity complexity) {
  const ClassRow& row = rowOf(classID);
  const bool empty = std::count(dimensions, dimensions + numberOfDimensions, 0U) != 0;
  const bool canBeMade = row.elementSize != 0 || (empty && row.name != kUnknownClass.name);
  if (!canBeMade || (complexity == vxCOMPLEX && !isNumeric(classID)))
    raiseWrongClass(operation, row.name);
  return createElements(operation, classID, dimensions, numberOfDimensions, complexity);
}

void reshape(const char* operation, vxArray* array, const std::size_t* dimensions,
             std::size_t numberOfDimensions) {
  countHostCall(operation);
  const std::size_t count = checkedCount(dimensions, numberOfDimensions);
  if (array->classID == vxFUNCTION_CLASS && count != array->count())
    raiseWrongClass(operation, vxGetClassName(array));
  array->dimensions.reserve(numberOfDimensions);  // nothing fails once the elements are replaced
  if (count == 0) {
    array->block = nullptr;
  } else if (!array->block || count > array->block->size()) {
    requireMemory(count, bytesPerElement(*array), dimensions, numberOfDimensions);
    array->block = array->block ? array->block->resized(count) : createBlock(*array, count);
  }
  array->dimensions.assign(dimensions, dimensions + numberOfDimensions);
}

}  // namespace

Block::Block(std::size_t bytes) noexcept : bytes_(bytes) {
  liveBytes.add(bytes);
}

Block::~Block() {
  liveBytes.subtract(bytes_);
}

PlainBlock::PlainBlock(std::size_t count, std::size_t elementSize, bool complex)
    : Block(count * elementSize * (complex ? 2 : 1)),
      count_(count),
      elementSize_(elementSize),
      real_(allocate(count, elementSize)),
      imag_(complex ? allocate(count, elementSize) : nullptr) {}

void PlainBlock::Free::operator()(std::byte* bytes) const noexcept {
  std::free(bytes);
}

PlainBlock::Bytes PlainBlock::allocate(std::size_t count, std::size_t elementSize) {
  auto* bytes = static_cast<std::byte*>(
      faults::countAllocation() ? nullptr : std::calloc(count, elementSize));
  if (!bytes) throw Lindgrove::System::OutOfMemoryException_DEPRECATED();
  return Bytes(bytes);
}

BlockPtr PlainBlock::resized(std::size_t count) const {
  boost::intrusive_ptr<PlainBlock> result(new PlainBlock(count, elementSize_, imag() != nullptr));
  const std::size_t bytes = std::min(count, count_) * elementSize_;
  std::memcpy(result->real(), real(), bytes);
  if (imag()) std::memcpy(result->imag(), imag(), bytes);
  return result;
}

BlockPtr PlainBlock::transposed(std::size_t m, std::size_t n) const {
  boost::intrusive_ptr<PlainBlock> result(new PlainBlock(count_, elementSize_, imag() != nullptr));
  transpose(m, n, real_.get(), result->real_.get());
  if (imag_) transpose(m, n, imag_.get(), result->imag_.get());
  return result;
}

void PlainBlock::transpose(std::size_t m, std::size_t n, const std::byte* from,
                           std::byte* to) const {
  for (std::size_t column = 0; column < n; ++column)
    for (std::size_t row = 0; row < m; ++row, from += elementSize_)
      std::memcpy(to + (row * n + column) * elementSize_, from, elementSize_);
}

Slot::Slot(const Slot& other)
    : array_(other.array_ ? vxCreateSharedCopyNotOnArrayList(other.array_) : nullptr) {}

ArrayPtr createArray(vxClassID classID, const std::size_t* dimensions,
                     std::size_t numberOfDimensions, vxComplexity complexity, Names names) {
  const bool complex = complexity == vxCOMPLEX;
  const bool isNamed = classID == vxSTRUCT_CLASS || classID == vxFUNCTION_CLASS;
  if (isNamed && !names) names = defaultNames(classID);
  const std::size_t count = checkedCount(dimensions, numberOfDimensions);
  requireMemory(count, bytesPerElement(classID, complex, names), dimensions, numberOfDimensions);
  ArrayPtr array(new vxArray(classID, dimensions, numberOfDimensions));
  array->complex = complex;
  array->names = std::move(names);
  array->block = createBlock(*array, count);
  return array;
}

void requireMemory(std::size_t count, std::size_t bytesPerElement, const std::size_t* dimensions,
                   std::size_t numberOfDimensions) {
  std::size_t bytes = 0;
  if (__builtin_mul_overflow(count, bytesPerElement, &bytes) || bytes > memoryLeft())
    raiseTooLarge(dimensions, numberOfDimensions);
}

Names makeNames(std::vector<std::string> names) {
  return std::make_shared<const std::vector<std::string>>(std::move(names));
}

void raiseWrongClass(const char* operation, const char* className) {
  vxErrMsgId(VORTIL::array::WrongClass(operation, className));
}

void requireClass(const vxArray* array, vxClassID classID, const char* operation) {
  if (array->classID != classID) raiseWrongClass(operation, vxGetClassName(array));
}

void requireTwoDimensions(const vxArray* array, const char* operation) {
  const Dimensions& dimensions = array->dimensions;
  if (dimensions.size() != 2)
    vxErrMsgId(
        VORTIL::array::WrongShape(operation, sizeText(dimensions.data(), dimensions.size())));
}

void requireIndex(std::size_t index, std::size_t count) {
  if (index >= count)
    vxErrMsgId(VORTIL::array::IndexOutOfRange(std::to_string(index), std::to_string(count)));
}

void setArrayMemoryLimit(std::size_t bytes) noexcept {
  memoryLimit() = bytes;
}

std::size_t liveArrays() noexcept {
  return live.get();
}

std::string sizeText(const std::size_t* dimensions, std::size_t numberOfDimensions) {
  std::string text;
  for (std::size_t i = 0; i < numberOfDimensions; ++i) {
    if (i != 0) text += 'x';
    text += std::to_string(dimensions[i]);
  }
  return text;
}

}  // namespace vghost

using namespace vghost;

vxArray_tag::vxArray_tag(vxClassID newClass, const std::size_t* newDimensions,
                         std::size_t numberOfDimensions)
    : classID(newClass),
      dimensions(newDimensions, newDimensions + numberOfDimensions) {
  live.add(1);
  enlist(this);
}

vxArray_tag::vxArray_tag(const vxArray_tag& other) : vxArray_tag(other, Unlisted()) {
  enlist(this);
}

vxArray_tag::vxArray_tag(const vxArray_tag& other, Unlisted)
    : ArrayStorage(other),
      ArrayListHook(other),  // ignores its argument: the copy is on no list yet
      classID(other.classID),
      sparse(other.sparse),
      complex(other.complex),
      dimensions(other.dimensions),
      block(other.block),
      names(other.names),
      className(other.className) {
  live.add(1);
}

vxArray_tag::~vxArray_tag() {
  live.subtract(1);
}

std::size_t vxArray_tag::count() const noexcept {
  return std::accumulate(dimensions.begin(), dimensions.end(), std::size_t{1}, std::multiplies<>());
}

std::size_t vxArray_tag::elementSize() const noexcept {
  return rowOf(classID).elementSize;
}

Block* vxArray_tag::writableBlock() {
  if (block && block->isShared()) {
    requireMemoryForCopy(*this);
    block = block->resized(count());
  }
  return block.get();
}

vxArray* vxCreateNumericMatrix(std::size_t m, std::size_t n, vxClassID classID,
                               vxComplexity complexity) {
  const std::size_t dimensions[] = {m, n};
  return createNumeric("vxCreateNumericMatrix", classID, dimensions, 2, complexity);
}

vxArray* vxCreateNumericArray(std::size_t numberOfDimensions, const std::size_t* dimensions,
                              vxClassID classID, vxComplexity complexity) {
  return createNumeric("vxCreateNumericArray", classID, dimensions, numberOfDimensions, complexity);
}

vxArray* vxCreateDoubleMatrix(std::size_t m, std::size_t n, vxComplexity complexity) {
  const std::size_t dimensions[] = {m, n};
  return createElements("vxCreateDoubleMatrix", vxDOUBLE_CLASS, dimensions, 2, complexity);
}

vxArray* vxCreateDoubleScalar(double value) {
  const std::size_t dimensions[] = {1, 1};
  vxArray* array = createElements("vxCreateDoubleScalar", vxDOUBLE_CLASS, dimensions, 2);
  *static_cast<double*>(vxGetWritableData(array)) = value;
  return array;
}

vxArray* vxCreateCharArray(std::size_t numberOfDimensions, const std::size_t* dimensions) {
  return createElements("vxCreateCharArray", vxCHAR_CLASS, dimensions, numberOfDimensions);
}

vxArray* vxCreateCellMatrix(std::size_t m, std::size_t n) {
  const std::size_t dimensions[] = {m, n};
  return createElements("vxCreateCellMatrix", vxCELL_CLASS, dimensions, 2);
}

vxArray* vxCreateCellArray(std::size_t numberOfDimensions, const std::size_t* dimensions) {
  return createElements("vxCreateCellArray", vxCELL_CLASS, dimensions, numberOfDimensions);
}

vxArray* vxCreateStructMatrix(std::size_t m, std::size_t n, int numberOfFields,
                              const char* const* fieldNames) {
  countHostCall("vxCreateStructMatrix");
  const std::size_t dimensions[] = {m, n};
  std::vector<std::string> names(fieldNames, fieldNames + std::max(numberOfFields, 0));
  return createArray(vxSTRUCT_CLASS, dimensions, 2, vxREAL, makeNames(std::move(names))).release();
}

vxArray* vxCreateFunctionHandle(const char* functionName) {
  countHostCall("vxCreateFunctionHandle");
  const std::size_t dimensions[] = {1, 1};
  return createArray(vxFUNCTION_CLASS, dimensions, 2, vxREAL, makeNames({functionName})).release();
}

vxClassID vxGetClassID(const vxArray* array) noexcept {
  return array->classID;
}

const char* vxGetClassName(const vxArray* array) noexcept {
  return array->className ? array->className : vxClassName(array->classID);
}

const char* vxClassName(vxClassID classID) noexcept {
  return rowOf(classID).name;
}

bool vxIsNumeric(const vxArray* array) noexcept {
  return isNumeric(array->classID);
}

bool vxIsComplex(const vxArray* array) noexcept {
  return array->complex;
}

bool vxIsSparse(const vxArray* array) noexcept {
  return array->sparse;
}

std::size_t vxGetNumberOfDimensions(const vxArray* array) noexcept {
  return array->dimensions.size();
}

const std::size_t* vxGetDimensions(const vxArray* array) noexcept {
  return array->dimensions.data();
}

std::size_t vxGetM(const vxArray* array) noexcept {
  return array->dimensions.empty() ? 1 : array->dimensions[0];
}

std::size_t vxGetN(const vxArray* array) noexcept {
  const Dimensions& dimensions = array->dimensions;
  if (dimensions.size() < 2) return 1;
  return std::accumulate(dimensions.begin() + 1, dimensions.end(), std::size_t{1},
                         std::multiplies<>());
}

std::size_t vxGetNumberOfElements(const vxArray* array) noexcept {
  return array->count();
}

std::size_t vxGetElementSize(const vxArray* array) noexcept {
  return array->elementSize();
}

bool vxIsEmpty(const vxArray* array) noexcept {
  return array->count() == 0;
}

bool vxIsScalar(const vxArray* array) noexcept {
  return array->count() == 1;
}

bool vxIsVector(const vxArray* array) noexcept {
  const Dimensions& dimensions = array->dimensions;
  return dimensions.size() == 2 && (dimensions[0] == 1 || dimensions[1] == 1) &&
         array->count() != 0;
}

void vxSetM(vxArray* array, std::size_t m) {
  if (array->dimensions.empty()) return reshape("vxSetM", array, &m, 1);
  Dimensions dimensions = array->dimensions;
  dimensions.front() = m;
  reshape("vxSetM", array, dimensions.data(), dimensions.size());
}

void vxSetN(vxArray* array, std::size_t n) {
  const std::size_t dimensions[] = {vxGetM(array), n};
  reshape("vxSetN", array, dimensions, 2);
}

void vxSetDimensions(vxArray* array, const std::size_t* dimensions,
                     std::size_t numberOfDimensions) {
  reshape("vxSetDimensions", array, dimensions, numberOfDimensions);
}

vxArray* vxTranspose(const vxArray* array) {
  countHostCall("vxTranspose");
  requireTwoDimensions(array, "vxTranspose");
  requireMemoryForCopy(*array);
  ArrayPtr result(new vxArray(*array));
  if (array->block) result->block = array->block->transposed(vxGetM(array), vxGetN(array));
  std::swap(result->dimensions[0], result->dimensions[1]);
  return result.release();
}

vxArray* vxCreateSharedDataCopy(const vxArray* array) {
  countHostCall("vxCreateSharedDataCopy");
  return new vxArray(*array);
}

vxArray* vxCreateSharedCopyNotOnArrayList(const vxArray* array) {
  countHostCall("vxCreateSharedCopyNotOnArrayList");
  return new vxArray(*array, vxArray::Unlisted());
}

void vxDestroyArray(vxArray* array) noexcept {
  delete array;
}

vxArray* vxCreateSparse(const vxArray* array) {
  countHostCall("vxCreateSparse");
  if (array->classID != vxDOUBLE_CLASS && array->classID != vxLOGICAL_CLASS)
    raiseWrongClass("vxCreateSparse", vxGetClassName(array));
  requireTwoDimensions(array, "vxCreateSparse");
  auto* copy = new vxArray(*array);
  copy->sparse = true;
  return copy;
}

vxArray* vxMustBeFull(const vxArray* array) {
  countHostCall("vxMustBeFull");
  auto* copy = new vxArray(*array);
  copy->sparse = false;
  return copy;
}
