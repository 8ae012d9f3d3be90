#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace test {

/// Runs `work` in a process of its own that begins with the state of this one, so that what it
/// registers is gone afterwards. A failed expectation, a leak or a crash in it fails the test.
template <class Work>
void inChildProcess(Work&& work) {
  std::fflush(nullptr);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    try {
      work();
    } catch (...) {
      ADD_FAILURE() << "an exception left the work of the child process";
    }
    // Not _exit: what the library frees at exit is part of the test.
    std::exit(testing::Test::HasFailure() ? 1 : 0);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(status, 0) << "the number of a signal, or 256 times an exit status";
}

}  // namespace test
