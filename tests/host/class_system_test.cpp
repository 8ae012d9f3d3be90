// The class system: the layout of its interfaces, and its tables of types, packages and classes.

#include <gmock/gmock.h>
#include <gui_objects/InitializationCallbackRegistrar.h>
#include <sv/features.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vcos/COSClass.h>
#include <vcos/COSPackage.h>
#include <vcos/TypeAccess.h>
#include <vcos/TypedEnumStringType.h>
#include <vcos/exceptions.h>
#include <vx/scopes.h>

#include <cstring>
#include <functional>
#include <string>
#include <tuple>

namespace {

using namespace vcos;
using testing::ElementsAre;

/// Virtual operations that follow on the two slots of the destructor. The first word of a pointer
/// to a virtual member is 1 plus its offset in the table (Itanium C++ ABI).
template <class... Operations>
void expectInOrder(Operations... operations) {
  std::ptrdiff_t slot = 2;
  const auto expectNext = [&](const auto& operation) {
    std::ptrdiff_t words[2];
    static_assert(sizeof words == sizeof operation);
    std::memcpy(words, &operation, sizeof words);
    EXPECT_EQ(words[0], 1 + std::ptrdiff_t{sizeof(void*)} * slot++);
  };
  (expectNext(operations), ...);
}

TEST(InterfaceLayout, OperationsStandInTheStatedOrder) {
  using Type = COSDataType;
  using Enum = EnumerationType;
  using Info = COSPackageInfo;
  using Values = EnumerationUtil<COSValue>;
  expectInOrder(&Type::getDeclarationName, &Type::getName, &Type::getDescription,
                &Type::getDetailedDescription, &Type::getPossibleValuesDescription,
                &Type::isPossibleValuesFinite, &Type::getPossibleValues, &Type::getDefaultValue,
                &Type::getStorageType, &Type::getCategoryName, &Type::getSizeInBits,
                &Type::checkValue, &Type::isEqual, &Type::compare, &Type::getValueSizeInBytes,
                &Type::copy, &Type::copyInternal, &Type::destroy, &Type::destroyInternal,
                &Type::getHashCode, &Type::canContainInterfaces, &Type::getReference,
                &Type::releaseReference, &Type::getInterfaces, &Type::getVatFormat,
                &Type::isVORTILArrayType, &TypedEnumStringType::addElement);
  expectInOrder(&Enum::getEnumLength, &Enum::getEnumString, &Enum::getEnumValue,
                &Enum::isValidEnumName, &Enum::isEnumNameAmbiguous, &Enum::getEnumVisibility);
  expectInOrder(&Info::getPackageName, &Info::getPackageDescription, &Info::getPackageDetails,
                &Info::attemptToLoadSubPackage, &Info::attemptToLoadClass,
                &Info::attemptToLoadFunction, &Info::attemptToLoadType, &Info::getMethodSelector,
                &Info::setOwningPackage, &Info::isDestructible, &Info::isLocked);
  expectInOrder(&COSPackage::addSubPackageInfo, &COSPackage::addClass, &COSPackage::addDataType);
  expectInOrder(&COSTypeConversion::to, &COSTypeConversion::from);
  expectInOrder(&JavaTypeConversion::to, &JavaTypeConversion::from,
                &JavaTypeConversion::getJavaDeclarationName);
  expectInOrder(&Values::hasMoreElements, &Values::nextElement);
}

/// The tables of the class system keep what they get, so every test uses names of its own.
std::string freshName() {
  static int count = 0;
  return "fresh" + std::to_string(++count);
}

COSNameID id(const std::string& name) {
  return COSNameID(name.c_str());
}

TypedEnumStringType* addEnumeration(const std::string& name) {
  return TypedEnumStringType::createInstance({}, name.c_str(), nullptr);
}

TEST(TypedEnumStringType, MapsNamesToWordsAndBackUntilItsEnd) {
  const COSNameID typeName = id(freshName());
  TypedEnumStringType& type = *addEnumeration(typeName.c_str());
  const auto word = [](int value) { return COSValue::fromInteger(value); };
  int number = 4;
  for (const char* name : {"none", "north", "east", "north"})
    type.addElement(word(number++), name);
  const std::tuple<const char*, int, bool> rows[] = {
      {"none", 4, false}, {"north", 7, false}, {"east", 6, false}, {"no", 0, true},
      {"", 0, true},      {"nor", 0, false},   {"None", 0, false}, {nullptr, 0, false},
  };
  for (const auto& [text, value, ambiguous] : rows) {
    SCOPED_TRACE(text ? text : "null");
    EXPECT_EQ(type.getEnumValue(text), word(value));
    EXPECT_EQ(type.isValidEnumName(text), value != 0);
    EXPECT_EQ(type.isEnumNameAmbiguous(text), ambiguous);
    EXPECT_STREQ(type.getEnumString(word(value)), value != 0 ? text : nullptr);
  }
  std::vector<int> values;
  for (auto all = type.getPossibleValues(); all.hasMoreElements();)
    values.push_back(all.nextElement().asInteger<int>());
  EXPECT_THAT(values, ElementsAre(4, 7, 6));
  EXPECT_EQ(type.getDefaultValue(), word(4));
  const COSDataTypePtr found = COSTypeRepository::getType(typeName);
  TypedEnumStringType::destroyInstance(typeName);
  EXPECT_EQ(found.getObject(), nullptr);
}

/// A value is the very text that it was made from.
struct TakingConversion final : COSTypeConversion {
  COSValue to(COSValue value) const override { return value; }
  COSValue from(COSValue value) const override { return value; }
};

TEST(TypeAccess, LeavesATextToTheValueThatTakesIt) {
  const COSNameID name(addEnumeration(freshName())->getName());
  COSTypeRepository::addConversion(COSNameID("string"), name, new TakingConversion);
  const TypeAccess type = TypeAccess::find(name).value();
  const char text[] = "12";
  const COSValue taken = type.fromText(text);
  EXPECT_NE(taken.asPointer<char>(), text);
  EXPECT_EQ(type.toText(taken), text);
  EXPECT_EQ(type.toText(taken), text) << "it is not freed, as other texts are";
  utFree(taken.asPointer<char>());
}

/// A package whose hooks add what they are asked for, once it may load.
struct LoadingInfo final : COSPackageInfo {
  explicit LoadingInfo(std::string ownName) : name(std::move(ownName)) {}

