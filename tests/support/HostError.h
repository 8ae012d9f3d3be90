#pragma once

#include <gtest/gtest.h>
#include <messages/exceptions.h>
#include <vx/errors.h>

#include <string>

namespace test {

/// Runs `work` and returns the identifier of the host error that it raises; "" if it raises none.
template <class Work>
std::string identifierRaisedBy(Work&& work) {
  try {
    work();
  } catch (const Lindgrove::System::utErrorException_DEPRECATED& error) {
    try {
      error.rethrow();
    } catch (const fl::except::IUserException& real) {
      return real.GetID();
    }
  }
  return {};
}

struct LastError {
  const char* identifier = nullptr;
  const char* text = nullptr;
};

/// The error that the host raised last.
inline LastError lastError() {
  LastError last;
  vxGetLastErrIdAndMsg(&last.identifier, &last.text);
  return last;
}

}  // namespace test
