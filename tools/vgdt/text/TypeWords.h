#pragma once

#include "Types.h"
#include "text/Explanation.h"

#include <string>
#include <vector>

namespace vgdt {

/// What people are told of a type.
struct TypeWords {
  std::string family;
  std::string inShort;                    ///< what it takes, for a cell of a table
  std::vector<std::string> values;        ///< what it takes, a line for each way; empty if unknown
  std::vector<std::string> texts = {};    ///< what a text has to be, where `values` do not say it
  std::vector<std::string> samples = {};  ///< literals: some that it takes and some that it refuses
  Explain explain = explainNames;
};

/// The words of a type with rules of its own are a row in TypeWords.cpp, GeometryWords.cpp or
/// StringWords.cpp; those of the others follow from the rules of their family.
TypeWords wordsOf(const Type& type);

}  // namespace vgdt
