#pragma once

#include <ut/export.h>

/// The interrupts of the host (Ctrl-C), and the quit of its debugger. An interrupt is requested, is
/// pending until the evaluator takes it, and leaves a mark behind that it was handled.

/// True when an interrupt was requested and not taken yet.
VGHOST_API bool utIsInterruptPending() noexcept;
/// True when an interrupt was taken since the mark was cleared.
VGHOST_API bool utWasInterruptHandled() noexcept;
/// Sets the mark, or clears it with 0.
VGHOST_API void utSetInterruptHandled(int handled) noexcept;

/// True while the debugger's quit is in progress.
VGHOST_API bool inIsDbquitSet() noexcept;

namespace vghost {

/// Requests an interrupt. Signal handlers and other threads may call it.
VGHOST_API void requestInterrupt() noexcept;
/// Takes a pending interrupt: it is pending no more, and the mark is set. False if there is none.
VGHOST_API bool takeInterrupt() noexcept;
/// Forgets a pending interrupt and sets no mark.
VGHOST_API void dropInterrupt() noexcept;

/// Begins or ends the debugger's quit.
VGHOST_API void setDbquit(bool isSet) noexcept;

}  // namespace vghost
