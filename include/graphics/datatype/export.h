#pragma once

/// Marks what libvgdatatypes.so exports; everything else in it is hidden.
///
///     VGDT_API void registerDatatype(vcos::COSDataType* type);
#define VGDT_API __attribute__((visibility("default")))