  const char* getPackageName() const override { return name.c_str(); }
  const char* getPackageDescription() const override { return ""; }
  const char* getPackageDetails() const override { return ""; }
  void setOwningPackage(COSPackage* package) override { owner = package; }
  bool attemptToLoadSubPackage(const char* member) override {
    if (++asked == 2) owner->addSubPackageInfo(new LoadingInfo(member));
    return asked == 2;
  }
  bool attemptToLoadType(const char* member) override {
    if (++asked == 2) owner->addDataType(addEnumeration(member));
    return asked == 2;
  }
  bool attemptToLoadClass(const char* member) override {
    if (++asked == 2) owner->addClass(new COSClass((name + "." + member).c_str(), nullptr));
    return asked == 2;
  }

  int asked = 0;
  std::string name;
  COSPackage* owner = nullptr;
};

TEST(Package, MembersAreAskedForUntilTheyAreThere) {
  const std::string leaf = freshName();
  const std::function<bool(COSNameID)> finders[] = {
      [](COSNameID name) { return COSPackage::getPackage(name) != nullptr; },
      [](COSNameID name) { return COSTypeRepository::getType(name).getObject() != nullptr; },
  };
  for (const auto& find : finders) {
    const std::string name = freshName();
    auto* info = new LoadingInfo(name);
    COSPackage::addPackage(info);
    const COSNameID member = id(name + "." + leaf);
    EXPECT_FALSE(find(member));
    EXPECT_TRUE(find(member));
    EXPECT_TRUE(find(member));
    EXPECT_EQ(info->asked, 2);
    EXPECT_FALSE(find(id(leaf + ".member"))) << "only full names count";
    EXPECT_THROW(COSPackage::addPackage(new LoadingInfo(name)), COSException);
  }
}

TEST(Package, AClassIsFoundByItsWholeNameAndByTheLastPart) {
  const std::string name = freshName();
  auto* info = new LoadingInfo(name);
  COSPackage::addPackage(info);
  COSPackage& package = *COSPackage::getPackage(id(name));
  const std::string leaf = freshName();
  EXPECT_EQ(package.getClass(id(leaf)), nullptr);
  const COSClass* const loaded = package.getClass(id(name + "." + leaf));
  ASSERT_NE(loaded, nullptr);
  EXPECT_EQ(loaded->getName(), name + "." + leaf);
  EXPECT_EQ(package.getClass(id(leaf)), loaded);
  EXPECT_EQ(info->asked, 2);
  EXPECT_EQ(package.getClass(id("other." + leaf)), nullptr);
}

TEST(BuiltInTypes, StringAndAnyHoldCopiesOfTheirOwn) {
  const auto type = [](const std::string& name) {
    return COSTypeRepository::getType(id(name)).getObject();
  };
  const COSValue text = COSValue::fromPointer("text");
  const OwnedValue copy(*type("string"), type("string")->copy(text));
  EXPECT_NE(copy.get(), text);
  EXPECT_TRUE(type("string")->isEqual(copy.get(), text));
  EXPECT_FALSE(type("string")->isEqual(copy.get(), COSValue()));

  vxArrayListContext* context = vxEnterNewArrayListContext();
  const COSValue array = COSValue::fromPointer(vxCreateDoubleScalar(7));
  const COSValue kept = type("any")->copyInternal(array);
  vxExitArrayListContext(context, nullptr, 0, true);
  EXPECT_EQ(vxGetScalar(kept.asPointer<vxArray>()), 7);
  type("any")->destroyInternal(kept);

  // An integer scalar is its low bytes, whatever stands above them.
  const COSValue numbers[] = {COSValue::fromInteger(0x105), COSValue::fromInteger(5)};
  EXPECT_TRUE(type("uint8 scalar")->isEqual(numbers[0], numbers[1]));
  EXPECT_FALSE(type("uint16 scalar")->isEqual(numbers[0], numbers[1]));
}

TEST(BuiltInTypes, AnyBecomesStringWhereItIsChar) {
  const TypeAccess type = TypeAccess::find(COSNameID("string")).value();
  const ArrayOwner array = type.toArray(COSValue::fromPointer("\u00DFx"));
  vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
  EXPECT_THROW(type.fromArray(array.get()), COSOutOfMemoryException);
  const OwnedValue text(type.dataType(), type.fromArray(array.get()));
  EXPECT_STREQ(text.get().asPointer<char>(), "\u00DFx");
  EXPECT_TRUE(vxIsEmpty(type.toArray({}).get()));
}

TEST(Registrar, CallsEachOnceInOrderAndKeepsThoseBehindAFailure) {
  static std::string called;
  gui_objects::InitializationCallbackRegistrar registrar;
  registrar.addCallback([] { called += 'a'; });
  registrar.addCallback([] { throw 1; });
  registrar.addCallback([] { called += 'c'; });
  EXPECT_THROW(registrar.initialize(), int);
  EXPECT_EQ(called, "a");
  registrar.initialize();
  registrar.initialize();
  EXPECT_EQ(called, "ac");
}

TEST(Features, TellOfEveryChangeOfState) {
  static int told = -1;
  const auto tell = [](int state) { told = state; };
  svRegisterFeature("test feature", 0, tell, nullptr);
  EXPECT_FALSE(svIsFeatureEnabled("test feature"));
  EXPECT_TRUE(svSetFeatureState("test feature", 1));
  EXPECT_EQ(told, 1);
  EXPECT_TRUE(svIsFeatureEnabled("test feature"));
  EXPECT_FALSE(svSetFeatureState("no such feature", 1));
  EXPECT_FALSE(svIsFeatureEnabled("no such feature"));
}

}  // namespace
