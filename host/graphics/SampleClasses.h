#pragma once

#include <vcos/COSClass.h>

#include <string_view>
#include <vector>

/// Classes of graphics objects, as a graphics system on top of the library would define them. Their
/// properties use every type that the library has, its filters run when those of the primitives are
/// set, and its listeners run the callbacks of an object when one of the object's events is fired.
namespace sample {

/// In order of definition; abstract ones, of which no object is made, are not among them. They are
/// defined at the first call, after start-up. The packages "vortil.ui" and "vortil.graphics" know
/// them.
const std::vector<const vcos::COSClass*>& classes();

/// By the whole dotted name ("vortil.ui.Figure") or the part behind the last dot; null if there is
/// none.
const vcos::COSClass* findClass(std::string_view name);

/// The part of a class's name behind the last dot.
std::string_view shortName(const vcos::COSClass& sampleClass);

}  // namespace sample
