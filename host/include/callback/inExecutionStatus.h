#pragma once

namespace vlutil::cmddistributor {

/// How the execution of a piece of code has ended.
enum inExecutionStatus : int {
  inEXECUTION_CLEAN = 0,  ///< without an error, or it was not executed
  inEXECUTION_SYNTAX_ERROR = 1,
  inEXECUTION_RUNTIME_ERROR = 2,
  inEXECUTION_DBQUIT = 3,  ///< the debugger's quit was requested
  inEXECUTION_INTERRUPTED = 4,
};

}  // namespace vlutil::cmddistributor
