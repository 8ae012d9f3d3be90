#pragma once

#include <graphics/datatype/export.h>

#include <cstdint>

/// The entries through which the host loads the library. None of them may be called from more than
/// one thread.
///
///     VLInitialize_vgdatatypes();
///     const VLFcnTableRecord* record = QueryVLFcnTable_vgdatatypes();
///     std::printf("vgdatatypes %s of %s\n", record->version, record->buildDate);

/// What QueryVLFcnTable_vgdatatypes returns. Everything it points to is constant.
struct VLFcnTableRecord {
  /// The function table: it has no entries but the null pointer at its end.
  void (*const* functions)();
  /// Version number of the build: major * 10^6 + minor * 10^3 + patch.
  std::uint64_t build;
  /// Time of the build in seconds since 1970-01-01 UTC.
  std::int64_t buildTime;
  const void* reserved;
  const char* version;
  const char* buildDate;
};

extern "C" {

/// Registers every type, conversion and package. Only the first call, of this or of the Java test
/// entry, has an effect, and a failure is not retried.
///
/// Errors: "VORTIL:vg:VCOSPackageNotFound"; "VORTIL:datatypes:onoffboolean:MultipleRegistry"; and
/// whatever the host raises. The library then stays registered in part.
VGDT_API void VLInitialize_vgdatatypes();

/// Does nothing: what has been registered lives until the process ends.
VGDT_API void VLTerminate_vgdatatypes();

VGDT_API const VLFcnTableRecord* QueryVLFcnTable_vgdatatypes();
}
