#pragma once

/// Marks what libvgdatatypes.so exports; everything else in it is hidden.
#define VGDT_API __attribute__((visibility("default")))
