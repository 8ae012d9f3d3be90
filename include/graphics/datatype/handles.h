#pragma once

#include <graphics/datatype/export.h>
#include <messages/exceptions.h>
#include <vcos/COSInterface.h>

#include <exception>
#include <string>

namespace graphics::datatype {

// Objects as numbers, for older user code: 0 is the root, an integer from 1 a figure whose
// "IntegerHandle" is on, and any other number every other graphics object (a "vg2utils.VGHandle").
// -1 stands for no handle. The host keeps the table; the conversion between the names "double" and
// "vortil.graphics.datatype.COSInterface" goes through it:
//
//     const vcos::COSTypeConversion* numbers = vcos::COSTypeRepository::getConversion(
//         vcos::COSNameID("double"), vcos::COSNameID("vortil.graphics.datatype.COSInterface"));
//     const vcos::COSValue number = numbers->to(vcos::COSValue::fromPointer(object));
//     numbers->from(number).asPointer<vcos::COSInterface>();  // the object, without a reference
//
// `to` gives a new number at each call, other than for the root; -1 for an object that is no
// graphics object, for null, and where the table is full. It raises
// "VORTIL:vg:root:InvalidRootCast" for the first root while the feature "VORTILUsingSingleGraphics"
// is off, and throws an InvalidDoubleHandleException for a root when 0 names nothing any more.
// `from` gives null for a number that names nothing.

/// Registers that conversion; part of start-up.
VGDT_API void initDoubleConverters();

/// Takes a number out of the table and frees what it led to. Nothing for a number that names
/// nothing.
VGDT_API void vcos_destroy_handle(double handle);

/// Gives a figure an integer of the host's choice as a further number. The figure that has it by
/// now loses it.
VGDT_API void assignFigureIntegerHandle(const vcos::COSInterfacePtr& figure, int number);

/// Warns ("VORTIL:graphics:DoubleConversionWarning") that an object of that class becomes a number,
/// while the feature "VG2EarlyWarnings" or "VG2DoubleConversionWarning" is on. Null is "graphics".
VGDT_API void warnAboutToDoubleConversion(const vcos::COSInterfacePtr& object);
/// Likewise ("VORTIL:vg:DoubleToHandleConversion") that a number becomes an object.
VGDT_API void warnAboutFromDoubleConversion();

/// A number names no object where it has to.
class VGDT_API InvalidDoubleHandleException final
    : public fl::except::Exception<fl::except::IUserException, std::exception, void> {
 public:
  InvalidDoubleHandleException(std::string identifier, std::string text);
  ~InvalidDoubleHandleException() override;

  const char* GetID() const override;
  fl::ustring GetUnicodeMessageTxt() const override;
  InvalidDoubleHandleException* clone() const override;
  [[noreturn]] void rethrow() const override;
  const char* what() const noexcept override;

 private:
  std::string identifier_;
  std::string text_;
};

namespace test {

/// From true to false the numbers that were made are kept; on false they are all destroyed, so that
/// a test leaves nothing behind. False without a true before it does nothing.
VGDT_API void enableDoubleHandleTracking(bool enable);

}  // namespace test

}  // namespace graphics::datatype
