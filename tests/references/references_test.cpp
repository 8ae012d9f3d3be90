// Values that refer to objects, and to objects of Java.

#include "references/Samples.h"
#include "support/FakeJavaEnvironment.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/COSInterfaceDataType.h>
#include <graphics/datatype/HandleOrEmptyDataType.h>
#include <graphics/datatype/JavaPeerDataType.h>
#include <handles/handle_table.h>
#include <vcos/COSIterator.h>

#include <map>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace test;
using namespace graphics::datatype;
using vcos::OwnedValue;

constexpr const char* kNoHandle = "VORTIL:datatypes:handleoremptydatatype:InvalidVGHandle";

ArrayOwner objects(std::vector<COSInterfacePtr> elements) {
  ArrayOwner made(omCreateVCOSMatrix(1, elements.size(), COSNameID("handle")));
  for (std::size_t i = 0; i < elements.size(); ++i)
    omSetArrayElement(made.get(), i, elements[i]);
  return made;
}

COSInterfacePtr firstOf(const vxArray* array) {
  return vxIsEmpty(array) ? COSInterfacePtr() : omGetArrayElement(array, 0);
}

std::string described(const vxArray* array) {
  std::ostringstream words;
  words << vxGetClassName(array);
  for (const std::size_t dimension : sizeOf(array))
    words << ' ' << dimension;
  return words.str();
}

class References : public Samples {
 protected:
  const COSInterfacePtr line = sampleObject("Line");
  const COSInterfacePtr other = sampleObject("Line");
  const COSInterfacePtr ended = sampleObject("Line");
  const double lineNumber = numberOf(line);
  const double endedNumber = numberOf(ended);
  const double goneNumber = numberOf(sampleObject("Line"));

  References() { vcos::COSClass::destroyObject(ended); }
  ~References() override {
    for (const double number : {lineNumber, endedNumber, goneNumber})
      vcos_destroy_handle(number);
  }
};

TEST_F(References, AreMadeFromArraysOrLeaveTheOldOne) {
  const COSInterfacePtr none;
  const struct {
    ArrayOwner given;
    std::optional<COSInterfacePtr> referred;  ///< none where the array is refused
  } rows[] = {
      {ArrayOwner(), none},
      {array("0x0 double"), none},
      {array("0x3 cell"), none},
      {array("0x0 char"), none},
      {ArrayOwner(omCreateVCOSEmpty(COSNameID("handle"))), none},
      {objects({none, line}), none},
      {objects({line}), line},
      {objects({other, line}), other},
      {objects({ended}), ended},
      {scalar(lineNumber), line},
      {array("2x1 double", {lineNumber, -1}), line},
      {array("sparse 1x2 double", {lineNumber}), line},
      {array("1x2 double", {-1, lineNumber}), std::nullopt},
      {scalar(std::nan("")), std::nullopt},
      {scalar(endedNumber), std::nullopt},
      {scalar(goneNumber), std::nullopt},
      {array("1x1 char"), std::nullopt},
      {array("1x1 cell"), std::nullopt},
      {array("1x1 single", {lineNumber}), std::nullopt},
      {array("1x1 logical"), std::nullopt},
  };
  const vcos::TypeAccess access = accessOf("HandleOrEmpty");
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    HandleOrEmpty value(line);
    const vxArray* const old = value.getHandle();
    const auto set = [&] { value.setHandle(row.given.get()); };
    EXPECT_EQ(identifierRaisedBy(set), row.referred ? "" : kNoHandle);
    EXPECT_EQ(value.getCOSReference(), row.referred.value_or(line));
    EXPECT_EQ(value.getHandle() == old, !row.referred);
    const auto convert = [&] {
      const OwnedValue made(access.dataType(), access.fromArray(row.given.get()));
      EXPECT_EQ(firstOf(access.toArray(made.get()).get()), row.referred);
    };
    EXPECT_EQ(identifierRaisedBy(convert), row.referred ? "" : kNoHandle);
  }
}

