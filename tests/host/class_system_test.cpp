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

TEST(TypedEnumStringType, MapsNamesToWordsAndBack) {
  const std::string name = freshName();
  TypedEnumStringType& type = *addEnumeration(name);
  const auto word = [](int number) { return COSValue::fromInteger(number); };
  type.addElement(word(4), "none");
  type.addElement(word(5), "north");
  type.addElement(word(6), "east");
  type.addElement(word(7), "north");
  const struct {
    const char* name;
    int value;
    bool ambiguous;
  } rows[] = {
      {"none", 4, false}, {"north", 7, false}, {"east", 6, false}, {"no", 0, true},
      {"", 0, true},      {"nor", 0, false},   {"None", 0, false}, {nullptr, 0, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name ? row.name : "null");
    EXPECT_EQ(type.getEnumValue(row.name), word(row.value));
    EXPECT_EQ(type.isValidEnumName(row.name), row.value != 0);
    EXPECT_EQ(type.isEnumNameAmbiguous(row.name), row.ambiguous);
    EXPECT_STREQ(type.getEnumString(word(row.value)), row.value != 0 ? row.name : nullptr);
  }
  std::vector<int> values;
  for (auto all = type.getPossibleValues(); all.hasMoreElements();)
    values.push_back(all.nextElement().asInteger<int>());
  EXPECT_THAT(values, ElementsAre(4, 7, 6));
  EXPECT_EQ(type.getDefaultValue(), word(4));
}

TEST(TypeRepository, KnowsATypeFromItsMakingToItsEnd) {
  const std::string name = freshName();
  const TypedEnumStringType* type = addEnumeration(name);
  const COSDataTypePtr found = COSTypeRepository::getType(id(name));
  EXPECT_EQ(found.getObject(), type);
  EXPECT_EQ(found.getID(), id(name));
  EXPECT_THROW(addEnumeration(name), COSException);
  TypedEnumStringType::destroyInstance(id(name));
  EXPECT_EQ(found.getObject(), nullptr);
  EXPECT_FALSE(COSTypeRepository::getType(id(name)));
}

// --- values through conversions -----------------------------------------------------------------

/// Does as it is told.
struct ScriptedConversion final : COSTypeConversion {
  std::function<COSValue(COSValue)> onTo;
  std::function<COSValue(COSValue)> onFrom;

  COSValue to(COSValue value) const override { return onTo(value); }
  COSValue from(COSValue value) const override { return onFrom(value); }
};

TEST(TypeAccess, FreesEveryTextThatIsNeitherTheValueNorAConstant) {
  const COSNameID name(addEnumeration(freshName())->getName());
  const COSNameID string("string");
  auto* conversion = new ScriptedConversion;
  COSTypeRepository::addConversion(string, name, conversion);
  EXPECT_THROW(COSTypeRepository::addConversion(string, name, new ScriptedConversion),
               COSException);
  EXPECT_EQ(COSTypeRepository::getConversion(string, name), conversion);
  const TypeAccess type = TypeAccess::find(name).value();
  const std::size_t before = vghost::liveBlocks();

  const char text[] = "12";
  conversion->onFrom = [&](COSValue given) {
    EXPECT_NE(given, COSValue::fromPointer(text));
    return COSValue::fromInteger(std::atoi(given.asPointer<char>()));
  };
  EXPECT_EQ(type.fromText(text), COSValue::fromInteger(12));
  conversion->onFrom = [](COSValue) -> COSValue { throw COSException(); };
  EXPECT_THROW(type.fromText(text), COSException);
  EXPECT_EQ(vghost::liveBlocks(), before);
  conversion->onFrom = [](COSValue given) { return given; };
  const COSValue taken = type.fromText(text);
  EXPECT_STREQ(taken.asPointer<char>(), text);
  utFree(taken.asPointer<char>());

  conversion->onTo = [](COSValue) { return COSValue::fromPointer(utStrdup("heap")); };
  EXPECT_EQ(type.toText({}), "heap");
  conversion->onTo = [](COSValue) { return COSValue::fromPointer("constant"); };
  EXPECT_EQ(type.toText({}), "constant");
  conversion->onTo = [](COSValue) { return COSValue(); };
  EXPECT_EQ(type.toText({}), std::nullopt);
  EXPECT_EQ(vghost::liveBlocks(), before);
}

// --- packages -----------------------------------------------------------------------------------

/// A package whose hooks add what they are asked for, once it may load.
class LoadingInfo final : public COSPackageInfo {
 public:
  explicit LoadingInfo(std::string name) : name_(std::move(name)) {}

