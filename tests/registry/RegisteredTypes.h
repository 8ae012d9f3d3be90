#pragma once

#include "support/Arrays.h"

#include <vcos/COSTypeRepository.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace test {

/// What a piece of work with a type may fail by, a letter for each: n for operator new, a for an
/// allocation of the host, c for a call that the host refuses.
struct Obstacles {
  const char* textToValue;
  const char* arrayToValue;
  const char* valueToText;
  const char* valueToArray;
  const char* possibleValues;
  const char* copy;
};

enum class Family { kOwn, kEnumerated, kShaped };

/// A type as callers know it, written by hand: never made from what the library is made from.
struct RegisteredType {
  std::string name;                    ///< the last part of the dotted name
  std::size_t bytes;                   ///< that the type reports; 0 if its words are no values
  std::string text;                    ///< a value; empty if the type takes no text
  std::optional<std::string> printed;  ///< what it prints as; none if it has no text
  std::function<ArrayOwner()> array;   ///< another value
  std::function<ArrayOwner()> defaultArray;
  std::optional<std::string> defaultPrinted;
  std::function<ArrayOwner()> nullArray;  ///< what null becomes
  Obstacles obstacles;

  // What few types depart from.
  Family family = Family::kOwn;
  std::string declarationName = name;
  int storageType = 7;
  bool isFinite = false;             ///< as to its possible values
  bool isCopied = storageType == 7;  ///< a copy is another word
  bool isDefaultNull = storageType == 0;
  int order = 2;  ///< of the value of the array and that of the text, if it is not equal
  int reverseOrder = 2;
  // What null becomes, as outcomeOf() tells it.
  std::string fromNullText = "null";
  std::string fromNullArray = "null";
  std::string copyOfNull = "null";
  std::optional<std::string> nullPrinted = std::nullopt;
  /// In the order in which they are registered: the name outside, and that of the type.
  std::vector<std::pair<std::string, std::string>> conversions = {{"any", dottedName()},
                                                                  {"string", dottedName()}};
  std::string refusalRaises = {};  ///< by start-up, if a step of the registration is refused

  std::string dottedName() const { return "vortil.graphics.datatype." + name; }
  bool takesText() const { return !text.empty(); }
};

/// Each type that the library registers.
const std::vector<RegisteredType>& registeredTypes();

/// How many steps of the registration are done: the type and its conversions, in their order; -1 if
/// one is done without the one before it.
int stepsOf(const RegisteredType& type);
/// Whether all are.
bool isComplete(const RegisteredType& type);

/// How many types are registered: "complete", "in part" and "missing".
using Progress = std::map<std::string, std::size_t>;
Progress progress();

inline vcos::COSTypeConversion* conversion(const std::string& outside, const std::string& inner) {
  return vcos::COSTypeRepository::getConversion(vcos::COSNameID(outside.c_str()),
                                                vcos::COSNameID(inner.c_str()));
}

}  // namespace test