TEST_F(References, AreEqualWhereTheObjectIs) {
  const std::pair<HandleOrEmpty, const COSInterface*> values[] = {
      {HandleOrEmpty(nullptr), nullptr},
      {HandleOrEmpty(array("0x0 char").get()), nullptr},
      {HandleOrEmpty(COSInterfacePtr()), nullptr},
      {HandleOrEmpty(objects({COSInterfacePtr()}).get()), nullptr},
      {HandleOrEmpty(line), line.get()},
      {HandleOrEmpty(scalar(lineNumber).get()), line.get()},
      {HandleOrEmpty(objects({line, other}).get()), line.get()},
      {HandleOrEmpty(other), other.get()},
  };
  const vcos::COSDataType& type = *HandleOrEmptyDataType::getType();
  EXPECT_EQ(*type.getDefaultValue().asPointer<const HandleOrEmpty>(), values[0].first);
  for (const auto& [a, objectOfA] : values) {
    for (const auto& [b, objectOfB] : values) {
      const bool areEqual = objectOfA == objectOfB;
      const COSValue words[] = {COSValue::fromPointer(&a), COSValue::fromPointer(&b)};
      EXPECT_EQ(a == b, areEqual);
      EXPECT_EQ(type.isEqual(words[0], words[1]), areEqual);
      EXPECT_EQ(type.compare(words[0], words[1]), areEqual ? 0 : 2);
      HandleOrEmpty assigned(a);
      const vxArray* const old = assigned.getHandle();
      assigned = b;
      EXPECT_EQ(assigned, b);
      EXPECT_EQ(assigned.getHandle() == old, areEqual);
    }
  }
  HandleOrEmpty value(line);
  value.cleanup();
  EXPECT_EQ(value.getHandle(), nullptr);
  EXPECT_FALSE(value.getCOSReference() || value.isArrayEmpty(nullptr));
  value = values[4].first;
  EXPECT_EQ(value.getCOSReference(), line);
  EXPECT_EQ(described(ArrayOwner(value.createEmptyObject()).get()), "handle 0 0");
}

TEST_F(References, ComeOutOfPropertiesOfAnyTypeOfObjects) {
  const COSInterfacePtr root = sampleObject("Root");
  const HandleOrEmpty asker(nullptr);
  const auto convert = [&](const char* name) {
    vcos::COSPropInfo& property = propertyOf(root, name);
    return asker.convertValue(&property, property.getValue(root.get()));
  };
  for (const char* name : {"Parent", "FigureInFront"}) {
    EXPECT_FALSE(convert(name));
    propertyOf(root, name).setFromArray(root.get(), objects({line}).get());
    EXPECT_EQ(convert(name), line);
  }
  EXPECT_EQ(identifierRaisedBy([&] { convert("ScreenUnits"); }), "VORTIL:array:WrongClass");
}

TEST_F(References, HaveNoText) {
  const HandleOrEmptySC texts;
  const std::string family = "VORTIL:datatypes:handleoremptydatatype:";
  EXPECT_EQ(identifierRaisedBy([&] { texts.to({}); }), family + "DataTypeToString");
  EXPECT_EQ(identifierRaisedBy([&] { texts.from({}); }), family + "StringToDataType");
  const COSValue text = COSValue::fromPointer("text");
  for (const char* type : {"COSInterface", "JavaPeer"})
    EXPECT_TRUE(accessOf(type).textConversion()->from(text).isNull());
}

TEST_F(References, OfCompositesAreRows) {
  const COSInterfaceVC arrays;
  const std::tuple<COSInterfacePtr, std::string, std::vector<COSInterfacePtr>> rows[] = {
      {COSInterfacePtr(), "handle 0 0", {}},
      {line, "vortil.graphics.Line 1 1", {line}},
      {vcos::createComposite({}), "vortil.Composite 1 1", {COSInterfacePtr()}},
      {vcos::createComposite({line}), "vortil.Composite 1 1", {line}},
      {vcos::createComposite({line, other, line}), "handle 1 3", {line, other, line}},
  };
  for (const auto& [object, words, elements] : rows) {
    const ArrayOwner made(arrays.to(COSValue::fromPointer(object.get())).asPointer<vxArray>());
    EXPECT_EQ(described(made.get()), words);
    for (std::size_t i = 0; i < elements.size(); ++i)
      EXPECT_EQ(omGetArrayElement(made.get(), i), elements[i]);
  }
}

TEST_F(References, ToObjectsCountAndBorrowOnlyByNumber) {
  const COSInterfaceVC arrays;
  vcos::COSDataType& type = *COSInterfaceDataType::getType();
  HandleRecord watch{0, -1, 0, nullptr};
  new_handle(&watch, -1);
  const auto expectCounts = [&](bool counts, const char* words, const auto& refer) {
    COSInterfacePtr object = sampleObject("Line");
    watch.object = object.get();
    rebind_handle(watch.handle, &watch);
    const double number = numberOf(object);
    const COSValue value = refer(object, number);
    EXPECT_EQ(value, COSValue::fromPointer(object.get())) << words;
    object = COSInterfacePtr();
    EXPECT_EQ(watch.object != nullptr, counts) << words;
    if (counts) type.destroy(value);
    EXPECT_EQ(watch.object, nullptr) << words;
    vcos_destroy_handle(number);
  };
  const auto from = [&](const ArrayOwner& array) {
    return arrays.from(COSValue::fromPointer(array.get()));
  };
  expectCounts(true, "copy", [&](const auto& object, double) {
    return type.copy(COSValue::fromPointer(object.get()));
  });
  expectCounts(true, "array", [&](auto& object, double) { return from(objects({object})); });
  expectCounts(false, "number", [&](auto&, double number) { return from(scalar(number)); });
  expectCounts(true, "number for a property", [&](auto&, double number) {
    return accessOf("COSInterface").fromArray(scalar(number).get());
  });
  destroy_handle(watch.handle);
  for (const char* words : {"1x1 char", "1x1 struct", "0x0 double", "0x0 object", "1x1 single"})
    EXPECT_TRUE(from(array(words)).isNull()) << words;
  EXPECT_TRUE(from(scalar(-1)).isNull() && from(ArrayOwner()).isNull());
  EXPECT_TRUE(accessOf("COSInterface").fromArray(scalar(goneNumber).get()).isNull());
  const COSValue words[] = {COSValue::fromPointer(line.get()), COSValue::fromPointer(other.get())};
  EXPECT_TRUE(type.isEqual(words[0], words[0]) && !type.isEqual(words[0], words[1]));
}

