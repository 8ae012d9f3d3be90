#pragma once

/// Adds the conversions between numbers and objects, and the hash look-ups beside them.
void addHandles();
