#pragma once

/// The host array interface. A host array has a class, two or more dimensions (column-major), and a
/// block of elements that copies share until one of them is written to.
///
/// Ownership: an array that an operation creates belongs to the caller, who frees it with
/// vxDestroyArray, until it is handed on. Inside an array-list context (vx/scopes.h) it also
/// stands on that context's list, and the end of the context destroys it unless it was detached.
///
/// Errors: "VORTIL:array:SizeLimitExceeded" before anything is allocated when the dimensions
/// overflow or exceed what memory could hold; Lindgrove::System::OutOfMemoryException_DEPRECATED
/// when memory fails; "VORTIL:array:WrongClass", "VORTIL:array:WrongShape" and
/// "VORTIL:array:IndexOutOfRange" for arguments that do not fit the operation. Unless it says
/// otherwise, an operation must not be given a null array.

#include <ut/export.h>

#include <cstddef>
#include <string>

struct vxArray_tag;
using vxArray = vxArray_tag;

/// One character: a UTF-16 unit.
using vxChar = unsigned short;

enum vxClassID : int {
  vxCELL_CLASS = 1,
  vxSTRUCT_CLASS = 2,
  vxLOGICAL_CLASS = 3,
  vxCHAR_CLASS = 4,
  vxDOUBLE_CLASS = 6,
  vxSINGLE_CLASS = 7,
  vxINT8_CLASS = 8,
  vxUINT8_CLASS = 9,
  vxINT16_CLASS = 10,
  vxUINT16_CLASS = 11,
  vxINT32_CLASS = 12,
  vxUINT32_CLASS = 13,
  vxINT64_CLASS = 14,
  vxUINT64_CLASS = 15,
  vxFUNCTION_CLASS = 16,
  vxOBJECT_CLASS = 17,
};

enum vxComplexity : int { vxREAL = 0, vxCOMPLEX = 1 };

// --- creation -----------------------------------------------------------------------------------

/// Zeroed arrays of one of the twelve element classes (logical to uint64); an array without
/// elements may be of any class. Only the ten numeric classes can be complex.
[[nodiscard]] VGHOST_API vxArray* vxCreateNumericMatrix(std::size_t m, std::size_t n,
                                                        vxClassID classID, vxComplexity complexity);
/// As above with any number of dimensions, also none (one element) or one (then N is 1).
[[nodiscard]] VGHOST_API vxArray* vxCreateNumericArray(std::size_t numberOfDimensions,
                                                       const std::size_t* dimensions,
                                                       vxClassID classID, vxComplexity complexity);
[[nodiscard]] VGHOST_API vxArray* vxCreateDoubleMatrix(std::size_t m, std::size_t n,
                                                       vxComplexity complexity);
[[nodiscard]] VGHOST_API vxArray* vxCreateDoubleScalar(double value);

/// A 1 by n char array of a UTF-8 text; 0 by 0 for "" and for null.
[[nodiscard]] VGHOST_API vxArray* vxCreateString(const char* text);
/// The same from `length` UTF-16 units, which may include NULs.
[[nodiscard]] VGHOST_API vxArray* vxCreateString_UTF16(const vxChar* text, std::size_t length);
/// A char array of NULs.
[[nodiscard]] VGHOST_API vxArray* vxCreateCharArray(std::size_t numberOfDimensions,
                                                    const std::size_t* dimensions);
/// A char matrix of `rows` rows, as wide as the longest text; shorter ones are padded with NULs.
[[nodiscard]] VGHOST_API vxArray* vxCreateCharMatrixFromStrings(std::size_t rows,
                                                                const char* const* texts);

/// Cell arrays with null elements.
[[nodiscard]] VGHOST_API vxArray* vxCreateCellMatrix(std::size_t m, std::size_t n);
[[nodiscard]] VGHOST_API vxArray* vxCreateCellArray(std::size_t numberOfDimensions,
                                                    const std::size_t* dimensions);
/// A struct array; every field of every element is null.
[[nodiscard]] VGHOST_API vxArray* vxCreateStructMatrix(std::size_t m, std::size_t n,
                                                       int numberOfFields,
                                                       const char* const* fieldNames);
/// A 1 by 1 handle of the function of that name.
[[nodiscard]] VGHOST_API vxArray* vxCreateFunctionHandle(const char* functionName);

// --- class and shape ----------------------------------------------------------------------------

VGHOST_API vxClassID vxGetClassID(const vxArray* array) noexcept;
/// "double", "char", ...; for an object array the name of its class.
VGHOST_API const char* vxGetClassName(const vxArray* array) noexcept;
/// "double", "char", ... of a class number; "object" for an object array.
VGHOST_API const char* vxClassName(vxClassID classID) noexcept;
/// The ten classes double to uint64; neither logical nor char.
VGHOST_API bool vxIsNumeric(const vxArray* array) noexcept;
VGHOST_API bool vxIsComplex(const vxArray* array) noexcept;
VGHOST_API bool vxIsSparse(const vxArray* array) noexcept;

VGHOST_API std::size_t vxGetNumberOfDimensions(const vxArray* array) noexcept;
VGHOST_API const std::size_t* vxGetDimensions(const vxArray* array) noexcept;
/// The first dimension.
VGHOST_API std::size_t vxGetM(const vxArray* array) noexcept;
/// The product of all dimensions after the first.
VGHOST_API std::size_t vxGetN(const vxArray* array) noexcept;
VGHOST_API std::size_t vxGetNumberOfElements(const vxArray* array) noexcept;
/// Bytes of one element; 0 for the classes without plain elements (cell, struct, function, object).
VGHOST_API std::size_t vxGetElementSize(const vxArray* array) noexcept;

