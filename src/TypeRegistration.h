#pragma once

/// What every type's registration is made of. A type registers with one line beside its data type:
///
///     VGDT_QUEUE_AT_LOAD(init_datatypes_OnOffBooleanDataType, registerOnOffBoolean)

#include <graphics/datatype/registration.h>
#include <gui_objects/InitializationCallbackRegistrar.h>
#include <vcos/COSNameID.h>
#include <vcos/COSTypeRepository.h>

/// Defines the queueing function, which puts `callback` on the queue that start-up runs, and calls
/// it when the library is loaded. To be used in the namespace graphics::datatype.
#define VGDT_QUEUE_AT_LOAD(queueFunction, callback)                   \
  bool queueFunction() {                                              \
    get_initialization_callback_registry()->addCallback(&(callback)); \
    return true;                                                      \
  }                                                                   \
  namespace {                                                         \
  [[maybe_unused]] const bool queueFunction##_done = queueFunction(); \
  }

namespace graphics::datatype {

/// Makes a `Conversion` and gives it to the repository. Nothing leaks if any step fails.
template <class Conversion>
void addConversion(const char* outside, const char* inner) {
  const vcos::COSNameID outsideName(outside);
  const vcos::COSNameID innerName(inner);
  vcos::COSTypeRepository::addConversion(outsideName, innerName, new Conversion);
}

/// Makes a conversion for a type.
using MakeConversion = vcos::COSTypeConversion* (*)(vcos::COSDataType* type);

/// Adds a type and its conversions for host arrays and for text. What the class system refuses,
/// such as a type that is known already, ends this without a word; what was added before stays.
void registerType(vcos::COSDataType* type, const char* dottedName, MakeConversion makeForArrays,
                  MakeConversion makeForText);

}  // namespace graphics::datatype
