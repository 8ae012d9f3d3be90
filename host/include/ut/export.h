#pragma once

/// Marks what libvghost.so exports; everything else in it is hidden.
#define VGHOST_API __attribute__((visibility("default")))
