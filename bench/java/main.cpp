// Measures conversions to Java and back against the same JNI calls written bare, and prints how
// they stand against each other. Bare calls look classes and methods up each time, look for an
// exception after each call that runs Java code, and delete local references, but have texts at
// hand in UTF-16 and look for no other failure. A value from a text or an array is no matter of
// Java's: on both sides it is made by the type's own conversion.

#include "../common/Comparisons.h"

#include <graphics/datatype/ArrayBase.h>
#include <graphics/datatype/EnumBase.h>
#include <graphics/datatype/PositionDataType.h>
#include <graphics/datatype/VGTypedEnumStringType.h>
#include <graphics/datatype/vgdatatypes.h>
#include <java/machine.h>
#include <messages/MessageCatalog.h>
#include <ut/memory.h>
#include <vcos/TypeAccess.h>

#include <jni.h>

#include <mutex>
#include <unordered_map>

namespace {

using fl::i18n::MessageCatalog;
using graphics::datatype::Position;
using measuring::Goal;
using measuring::measure;
using vcos::COSValue;
using vcos::OwnedValue;
using vcos::TypeAccess;

JNIEnv& java() {
  static JNIEnv& environment = vghost::startJava();
  return environment;
}

// --- bare calls ---------------------------------------------------------------------------------

jobject checked(jobject result) {
  if (java().ExceptionCheck()) measuring::fail("a bare call has thrown");
  return result;
}

template <class... Arguments>
jobject create(const char* path, const char* signature, Arguments... arguments) {
  const jclass type = java().FindClass(path);
  const jmethodID constructor = java().GetMethodID(type, "<init>", signature);
  const jobject made = checked(java().NewObject(type, constructor, arguments...));
  java().DeleteLocalRef(type);
  return made;
}

template <class... Arguments>
jobject newInstance(const char* path, const char* signature, Arguments... arguments) {
  const jclass type = java().FindClass(path);
  const jmethodID factory = java().GetStaticMethodID(type, "newInstance", signature);
  const jobject made = checked(java().CallStaticObjectMethod(type, factory, arguments...));
  java().DeleteLocalRef(type);
  return made;
}

jclass classOf(jobject object, const char* path) {
  const jclass type = java().FindClass(path);
  if (!java().IsInstanceOf(object, type)) measuring::fail("an object is of another class");
  return type;
}

jobject get(jobject object, const char* path, const char* getter, const char* signature) {
  const jclass type = classOf(object, path);
  const jmethodID method = java().GetMethodID(type, getter, signature);
  const jobject result = checked(java().CallObjectMethod(object, method));
  java().DeleteLocalRef(type);
  return result;
}

/// Of ASCII characters.
std::string getText(jobject object, const char* path, const char* getter) {
  const auto text = static_cast<jstring>(get(object, path, getter, "()Ljava/lang/String;"));
  const jsize length = java().GetStringLength(text);
  fl::ustring units(static_cast<std::size_t>(length), 0);
  java().GetStringRegion(text, 0, length, units.data());
  java().DeleteLocalRef(text);
  return {units.begin(), units.end()};
}

jstring newText(const fl::ustring& text) {
  return java().NewString(text.data(), static_cast<jsize>(text.size()));
}

template <class NewText>
jobjectArray newTexts(jclass type, jsize count, const NewText& newElement) {
  const jobjectArray texts = java().NewObjectArray(count, type, nullptr);
  for (jsize i = 0; i < count; ++i) {
    const jstring element = newElement(static_cast<std::size_t>(i));
    java().SetObjectArrayElement(texts, i, element);
    java().DeleteLocalRef(element);
  }
  return texts;
}

struct BarePosition {
  static constexpr const char* kPath = "com/lindgrove/vg/types/VGRectangle";
  jobject to(COSValue value) {
    const auto& p = *value.asPointer<const Position>();
    return create(kPath, "(DDDD)V", p.getX(), p.getY(), p.getWidth(), p.getHeight());
  }
  COSValue from(jobject object) {
    const auto array = static_cast<jdoubleArray>(get(object, kPath, "getComponents", "()[D"));
    double numbers[4];
    if (java().GetArrayLength(array) < 4) measuring::fail("a rectangle has too few numbers");
    java().GetDoubleArrayRegion(array, 0, 4, numbers);
    java().DeleteLocalRef(array);
    return COSValue::fromPointer(new Position(numbers[0], numbers[1], numbers[2], numbers[3]));
  }
};

struct BareFontName {
  static constexpr const char* kPath = "com/lindgrove/vg/types/VGFontName";
  jobject to(COSValue) {
    const jstring text = newText(name);
    const jobject made =
        newInstance(kPath, "(Ljava/lang/String;)Lcom/lindgrove/vg/types/VGFontName;", text);
    java().DeleteLocalRef(text);
    return made;
  }
  COSValue from(jobject object) {
    return COSValue::fromPointer(utStrdup(getText(object, kPath, "getFontName").c_str()));
  }
  fl::ustring name;
};

struct BareMarkerStyle {
  static constexpr const char* kPath = "com/lindgrove/util/CategoricalVariable";
  jobject to(COSValue value) {
    const jint chosen = value.asPointer<const graphics::datatype::EnumBase>()->getIntValue();
    const jclass text = java().FindClass("java/lang/String");
    const auto count = static_cast<jsize>(names.size());
    const jintArray allNumbers = java().NewIntArray(count);
    java().SetIntArrayRegion(allNumbers, 0, count, numbers.data());
    const jobjectArray allNames =
        newTexts(text, count, [&](std::size_t i) { return java().NewStringUTF(names[i].c_str()); });
    const jobjectArray allLabels =
        newTexts(text, count, [&](std::size_t i) { return newText(labels[i]); });
    const jobject made = newInstance(
        kPath,
        "(I[I[Ljava/lang/String;[Ljava/lang/String;)Lcom/lindgrove/util/CategoricalVariable;",
        chosen, allNumbers, allNames, allLabels);
    for (const jobject used : std::initializer_list<jobject>{text, allNumbers, allNames, allLabels})
      java().DeleteLocalRef(used);
    return made;
  }
  COSValue from(jobject object) {
    return texts->from(COSValue::fromPointer(getText(object, kPath, "getLabel").c_str()));
  }
  const vcos::COSTypeConversion* texts;
  std::vector<std::string> names{};
  std::vector<jint> numbers{};
  std::vector<fl::ustring> labels{};
};

/// Keeps a shared copy of the array in a table under the number of the Java object, but only those
/// of the first and the last object, as if Java gave the others up at once.
struct BareColorMap {
  static constexpr const char* kPath = "com/lindgrove/jvi/types/VLArrayRef";
  jobject to(COSValue value) {
    auto* const array = value.asPointer<graphics::datatype::ArrayBase>()->getPtr();
    std::unique_lock lock(mutex);
    if (kept.size() > 1) kept.erase(number);
    kept.emplace(++number, vxCreateSharedCopyNotOnArrayList(array));
    lock.unlock();
    return create(kPath, "(J)V", number);
  }
  COSValue from(jobject object) {
    const jclass type = classOf(object, kPath);
    const jlong found = java().GetLongField(object, java().GetFieldID(type, "number", "J"));
    java().DeleteLocalRef(type);
    std::unique_lock lock(mutex);
    const vcos::ArrayOwner array(vxCreateSharedDataCopy(kept.at(found).get()));
    lock.unlock();
    return arrays->from(COSValue::fromPointer(array.get()));
  }
  const vcos::COSTypeConversion* arrays;
  std::mutex mutex{};
  std::unordered_map<jlong, vcos::ArrayOwner> kept{};
  jlong number = jlong{1} << 60;  // the host's own table is told of it, and must not know it
};

// --- what is measured ---------------------------------------------------------------------------

constexpr Goal kGoal = Goal::atMost(1.3);

TypeAccess typeOf(const std::string& name) {
  return *TypeAccess::find(vcos::COSNameID(("vortil.graphics.datatype." + name).c_str()));
}

struct Converter {
  jobject to(COSValue value) { return conversion->to(value).asPointer<_jobject>(); }
  COSValue from(jobject object) { return conversion->from(COSValue::fromPointer(object)); }
  const vcos::JavaTypeConversion* conversion;
};

/// Adds the measurement of both ways, after the value has come back once. Gives the object.
template <class Side>
jobject addWays(const std::string& name, const TypeAccess& type, COSValue value, Side& side) {
  const vcos::COSDataType& dataType = type.dataType();
  const jobject object = side.to(value);
  if (!dataType.isEqual(OwnedValue(dataType, side.from(object)).get(), value))
    measuring::fail(name + " does not come back");
  measure(name + "/to", [&side, value] {
    const jobject made = side.to(value);
    java().DeleteLocalRef(made);
    return made;
  });
  measure(name + "/from", [&side, &dataType, object] {
    return OwnedValue(dataType, side.from(object)).get().isNull();
  });
  return object;
}

/// Everything lasts as long as the program.
template <class Bare>
void addType(const std::string& name, const TypeAccess& type, COSValue value, Bare& bare,
             bool haveEqualObjects = true) {
  static Converter converter{vcos::JavaTypeConversion::getConversion(type.name())};
  const jobject ours = addWays(name, type, value, converter);
  const jobject its = addWays(name + "/bare", type, value, bare);
  const jclass object = java().FindClass("java/lang/Object");
  const jmethodID equals = java().GetMethodID(object, "equals", "(Ljava/lang/Object;)Z");
  if (haveEqualObjects && (!java().CallBooleanMethod(ours, equals, its) || java().ExceptionCheck()))
    measuring::fail(name + " becomes another object than that of the bare calls");
  for (const std::string way : {"/to", "/from"})
    measuring::compareTimes({name + way, "bare", name + way, name + "/bare" + way, kGoal});
}

void addPosition() {
  static const TypeAccess type = typeOf("Position");
  static OwnedValue value(type.dataType(), type.fromText("[10 20 640.5 480]"));
  static BarePosition bare;
  addType("Position", type, value.get(), bare);
  static graphics::datatype::PositionJC given;
  given.setJNIEnv(&java());
  static Converter converter{&given};
  addWays("Position/environmentGiven", type, value.get(), converter);
  measuring::compareTimes(
      {"Position/to", "given", "Position/to", "Position/environmentGiven/to", Goal::kNone});
}

void addFontName() {
  static const TypeAccess type = typeOf("FontName");
  static OwnedValue value(type.dataType(), type.fromText("Sans Serif"));
  static BareFontName bare{fl::i18n::to_ustring("Sans Serif")};
  addType("FontName", type, value.get(), bare);
}

/// With the share of the catalogue, which is opened for each object.
void addMarkerStyle() {
  static const TypeAccess type = typeOf("MarkerStyle");
  static OwnedValue value(type.dataType(), type.fromText("diamond"));
  static BareMarkerStyle bare{type.textConversion()};
  static std::vector<std::string> keys;
  const auto open = [] {
    return MessageCatalog::openCatalog("VORTIL::vgdatatypes::vgdatatypes",
                                       fl::i18n::VwLocale::global());
  };
  const auto catalog = open();
  const auto& table =
      dynamic_cast<const graphics::datatype::VGTypedEnumStringType&>(type.dataType());
  for (const std::string& name : table.getEnumStrings()) {
    bare.names.push_back(name);
    bare.numbers.push_back(table.getEnumValue(name.c_str()).asInteger<jint>());
    keys.push_back("vortil_graphics_datatype_MarkerStyle_" + name);
    bare.labels.push_back(catalog->lookup(keys.back().c_str()));
  }
  if (keys.size() != 14) measuring::fail("MarkerStyle has other names");
  addType("MarkerStyle", type, value.get(), bare);
  measure("catalogue/opening", open);
  measure("catalogue", [open] {
    const auto opened = open();
    std::size_t units = 0;
    for (const std::string& key : keys)
      units += opened->lookup(key.c_str()).size();
    return units;
  });
  measuring::compareTimes({"catalogue", "its share", "catalogue", "MarkerStyle/to", Goal::kNone});
  measuring::compareTimes(
      {"catalogue/opening", "its share", "catalogue/opening", "catalogue", Goal::kNone});
}

void addColorMap() {
  static const TypeAccess type = typeOf("ColorMap");
  const vcos::ArrayOwner array(vxCreateDoubleMatrix(64, 3, vxREAL));
  std::fill_n(static_cast<double*>(vxGetWritableData(array.get())), 64 * 3, 0.5);
  static OwnedValue value(type.dataType(), type.fromArray(array.get()));
  static BareColorMap bare{type.arrayConversion()};
  addType("ColorMap", type, value.get(), bare, false);
}

}  // namespace

int main(int argc, char** argv) {
  measuring::takeArguments(argc, argv);
  VLInitialize_vgdatatypes();
  java();
  addPosition();
  addFontName();
  addMarkerStyle();
  addColorMap();
  measuring::printComparisons(measuring::runBenchmarks());
}
