// Tcl: the look-up of a keyword that its own commands use for their subcommands and options.

#include "contest.h"

#include <tcl.h>

namespace peers {
namespace {

/// Tcl keeps what it found in the object, so each text gets one of its own.
int lookUp(const char* text) {
  // Tcl wants the table to be at one address and to end with a null.
  static const char* const table[] = {kNames[0],  kNames[1],  kNames[2],  kNames[3],  kNames[4],
                                      kNames[5],  kNames[6],  kNames[7],  kNames[8],  kNames[9],
                                      kNames[10], kNames[11], kNames[12], kNames[13], nullptr};
  Tcl_Obj* object = Tcl_NewStringObj(text, -1);
  Tcl_IncrRefCount(object);
  int index = -1;
  Tcl_GetIndexFromObj(nullptr, object, table, "marker", 0, &index);
  Tcl_DecrRefCount(object);
  return index;
}

void addTcl() {
  Tcl_FindExecutable(nullptr);
  compete(kNameToValue, "Tcl", Goal::kAhead, exactInputs(), lookUp);
  compete(kAbbreviationToValue, "Tcl", Goal::kAhead, abbreviatedInputs(), lookUp);
}

[[maybe_unused]] const bool added = addContender(addTcl);

}  // namespace
}  // namespace peers
