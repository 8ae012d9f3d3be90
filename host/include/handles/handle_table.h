#pragma once

/// The table of handles: numbers by which older user code holds objects. An entry leads from a
/// number to a record, which whoever enters it keeps.
///
/// Integers from 1 upwards are for figures; 0 is free for the root. All other numbers are above 0
/// and never whole. A number that a fresh entry gets has not been any other object's before,
/// integers aside.

#include <ut/export.h>

#include <cstdint>

namespace vcos {
class COSInterface;
}

/// What a number leads to. The order of the members is part of the interface.
struct HandleRecord {
  std::int32_t classNumber;  ///< as utGetClassNum gives it
  double handle;             ///< the number, while the table has the record; otherwise -1
  std::uint64_t reserved;
  /// The table sets it to null when the last reference to the object goes. It counts no reference.
  vcos::COSInterface* object;
};
static_assert(sizeof(HandleRecord) == 32);

/// The record of a number; null if it has none.
VGHOST_API HandleRecord* handle2pointer(double handle) noexcept;
/// Enters a record under a fresh number that is not whole; -1.0 if there is none left. `reserved`
/// is -1.0.
VGHOST_API double new_handle(HandleRecord* record, double reserved);
/// Enters a record under the smallest integer from 1 that is free; -1.0 if there is none.
VGHOST_API double new_figure_handle(HandleRecord* record);
/// Enters a record under an integer, in the place of the one that has it.
VGHOST_API void assign_figure_handle(HandleRecord* record, int number);
/// Takes a number out of the table; nothing if it is not there.
VGHOST_API void destroy_handle(double handle) noexcept;
/// Lets a number lead to another record; null takes it out of the table. Nothing if the number is
/// not there.
VGHOST_API void rebind_handle(double handle, HandleRecord* record) noexcept;
/// The class number of a record's object.
VGHOST_API int get_any_object_type(const HandleRecord* record) noexcept;
