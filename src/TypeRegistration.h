#pragma once

/// How a type registers: with one line beside its data type, which names the type and the two
/// functions that start-up knows it by.
///
///     VGDT_REGISTER_TYPE(Inset, init_VortilGraphicsDatatype_InsetDataType,
///                        init_VortilGraphicsDatatype_InsetDataType_callback)

#include <graphics/datatype/registration.h>
#include <gui_objects/InitializationCallbackRegistrar.h>
#include <vcos/COSDataType.h>
#include <vcos/COSNameID.h>
#include <vcos/COSTypeRepository.h>

#include <type_traits>

/// Defines `callback`, which registers the type, and `queueFunction`, which puts the callback on
/// the queue that start-up runs; the queueing function is called when the library is loaded. To be
/// used in the namespace graphics::datatype.
#define VGDT_REGISTER_TYPE(Type, queueFunction, callback) \
  VGDT_REGISTER_TYPE_WITH(Type, makeJavaConversion<Type##JC>, queueFunction, callback)

/// The same, for a type whose Java conversion is made by a function.
#define VGDT_REGISTER_TYPE_WITH(Type, makeForJava, queueFunction, callback) \
  void callback() {                                                         \
    registerType<Type##DataType, Type##VC, Type##SC, makeForJava>();        \
  }                                                                         \
  bool queueFunction() {                                                    \
    get_initialization_callback_registry()->addCallback(&callback);         \
    return true;                                                            \
  }                                                                         \
  namespace {                                                               \
  [[maybe_unused]] const bool queueFunction##_done = queueFunction();       \
  }

namespace graphics::datatype {

/// Makes a `Conversion` and gives it to the repository. Nothing leaks if any step fails.
template <class Conversion>
void addConversion(const char* outside, const char* inner) {
  const vcos::COSNameID outsideName(outside);
  const vcos::COSNameID innerName(inner);
  vcos::COSTypeRepository::addConversion(outsideName, innerName, new Conversion);
}

/// Makes a conversion for a data type.
using MakeConversion = vcos::COSTypeConversion* (*)(vcos::COSDataType& type);

/// A conversion is made with its data type if its constructor takes one.
template <class DataType, class Conversion>
vcos::COSTypeConversion* makeConversion([[maybe_unused]] vcos::COSDataType& type) {
  if constexpr (std::is_constructible_v<Conversion, const DataType&>)
    return new Conversion(static_cast<const DataType&>(type));
  else
    return new Conversion;
}

/// Makes a Java conversion for a data type of that dotted name.
using MakeJavaConversion = vcos::JavaTypeConversion* (*)(vcos::COSDataType& type,
                                                         const char* dottedName);

template <class Conversion>
vcos::JavaTypeConversion* makeJavaConversion(vcos::COSDataType&, const char*) {
  return new Conversion;
}

/// How a type is converted: from and to host arrays, text, and Java objects.
struct Conversions {
  MakeConversion forArrays;
  MakeConversion forText;
  MakeJavaConversion forJava;
};

/// Adds a type, then its conversions for host arrays, for text and for Java. What the class system
/// refuses passes through; what was added before stays.
void addType(vcos::COSDataType& type, const char* dottedName, const Conversions& conversions);

/// As addType(), but what the class system refuses, such as a type that is known already, ends it
/// without a word.
void addTypeInSilence(vcos::COSDataType& type, const char* dottedName,
                      const Conversions& conversions);

/// Registers a type. One whose getType() gives no object of its own class is left out: its
/// conversions could not work on that.
template <class DataType, class VC, class SC, MakeJavaConversion makeForJava>
void registerType() {
  if (auto* type = dynamic_cast<DataType*>(DataType::getType()))
    addTypeInSilence(*type, DataType::kDottedName,
                     {makeConversion<DataType, VC>, makeConversion<DataType, SC>, makeForJava});
}

}  // namespace graphics::datatype
