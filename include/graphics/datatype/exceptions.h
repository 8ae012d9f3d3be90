#pragma once

#include <graphics/datatype/export.h>
#include <messages/exceptions.h>

namespace graphics::datatype {

/// A general failure.
///
///     try {
///       use(value.convert_to_string());
///     } catch (const GenericException&) {
///       use("an array of no class that can be listed");
///     }
class VGDT_API GenericException : public Lindgrove::System::InternalException_DEPRECATED {
 public:
  ~GenericException() override;
};

/// A colour name fits several entries of the table.
class VGDT_API AmbiguousNameException : public Lindgrove::System::InternalException_DEPRECATED {
 public:
  ~AmbiguousNameException() override;
};

/// A colour name fits no entry of the table.
class VGDT_API MissingNameException : public Lindgrove::System::InternalException_DEPRECATED {
 public:
  ~MissingNameException() override;
};

}  // namespace graphics::datatype
