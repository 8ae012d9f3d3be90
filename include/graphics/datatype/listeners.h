#pragma once

#include <graphics/datatype/export.h>
#include <vcos/COSListener.h>

namespace graphics::datatype {

// Listeners that run the callback of an object when an event is fired: what the property
// `callbackName` of the object holds, through the CallbackExecutor.
//
//     ownClass.addListener(vcos::COSNameID("Press"), createListener("OnPress", true));
//
// Nothing runs if the object has no such property, if that is not of the type "Callback", or if it
// is null. A listener that is not aware of interruptibility runs the callback at once, whatever
// else is running. The callback gets the data of the event; an event without any gives it none. The
// listener is the caller's, has priority 100, and lets pass through what the executor throws.

/// Speaks of the source of the event.
[[nodiscard]] VGDT_API vcos::COSListener* createListener(const char* callbackName,
                                                         bool interruptibleAware);
/// Speaks of the object that a vcos::COSClassInstanceEventData tells, and does nothing for other
/// events. Without `sendEventData` the callback gets a 0-by-0 double array.
[[nodiscard]] VGDT_API vcos::COSListener* createClassListener(const char* callbackName,
                                                              bool interruptibleAware,
                                                              bool sendEventData);

}  // namespace graphics::datatype