  const char* getPackageName() const override { return name_.c_str(); }
  const char* getPackageDescription() const override { return ""; }
  const char* getPackageDetails() const override { return ""; }
  void setOwningPackage(COSPackage* package) override { package_ = package; }
  bool attemptToLoadSubPackage(const char* name) override {
    if (++asked == 2) package_->addSubPackageInfo(new LoadingInfo(name));
    return asked == 2;
  }
  bool attemptToLoadType(const char* name) override {
    if (++asked == 2) package_->addDataType(addEnumeration(name));
    return asked == 2;
  }

  int asked = 0;

 private:
  std::string name_;
  COSPackage* package_ = nullptr;
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

// --- objects ------------------------------------------------------------------------------------

TEST(Object, KeepsItsValueWhereASetFails) {
  COSClass textual("Textual", nullptr);
  textual.addProperty("Text", COSNameID("string"));
  EXPECT_THROW(textual.addProperty("Text", COSNameID("string")), COSException);
  EXPECT_THROW(textual.addProperty("Other", id(freshName())), COSException);
  COSPropInfo& text = *COSPropInfoPtr(textual.findProperty(COSNameID("Text"))).getObject();
  const std::size_t before = vghost::liveBlocks();
  const COSInterfacePtr object = textual.createObject();
  const auto set = [&](const char* value) {
    text.setValue(object.get(), COSValue::fromPointer(value));
  };
  set("old");
  set("new");
  EXPECT_EQ(vghost::liveBlocks(), before + 1) << "the old value is ended";
  vghost::faults::failAllocation(1, vghost::faults::Repeat::Once);
  EXPECT_THROW(set("newer"), COSOutOfMemoryException);
  EXPECT_STREQ(text.getValue(object.get()).asPointer<char>(), "new");

  COSClass::destroyObject(object);
  EXPECT_EQ(vghost::liveBlocks(), before);
  EXPECT_TRUE(object->isDestroyed());
  EXPECT_THROW(static_cast<void>(text.getValue(object.get())), COSException);
  EXPECT_THROW(set("late"), COSException);
}

TEST(BuiltInTypes, StringAndAnyHoldCopiesOfTheirOwn) {
  const auto type = [](const char* name) {
    return vcos::COSTypeRepository::getType(COSNameID(name)).getObject();
  };
  const std::string text = "text";
  const COSValue copy = type("string")->copy(COSValue::fromPointer(text.c_str()));
  EXPECT_NE(copy.asPointer<char>(), text.c_str());
  EXPECT_TRUE(type("string")->isEqual(copy, COSValue::fromPointer("text")));
  EXPECT_FALSE(type("string")->isEqual(copy, COSValue()));
  type("string")->destroy(copy);

  vxArrayListContext* context = vxEnterNewArrayListContext();
  const COSValue array = COSValue::fromPointer(vxCreateDoubleScalar(7));
  const COSValue kept = type("any")->copyInternal(array);
  vxExitArrayListContext(context, nullptr, 0, true);
  EXPECT_EQ(vxGetScalar(kept.asPointer<vxArray>()), 7);
  type("any")->destroyInternal(kept);

  // An integer scalar is its low bytes, whatever stands above them.
  EXPECT_TRUE(
      type("uint8 scalar")->isEqual(COSValue::fromInteger(0x105), COSValue::fromInteger(5)));
  EXPECT_FALSE(
      type("uint16 scalar")->isEqual(COSValue::fromInteger(0x105), COSValue::fromInteger(5)));
}

TEST(BuiltInTypes, AnyBecomesStringWhereItIsChar) {
  const vcos::COSTypeConversion* conversion =
      vcos::COSTypeRepository::getConversion(COSNameID("any"), COSNameID("string"));
  ASSERT_NE(conversion, nullptr);
  const ArrayOwner array(conversion->to(COSValue::fromPointer("ab")).asPointer<vxArray>());
  char* text = conversion->from(COSValue::fromPointer(array.get())).asPointer<char>();
  EXPECT_STREQ(text, "ab");
  utFree(text);
  const ArrayOwner empty(conversion->to(COSValue()).asPointer<vxArray>());
  EXPECT_EQ(vxGetNumberOfElements(empty.get()), 0U);
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
  svRegisterFeature(
      "test feature", 0, [](int state) { told = state; }, nullptr);
  EXPECT_FALSE(svIsFeatureEnabled("test feature"));
  EXPECT_TRUE(svSetFeatureState("test feature", 1));
  EXPECT_EQ(told, 1);
  EXPECT_TRUE(svIsFeatureEnabled("test feature"));
  EXPECT_FALSE(svSetFeatureState("no such feature", 1));
  EXPECT_FALSE(svIsFeatureEnabled("no such feature"));
}

}  // namespace
