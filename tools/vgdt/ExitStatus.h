#pragma once

namespace vgdt {

/// Exit statuses of the program.
enum ExitStatus : int {
  kDone = 0,
  kRefused = 1,        ///< a type has refused a value
  kNotUnderstood = 2,  ///< the command line, a file or a request is wrong
};

}  // namespace vgdt
