#pragma once

#include <graphics/datatype/export.h>

namespace gui_objects {
class InitializationCallbackRegistrar;
}
namespace vcos {
class COSDataType;
class COSPackage;
}  // namespace vcos

namespace graphics::datatype {

/// The one queue of type initialisers. It is made on first use, which may be before any other
/// static of the library is set, and never destroyed.
VGDT_API gui_objects::InitializationCallbackRegistrar* get_initialization_callback_registry();

/// Adds a type, which must live as long as the process, to the package "vortil.graphics.datatype",
/// which is made if necessary.
///
///     registerDatatype(DashesDataType::getType());  // a type of another library
///
/// Errors: "VORTIL:vg:VCOSPackageNotFound" if the package cannot be found even then; a
/// vcos::COSException if the type is known already.
VGDT_API void registerDatatype(vcos::COSDataType* type);

/// Makes sure that the package of a dotted name exists, and the packages around it, from the
/// outside in. Only for a package that is missing are the two functions asked, with its whole
/// dotted name, for its texts.
///
/// Returns what the host finds under the name afterwards; null if that is nothing. A failed
/// allocation is a vcos::COSOutOfMemoryException.
VGDT_API vcos::COSPackage* register_package(const char* name,
                                            const char* (*description)(const char*),
                                            const char* (*details)(const char*));

}  // namespace graphics::datatype
