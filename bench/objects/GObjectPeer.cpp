// GObject: properties with a text that is transformed into the value and back. It has transforms of
// its own for none of these from a text, so each is the shortest that its functions allow.

#include "properties.h"

#include <glib-object.h>
#include <pango/pango.h>

#include <array>

namespace properties {
namespace {

constexpr std::array<const char*, 14> kNames{"+", "o", "*", ".", "x",         "square",   "diamond",
                                             "v", "^", ">", "<", "pentagram", "hexagram", "none"};

GType markerType() {
  static const GType type = [] {
    static std::array<GEnumValue, kNames.size() + 1> values{};
    for (std::size_t i = 0; i < kNames.size(); ++i)
      values[i] = {static_cast<int>(i), kNames[i], kNames[i]};
    return g_enum_register_static("ObjectMarker", values.data());
  }();
  return type;
}

void textToMarker(const GValue* from, GValue* to) {
  auto* names = static_cast<GEnumClass*>(g_type_class_peek_static(G_VALUE_TYPE(to)));
  const GEnumValue* found = g_enum_get_value_by_nick(names, g_value_get_string(from));
  g_value_set_enum(to, found ? found->value : -1);
}
void markerToText(const GValue* from, GValue* to) {
  auto* names = static_cast<GEnumClass*>(g_type_class_peek_static(G_VALUE_TYPE(from)));
  const GEnumValue* found = g_enum_get_value(names, g_value_get_enum(from));
  g_value_set_static_string(to, found ? found->value_nick : nullptr);
}

void textToColor(const GValue* from, GValue* to) {
  PangoColor color{};
  pango_color_parse(&color, g_value_get_string(from));
  g_value_set_boxed(to, &color);
}
void colorToText(const GValue* from, GValue* to) {
  const auto* color = static_cast<const PangoColor*>(g_value_get_boxed(from));
  g_value_take_string(to, pango_color_to_string(color));
}

void textToNumber(const GValue* from, GValue* to) {
  g_value_set_double(to, g_ascii_strtod(g_value_get_string(from), nullptr));
}
void numberToText(const GValue* from, GValue* to) {
  char text[G_ASCII_DTOSTR_BUF_SIZE];
  g_value_set_string(to, g_ascii_dtostr(text, sizeof text, g_value_get_double(from)));
}

struct ObjectLine {
  GObject base;
  int marker;
  PangoColor color;
  double width;
};

enum { kMarker = 1, kColor, kWidth };

void setLineProperty(GObject* object, guint property, const GValue* value, GParamSpec*) {
  auto& line = *reinterpret_cast<ObjectLine*>(object);
  if (property == kMarker) line.marker = g_value_get_enum(value);
  if (property == kColor) line.color = *static_cast<const PangoColor*>(g_value_get_boxed(value));
  if (property == kWidth) line.width = g_value_get_double(value);
}
void getLineProperty(GObject* object, guint property, GValue* value, GParamSpec*) {
  auto& line = *reinterpret_cast<ObjectLine*>(object);
  if (property == kMarker) g_value_set_enum(value, line.marker);
  if (property == kColor) g_value_set_boxed(value, &line.color);
  if (property == kWidth) g_value_set_double(value, line.width);
}

/// The properties notify nobody by themselves, which is the shortest way for them.
void initializeLineClass(void* lineClass, void*) {
  constexpr auto kFlags = static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS |
                                                   G_PARAM_EXPLICIT_NOTIFY);
  auto* objectClass = static_cast<GObjectClass*>(lineClass);
  objectClass->set_property = setLineProperty;
  objectClass->get_property = getLineProperty;
  const auto install = [objectClass](guint number, GParamSpec* property) {
    g_object_class_install_property(objectClass, number, property);
  };
  install(kMarker, g_param_spec_enum("Marker", "", "", markerType(), 13, kFlags));
  install(kColor, g_param_spec_boxed("Color", "", "", PANGO_TYPE_COLOR, kFlags));
  install(kWidth, g_param_spec_double("Width", "", "", 0, 1e9, 1, kFlags));
}

GObject* line() {
  static auto* const made = static_cast<GObject*>(g_object_new(
      g_type_register_static_simple(G_TYPE_OBJECT, "ObjectLine",
                                    static_cast<guint>(sizeof(GObjectClass)), initializeLineClass,
                                    static_cast<guint>(sizeof(ObjectLine)), nullptr,
                                    static_cast<GTypeFlags>(0)),
      nullptr));
  return made;
}

void set(const char* name, const char* text) {
  GValue value = G_VALUE_INIT;
  g_value_init(&value, G_TYPE_STRING);
  g_value_set_static_string(&value, text);
  g_object_set_property(line(), name, &value);
  g_value_unset(&value);
}

std::string get(const char* name) {
  GValue value = G_VALUE_INIT;
  g_value_init(&value, G_TYPE_STRING);
  g_object_get_property(line(), name, &value);
  std::string text = g_value_get_string(&value);
  g_value_unset(&value);
  return text;
}

[[maybe_unused]] const bool added = addContender("GObject", [] {
  g_type_class_ref(markerType());
  g_value_register_transform_func(G_TYPE_STRING, markerType(), textToMarker);
  g_value_register_transform_func(markerType(), G_TYPE_STRING, markerToText);
  g_value_register_transform_func(G_TYPE_STRING, PANGO_TYPE_COLOR, textToColor);
  g_value_register_transform_func(PANGO_TYPE_COLOR, G_TYPE_STRING, colorToText);
  g_value_register_transform_func(G_TYPE_STRING, G_TYPE_DOUBLE, textToNumber);
  g_value_register_transform_func(G_TYPE_DOUBLE, G_TYPE_STRING, numberToText);
  compete("GObject", set, get, [](const std::string& text) { return text; });
});

}  // namespace
}  // namespace properties