/// No elements.
VGHOST_API bool vxIsEmpty(const vxArray* array) noexcept;
/// One element.
VGHOST_API bool vxIsScalar(const vxArray* array) noexcept;
/// Two dimensions, one row or one column, at least one element.
VGHOST_API bool vxIsVector(const vxArray* array) noexcept;

/// Change the shape in place. Elements keep their place in storage order, and new ones are zero.
/// Elements beyond the new end are kept unseen until the array gets elements of its own or becomes
/// empty, so that a shape can be changed in two steps: vxSetM and vxSetN make a row of a column and
/// copy nothing.
VGHOST_API void vxSetM(vxArray* array, std::size_t m);
VGHOST_API void vxSetN(vxArray* array, std::size_t n);
VGHOST_API void vxSetDimensions(vxArray* array, const std::size_t* dimensions,
                                std::size_t numberOfDimensions);
/// A new array with rows and columns exchanged. Two dimensions only.
[[nodiscard]] VGHOST_API vxArray* vxTranspose(const vxArray* array);

// --- elements -----------------------------------------------------------------------------------

/// The elements of an array of the twelve element classes, in storage order. Null when there are
/// none, and for the other classes. Valid until the array is written to or destroyed.
VGHOST_API const void* vxGetData(const vxArray* array) noexcept;
/// The imaginary parts; null if the array is real.
VGHOST_API const void* vxGetImagData(const vxArray* array) noexcept;
/// The same for writing: the array first gets elements of its own if it shares them.
VGHOST_API void* vxGetWritableData(vxArray* array);
VGHOST_API void* vxGetWritableImagData(vxArray* array);

/// The first element (its real part) as a double. Any of the twelve element classes, not empty.
VGHOST_API double vxGetScalar(const vxArray* array);
/// The elements of a logical array.
VGHOST_API const bool* vxGetLogicals(const vxArray* array);

/// An element of a cell array; it stays the array's and may be null.
VGHOST_API const vxArray* vxGetCell(const vxArray* array, std::size_t index);
/// Puts an element in. It belongs to the array from now on (also if this call fails), and the old
/// element is destroyed.
VGHOST_API void vxSetCell(vxArray* array, std::size_t index, vxArray* element);

/// 0 for an array that is no struct.
VGHOST_API int vxGetNumberOfFields(const vxArray* array);
VGHOST_API const char* vxGetFieldNameByNumber(const vxArray* array, int field);
VGHOST_API const vxArray* vxGetFieldByNumber(const vxArray* array, std::size_t index, int field);
/// Ownership as for vxSetCell.
VGHOST_API void vxSetFieldByNumber(vxArray* array, std::size_t index, int field, vxArray* element);

/// The name behind a function handle; it stays the array's.
VGHOST_API const char* vxGetFunctionName(const vxArray* array);

// --- sharing and destruction --------------------------------------------------------------------

/// A separate array that shares the elements.
[[nodiscard]] VGHOST_API vxArray* vxCreateSharedDataCopy(const vxArray* array);
/// The same, detached from the array-list context from the start.
[[nodiscard]] VGHOST_API vxArray* vxCreateSharedCopyNotOnArrayList(const vxArray* array);
/// Null does nothing.
VGHOST_API void vxDestroyArray(vxArray* array) noexcept;

/// A sparse copy. The stand-in keeps all elements and a flag. Double and logical, two dimensions.
[[nodiscard]] VGHOST_API vxArray* vxCreateSparse(const vxArray* array);
/// A full copy without the sparse flag.
[[nodiscard]] VGHOST_API vxArray* vxMustBeFull(const vxArray* array);

/// The array itself if it is full and of the class already; otherwise a new full array with its
/// elements in that class, which the caller destroys (vghost::castElement says what becomes of
/// them). Twelve element classes; a complex array can become only one of a numeric class. The
/// result must not be written to: it may be the caller's own array.
[[nodiscard]] VGHOST_API vxArray* vxMustBe(const vxArray* array, vxClassID classID);

// --- text ---------------------------------------------------------------------------------------

/// The characters of a char array in storage order as UTF-8. An array of another class raises
/// "VORTIL:class:VORTILConversionError".
VGHOST_API std::string vxArrayToStdString(const vxArray* array);
/// The same as a C string, freed with utFree; null when memory fails.
[[nodiscard]] VGHOST_API char* vxArrayToString(const vxArray* array);
/// The same in memory of `allocate`; null when memory fails.
[[nodiscard]] VGHOST_API char* vxCreateCStrFromArray(const vxArray* array,
                                                     void* (*allocate)(std::size_t));

namespace vghost {

/// How many host arrays are alive, elements of cells and structs included.
VGHOST_API std::size_t liveArrays() noexcept;

/// How many bytes the elements of all arrays may take together; an array that would not fit beside
/// those that are alive raises "VORTIL:array:SizeLimitExceeded". By default a quarter of the
/// machine's memory.
VGHOST_API void setArrayMemoryLimit(std::size_t bytes) noexcept;

/// "2x3" for messages.
VGHOST_API std::string sizeText(const std::size_t* dimensions, std::size_t numberOfDimensions);

}  // namespace vghost
