// GLib: a signal of GObject with one handler, by its number and by its name, and idle sources.

#include "contest.h"

#include <glib-object.h>

namespace callbacks {
namespace {

void press(GObject*, void* pressedOn, void*) {
  static_cast<Target*>(pressedOn)->handle(kPress);
}

gboolean pressWhenIdle(void* pressedOn) {
  static_cast<Target*>(pressedOn)->handle(kPress);
  return G_SOURCE_REMOVE;
}

GType sourceType() {
  static const GType type = g_type_register_static_simple(
      G_TYPE_OBJECT, "CallbackSource", static_cast<guint>(sizeof(GObjectClass)), nullptr,
      static_cast<guint>(sizeof(GObject)), nullptr, static_cast<GTypeFlags>(0));
  return type;
}

void queueAndServe(std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    g_idle_add(pressWhenIdle, &target());
  while (g_main_context_iteration(nullptr, FALSE)) {
  }
}

[[maybe_unused]] const bool added = addContender([] {
  static const guint pressed = g_signal_new("press", sourceType(), G_SIGNAL_RUN_LAST, 0, nullptr,
                                            nullptr, nullptr, G_TYPE_NONE, 1, G_TYPE_POINTER);
  static auto* const source = static_cast<GObject*>(g_object_new(sourceType(), nullptr));
  g_signal_connect(source, "press", G_CALLBACK(press), nullptr);
  addFiring("fire/GObject", target().handled, [] { g_signal_emit(source, pressed, 0, &target()); });
  addFiring("fireByName/GObject", target().handled,
            [] { g_signal_emit_by_name(source, "press", &target()); });
  compare("fire", "GObject", measuring::Goal::kNone);
  compare("fireByName", "GObject", measuring::Goal::kAhead);
  addQueue("GLib", target().handled, queueAndServe);
  compareQueues("GLib");
});

}  // namespace
}  // namespace callbacks
