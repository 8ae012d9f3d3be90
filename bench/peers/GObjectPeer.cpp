// GObject: registered enumerations, and a property that a string value is transformed for.

#include "contest.h"

#include <glib-object.h>

#include <array>
#include <string>
#include <vector>

namespace peers {
namespace {

const GEnumValue* enumValues() {
  static const auto values = [] {
    std::array<GEnumValue, kNames.size() + 1> list{};
    for (std::size_t i = 0; i < kNames.size(); ++i)
      list[i] = {static_cast<int>(i), kNames[i], kNames[i]};
    return list;
  }();
  return values.data();
}

int valueOf(GEnumClass* names, const char* nick) {
  const GEnumValue* found = g_enum_get_value_by_nick(names, nick);
  return found ? found->value : -1;
}

void stringToEnum(const GValue* from, GValue* to) {
  auto* names = static_cast<GEnumClass*>(g_type_class_peek_static(G_VALUE_TYPE(to)));
  g_value_set_enum(to, valueOf(names, g_value_get_string(from)));
}

void enumToString(const GValue* from, GValue* to) {
  auto* names = static_cast<GEnumClass*>(g_type_class_peek_static(G_VALUE_TYPE(from)));
  const GEnumValue* found = g_enum_get_value(names, g_value_get_enum(from));
  g_value_set_static_string(to, found ? found->value_nick : nullptr);
}

GType registerEnum(const char* name) {
  const GType type = g_enum_register_static(name, enumValues());
  g_value_register_transform_func(G_TYPE_STRING, type, stringToEnum);
  g_value_register_transform_func(type, G_TYPE_STRING, enumToString);
  return type;
}

GType markerType() {
  static const GType type = registerEnum("PeerMarker");
  return type;
}

struct PeerShape {
  GObject base;
  int marker;
};

void setShapeProperty(GObject* object, guint, const GValue* value, GParamSpec*) {
  reinterpret_cast<PeerShape*>(object)->marker = g_value_get_enum(value);
}

void getShapeProperty(GObject* object, guint, GValue* value, GParamSpec*) {
  g_value_set_enum(value, reinterpret_cast<PeerShape*>(object)->marker);
}

/// The property notifies nobody by itself, which is the shortest way for it.
void initializeShapeClass(void* shapeClass, void*) {
  auto* objectClass = static_cast<GObjectClass*>(shapeClass);
  objectClass->set_property = setShapeProperty;
  objectClass->get_property = getShapeProperty;
  g_object_class_install_property(
      objectClass, 1,
      g_param_spec_enum("marker", "marker", "marker", markerType(), 13,
                        static_cast<GParamFlags>(G_PARAM_READWRITE | G_PARAM_STATIC_STRINGS |
                                                 G_PARAM_EXPLICIT_NOTIFY)));
}

PeerShape* makeShape() {
  const GType type = g_type_register_static_simple(
      G_TYPE_OBJECT, "PeerShape", static_cast<guint>(sizeof(GObjectClass)), initializeShapeClass,
      static_cast<guint>(sizeof(PeerShape)), nullptr, static_cast<GTypeFlags>(0));
  return static_cast<PeerShape*>(g_object_new(type, nullptr));
}

int set(PeerShape* shape, const char* text) {
  GValue value = G_VALUE_INIT;
  g_value_init(&value, G_TYPE_STRING);
  g_value_set_static_string(&value, text);
  g_object_set_property(&shape->base, "marker", &value);
  g_value_unset(&value);
  return shape->marker;
}

double startUp(std::size_t types) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < types; ++i)
    names.push_back("PeerType" + std::to_string(i));
  enumValues();

  std::vector<GType> registered(types);
  const double seconds = secondsOf([&] {
    for (std::size_t i = 0; i < types; ++i)
      registered[i] = registerEnum(names[i].c_str());
  });
  for (const GType type : registered)
    if (!g_value_type_transformable(G_TYPE_STRING, type) ||
        !g_value_type_transformable(type, G_TYPE_STRING))
      fail("GObject's start-up has left out a transform");
  return seconds;
}

void addGObject() {
  static auto* names = static_cast<GEnumClass*>(g_type_class_ref(markerType()));
  static PeerShape* shape = makeShape();
  compete(kNameToValue, "GObject", Goal::atMost(1.1), exactInputs(),
          [](const char* text) { return valueOf(names, text); });
  compete(kSetFromText, "GObject", Goal::kAhead, exactInputs(),
          [](const char* text) { return set(shape, text); });
  competeAtStartUp("GObject", Goal::atMost(1.3), startUp);
}

[[maybe_unused]] const bool added = addContender(addGObject);

}  // namespace
}  // namespace peers
