// Values that refer to objects, and to objects of Java.

#include "references/Samples.h"
#include "support/FakeJavaEnvironment.h"
#include "support/HostError.h"

#include <gmock/gmock.h>
#include <graphics/datatype/COSInterfaceDataType.h>
#include <graphics/datatype/HandleOrEmptyDataType.h>
#include <graphics/datatype/JavaPeerDataType.h>
#include <vcos/COSIterator.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace test;
using namespace graphics::datatype;
using vcos::OwnedValue;

COSValue wordOf(const auto* pointer) {
  return COSValue::fromPointer(pointer);
}

ArrayOwner objects(std::vector<COSInterfacePtr> elements) {
  ArrayOwner made(omCreateVCOSMatrix(1, elements.size(), COSNameID("handle")));
  for (std::size_t i = 0; i < elements.size(); ++i)
    omSetArrayElement(made.get(), i, elements[i]);
  return made;
}

class References : public Samples {
 protected:
  const COSInterfacePtr line = sampleObject("Line");
  const COSInterfacePtr other = sampleObject("Line");
  const COSInterfacePtr ended = sampleObject("Line");
  const double lineNumber = numberOf(line);
  const double endedNumber = numberOf(ended);

  References() { destroyed(ended); }
  ~References() override {
    vcos_destroy_handle(lineNumber);
    vcos_destroy_handle(endedNumber);
  }
};

TEST_F(References, AreMadeFromArraysOrLeaveTheOldOneAndAreEqualWhereTheObjectIs) {
  const COSInterfacePtr none;
  const struct {
    ArrayOwner given;
    std::optional<COSInterfacePtr> referred;  ///< none where the array is refused
  } rows[] = {
      {ArrayOwner(), none},
      {array("0x3 cell"), none},
      {array("0x0 object"), none},
      {objects({none, line}), none},
      {objects({line}), line},
      {objects({other, line}), other},
      {objects({ended}), ended},
      {array("2x1 double", {lineNumber, -1}), line},
      {array("sparse 1x2 double", {lineNumber}), line},
      {array("1x2 double", {-1, lineNumber}), std::nullopt},
      {scalar(std::nan("")), std::nullopt},
      {scalar(endedNumber), std::nullopt},
      {array("1x1 char"), std::nullopt},
      {array("1x1 cell"), std::nullopt},
      {array("1x1 single", {lineNumber}), std::nullopt},
  };
  const vcos::COSDataType& type = *HandleOrEmptyDataType::getType();
  for (const auto& row : rows) {
    SCOPED_TRACE(&row - rows);
    HandleOrEmpty value(line);
    const vxArray* const old = value.getHandle();
    EXPECT_EQ(identifierRaisedBy([&] { value.setHandle(row.given.get()); }),
              row.referred ? "" : "VORTIL:datatypes:handleoremptydatatype:InvalidVGHandle");
    EXPECT_EQ(value.getCOSReference(), row.referred.value_or(line));
    EXPECT_EQ(value.getHandle() == old, !row.referred);
    for (const COSInterfacePtr& object : {none, line, other}) {
      HandleOrEmpty assigned(object);
      const vxArray* const before = assigned.getHandle();
      const bool areEqual = object == value.getCOSReference();
      EXPECT_EQ(type.isEqual(wordOf(&value), wordOf(&assigned)), areEqual);
      EXPECT_EQ(type.compare(wordOf(&assigned), wordOf(&value)), areEqual ? 0 : 2);
      assigned = value;
      EXPECT_TRUE(assigned == value);
      EXPECT_EQ(assigned.getHandle() == before, areEqual);
    }
  }
  HandleOrEmpty value(line);
  value.cleanup();
  EXPECT_EQ(value.getHandle(), nullptr);
  EXPECT_FALSE(value.getCOSReference() || value.isArrayEmpty(nullptr));
  value = HandleOrEmpty(other);
  EXPECT_EQ(value.getCOSReference(), other);
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

TEST_F(References, OfCompositesAreRows) {
  const std::tuple<COSInterfacePtr, const char*, std::vector<COSInterfacePtr>> rows[] = {
      {line, "vortil.graphics.Line", {line}},
      {vcos::createComposite({}), "vortil.Composite", {COSInterfacePtr()}},
      {vcos::createComposite({line}), "vortil.Composite", {line}},
      {vcos::createComposite({line, other}), "handle", {line, other}},
  };
  for (const auto& [object, className, elements] : rows) {
    const ArrayOwner made = accessOf("COSInterface").toArray(wordOf(object.get()));
    EXPECT_STREQ(vxGetClassName(made.get()), className);
    EXPECT_EQ(sizeOf(made.get()), (Size{1, elements.size()}));
    for (std::size_t i = 0; i < elements.size(); ++i)
      EXPECT_EQ(omGetArrayElement(made.get(), i), elements[i]);
  }
}

TEST_F(References, ByNumberAreBorrowedUnlessAPropertyAsks) {
  const vcos::TypeAccess access = accessOf("COSInterface");
  for (const bool counts : {false, true}) {
    COSInterfacePtr object = sampleObject("Line");
    const Watched watched(object);
    const double number = numberOf(object);
    const ArrayOwner array = scalar(number);
    const COSValue value =
        counts ? access.fromArray(array.get()) : COSInterfaceVC().from(wordOf(array.get()));
    EXPECT_EQ(value, wordOf(object.get()));
    object = {};
    EXPECT_EQ(watched.isAlive(), counts);
    if (counts) access.dataType().destroy(value);
    EXPECT_FALSE(watched.isAlive());
    EXPECT_TRUE(access.fromArray(array.get()).isNull());
    vcos_destroy_handle(number);
  }
  for (const char* words : {"1x1 char", "0x0 double", "0x0 object", "1x1 single", "1x1 double -1"})
    EXPECT_TRUE(access.fromArray(array(words).get()).isNull()) << words;
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

using Peers = Samples;

TEST_F(Peers, HaveReferencesOfTheirOwnThatEndWithThem) {
  PeerMachine java;
  fakeJavaMachine.environment = &java;
  const jobject given[] = {java.refer(1), java.refer(2)};
  const vcos::COSDataType& type = *JavaPeerDataType::getType();
  {
    const JavaPeer one(given[0]);
    const JavaPeer other(given[1]);
    const OwnedValue copied(type, type.copy(wordOf(&one)));
    JavaPeer& copy = *copied.get().asPointer<JavaPeer>();
    EXPECT_NE(one.get_jobject(), copy.get_jobject());
    EXPECT_TRUE(type.isEqual(wordOf(&one), copied.get()));
    EXPECT_FALSE(type.isEqual(wordOf(&one), wordOf(&other)));
    const auto old = copy.get_jobject();
    copy = JavaPeer();
    EXPECT_EQ(copy.get_jobject(), old) << "an empty one changes nothing";
    java.isFull = true;
    EXPECT_THROW(copy = other, vcos::COSOutOfMemoryException);
    EXPECT_EQ(copy.get_jobject(), old);
    java.isFull = false;
    copy = other;
    EXPECT_TRUE(type.isEqual(wordOf(&other), copied.get()));
    EXPECT_EQ(java.objects.size(), 7U) << "null, the given, those of the three, the shared one";
  }
  EXPECT_EQ(java.objects.size(), 3U);
  fakeJavaMachine = {};
}

}  // namespace
