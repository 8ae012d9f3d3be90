#include "Errors.h"

#include <graphics/datatype/InvalidValueException.h>
#include <gui_objects/convert_from_string_utils.h>
#include <messages/exceptions.h>
#include <vcos/exceptions.h>

#include <new>

namespace vgdt {
namespace {

/// A host error travels wrapped; its identifier shows only after it has been thrown again.
Failure hostFailure(const Lindgrove::System::utErrorException_DEPRECATED& wrapped) {
  try {
    wrapped.rethrow();
  } catch (const fl::except::IUserException& error) {
    return {FailureKind::Host, error.GetID(), error.GetMessageTxt()};
  } catch (...) {
    // A host may travel with an error of another type: its text is all there is.
  }
  return {FailureKind::Host, "", wrapped.what()};
}

Failure memoryFailure() {
  return {FailureKind::Memory, "", "out of memory"};  // short enough to need no memory
}

/// What is being handled right now.
Failure describeCurrent() {
  try {
    throw;
  } catch (const Lindgrove::System::utErrorException_DEPRECATED& error) {
    return hostFailure(error);
  } catch (const fl::except::IUserException& error) {
    return {FailureKind::Host, error.GetID(), error.GetMessageTxt()};
  } catch (const gui_objects::convert_from_string_utils::ParseException&) {
    return {FailureKind::Parse, "", ""};
  } catch (const graphics::datatype::InvalidValueException& error) {
    return {FailureKind::InvalidValue, error.identifier(), error.text()};
  } catch (const vcos::COSOutOfMemoryException&) {
    return memoryFailure();
  } catch (const Lindgrove::System::OutOfMemoryException_DEPRECATED&) {
    return memoryFailure();
  } catch (const std::bad_alloc&) {
    return memoryFailure();
  } catch (const Lindgrove::System::InternalException_DEPRECATED&) {
    return {FailureKind::Other, "", ""};  // what() says no more than that it is one
  } catch (const RequestError& error) {
    return {FailureKind::Request, "", error.text()};
  } catch (const std::exception& error) {
    return {FailureKind::Other, "", error.what()};
  } catch (...) {
    return {FailureKind::Other, "", ""};
  }
}

}  // namespace

const char* nameOf(FailureKind kind) {
  switch (kind) {
    case FailureKind::Host:
      return "host";
    case FailureKind::Parse:
      return "parse";
    case FailureKind::InvalidValue:
      return "invalid-value";
    case FailureKind::Memory:
      return "memory";
    case FailureKind::Request:
      return "request";
    case FailureKind::Other:
      break;
  }
  return "other";
}

Failure currentFailure() {
  try {
    return describeCurrent();
  } catch (...) {
    return memoryFailure();
  }
}

}  // namespace vgdt
