#pragma once

#include <cstddef>

namespace peers {

/// Starts the process from which inFreshProcess forks. To be called before anything is initialised
/// that a task wants to find untouched.
void keepProcessFresh();

/// Runs the task in a process of its own, a child of the one that was kept fresh, and returns its
/// result. Fails if the child does.
double inFreshProcess(double (*task)(std::size_t), std::size_t argument);

}  // namespace peers
