// Tk: an option of a widget record that takes one of a table of strings.

#include "contest.h"

#include <tk.h>

#include <cstddef>
#include <cstdlib>

namespace peers {
namespace {

struct Record {
  int marker;
};

/// A record with its options, outside any window.
struct Widget {
  Widget() : interpreter(Tcl_CreateInterp()) {
    for (std::size_t i = 0; i < kNames.size(); ++i)
      table[i] = kNames[i];
    specs[0].type = TK_OPTION_STRING_TABLE;
    specs[0].optionName = "-marker";
    specs[0].defValue = "none";
    specs[0].objOffset = -1;
    specs[0].internalOffset = static_cast<int>(offsetof(Record, marker));
    specs[0].clientData = table.data();
    specs[1].type = TK_OPTION_END;
    options = Tk_CreateOptionTable(interpreter, specs.data());
    name = Tcl_NewStringObj("-marker", -1);
    Tcl_IncrRefCount(name);
    if (Tk_InitOptions(interpreter, storage(), options, nullptr) != TCL_OK)
      fail(Tcl_GetStringResult(interpreter));
  }

  char* storage() { return reinterpret_cast<char*>(&record); }

  Tcl_Interp* interpreter;
  std::array<const char*, kNames.size() + 1> table{};
  std::array<Tk_OptionSpec, 2> specs{};
  Tk_OptionTable options;
  Tcl_Obj* name;
  Record record{};
};

/// The option's name is held, the text gets an object of its own.
int set(Widget& widget, const char* text) {
  Tcl_Obj* value = Tcl_NewStringObj(text, -1);
  Tcl_IncrRefCount(value);
  Tcl_Obj* const arguments[] = {widget.name, value};
  const int result = Tk_SetOptions(widget.interpreter, widget.storage(), widget.options, 2,
                                   arguments, nullptr, nullptr, nullptr);
  Tcl_DecrRefCount(value);
  return result == TCL_OK ? widget.record.marker : -1;
}

/// Tk reaches Tcl through a table that only Tk_Init sets. The rest of Tk_Init wants a display,
/// which options do without, so it may fail.
void initializeTk() {
  Tcl_FindExecutable(nullptr);
  unsetenv("DISPLAY");
  Tcl_Interp* interpreter = Tcl_CreateInterp();
  Tk_Init(interpreter);
  Tcl_DeleteInterp(interpreter);
}

void addTk() {
  initializeTk();
  static Widget widget;
  compete(kSetFromText, "Tk", Goal::kAhead, exactInputs(),
          [](const char* text) { return set(widget, text); });
}

[[maybe_unused]] const bool added = addContender(addTk);

}  // namespace
}  // namespace peers