/// A Java machine that knows which references there are, and which object each refers to.
struct PeerMachine : FakeJavaEnvironment {
  PeerMachine() {
    table.NewGlobalRef = [](JNIEnv* env, jobject reference) -> jobject {
      return self(env).isFull ? nullptr : self(env).refer(self(env).objects.at(reference));
    };
    table.DeleteGlobalRef = [](JNIEnv* env, jobject reference) {
      EXPECT_EQ(self(env).objects.erase(reference), 1U);
    };
    table.IsSameObject = [](JNIEnv* env, jobject a, jobject b) -> jboolean {
      return self(env).objects[a] == self(env).objects[b];
    };
  }
  static PeerMachine& self(JNIEnv* env) { return static_cast<PeerMachine&>(*env); }

  jobject refer(int object) {
    const auto reference = reinterpret_cast<jobject>(++made);
    objects[reference] = object;
    return reference;
  }

  std::map<jobject, int> objects = {{nullptr, 0}};
  std::uintptr_t made = 0;
  bool isFull = false;
};

PeerMachine* machine = nullptr;

jint getEnvironment(JavaVM*, void** environment, jint) {
  *environment = static_cast<JNIEnv*>(machine);
  return JNI_OK;
}

}  // namespace

extern "C" [[gnu::visibility("default")]] jint JNI_GetCreatedJavaVMs(JavaVM** machines, jsize,
                                                                     jsize* count) {
  static JNIInvokeInterface_ table{};
  static JavaVM java{&table};
  table.GetEnv = getEnvironment;
  *machines = &java;
  *count = machine ? 1 : 0;
  return JNI_OK;
}

namespace {

using Peers = Samples;

TEST_F(Peers, HoldNothingWhereNoJavaRuns) {
  const vcos::TypeAccess access = accessOf("JavaPeer");
  const OwnedValue value(access.dataType(), access.fromArray(array("1x1 char").get()));
  EXPECT_EQ(value.get().asPointer<const JavaPeer>()->get_jobject(), nullptr);
  for (const COSValue each : {value.get(), COSValue()}) {
    const OwnedValue copy(access.dataType(), access.dataType().copy(each));
    EXPECT_TRUE(access.dataType().isEqual(copy.get(), each));
    EXPECT_EQ(described(access.toArray(each).get()), "double 0 0");
  }
  EXPECT_FALSE(access.dataType().isEqual(value.get(), {}));
}

TEST_F(Peers, HaveReferencesOfTheirOwnThatEndWithThem) {
  PeerMachine java;
  machine = &java;
  const jobject given[] = {java.refer(1), java.refer(2)};
  const vcos::COSDataType& type = *JavaPeerDataType::getType();
  {
    const JavaPeer one(given[0]);
    const JavaPeer other(given[1]);
    const auto word = [](const JavaPeer& peer) { return COSValue::fromPointer(&peer); };
    const OwnedValue copied(type, type.copy(word(one)));
    JavaPeer& copy = *copied.get().asPointer<JavaPeer>();
    EXPECT_NE(one.get_jobject(), copy.get_jobject());
    EXPECT_TRUE(type.isEqual(word(one), copied.get()));
    EXPECT_FALSE(type.isEqual(word(one), word(other)));
    const auto old = copy.get_jobject();
    copy = JavaPeer();
    EXPECT_EQ(copy.get_jobject(), old) << "an empty one changes nothing";
    java.isFull = true;
    EXPECT_THROW(copy = other, vcos::COSOutOfMemoryException);
    EXPECT_EQ(copy.get_jobject(), old);
    java.isFull = false;
    copy = other;
    EXPECT_TRUE(type.isEqual(word(other), copied.get()));
    EXPECT_EQ(java.objects.size(), 7U) << "null, the given, those of the three, the shared one";
  }
  EXPECT_EQ(java.objects.size(), 3U);
  machine = nullptr;
}

}  // namespace
