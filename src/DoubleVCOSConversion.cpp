#include "TypeRegistration.h"

#include <graphics/datatype/handles.h>
#include <handles/handle_table.h>
#include <messages/catalog.h>
#include <messages/ustring.h>
#include <sv/features.h>
#include <ut/class_numbers.h>
#include <vcos/COSClass.h>
#include <vcos/COSTypeConversion.h>
#include <vx/errors.h>

#include <memory>
#include <optional>
#include <set>
#include <utility>

namespace graphics::datatype {

using vcos::COSInterface;
using vcos::COSInterfacePtr;
using vcos::COSNameID;
using vcos::COSValue;

InvalidDoubleHandleException::InvalidDoubleHandleException(std::string identifier, std::string text)
    : identifier_(std::move(identifier)),
      text_(std::move(text)) {}

InvalidDoubleHandleException::~InvalidDoubleHandleException() = default;

const char* InvalidDoubleHandleException::GetID() const {
  return identifier_.c_str();
}
fl::ustring InvalidDoubleHandleException::GetUnicodeMessageTxt() const {
  return fl::i18n::to_ustring(text_);
}
InvalidDoubleHandleException* InvalidDoubleHandleException::clone() const {
  return new InvalidDoubleHandleException(*this);
}
void InvalidDoubleHandleException::rethrow() const {
  throw *this;
}
const char* InvalidDoubleHandleException::what() const noexcept {
  return text_.c_str();
}

namespace {

constexpr double kNoHandle = -1.0;

constexpr const char* kGraphicsClass = "VGHandle";

/// The number of the class of all graphics objects, which is registered on demand.
int graphicsClass() {
  static int number = utGetClassNum(kGraphicsClass);
  if (number == -1)
    number = utRegisterObjectClass(kGraphicsClass, utGetClassNum(kGraphicsClass), 0);
  return number;
}

/// Of the table once it is entered there, until vcos_destroy_handle.
std::unique_ptr<HandleRecord> makeRecord(COSInterface* object) {
  return std::make_unique<HandleRecord>(HandleRecord{graphicsClass(), kNoHandle, 0, object});
}

/// Enters a record by a function of the host's, and returns its number.
template <class Enter>
double enterRecord(COSInterface* object, Enter&& enter) {
  std::unique_ptr<HandleRecord> record = makeRecord(object);
  const double number = enter(record.get());
  if (number != kNoHandle) static_cast<void>(record.release());
  return number;
}

/// Kept: the record that had the number before is not freed; it may belong to somebody else.
void assignInteger(COSInterface* object, int number) {
  std::unique_ptr<HandleRecord> record = makeRecord(object);
  assign_figure_handle(record.get(), number);
  static_cast<void>(record.release());
}

/// The object of a number, which may be null; none if the number names nothing.
std::optional<COSInterface*> objectOf(double number) {
  const HandleRecord* const record = handle2pointer(number);
  const bool isGraphics =
      record && utInstanceOf(get_any_object_type(record), utGetClassNum(kGraphicsClass));
  return isGraphics ? std::optional(record->object) : std::nullopt;
}

/// The numbers that were made while somebody wants to sweep them away.
struct Tracking {
  bool enabled = false;
  std::set<double> handles;
};

constinit Tracking* tracking = nullptr;
constinit bool rootHasHandle = false;

Tracking& requireTracking() {
  if (!tracking) tracking = new Tracking;
  return *tracking;
}

/// A number that cannot be kept is taken out of the table again.
double tracked(double number) {
  if (number == kNoHandle) return number;
  try {
    Tracking& numbers = requireTracking();
    if (numbers.enabled) numbers.handles.insert(number);
  } catch (...) {
    vcos_destroy_handle(number);
    throw;
  }
  return number;
}

double firstRootHandle(COSInterface* root) {
  if (!svIsFeatureEnabled("VORTILUsingSingleGraphics"))
    vxErrMsgId(VORTIL::vg::root::InvalidRootCast());
  assignInteger(root, 0);
  const double number = tracked(0);
  rootHasHandle = true;
  return number;
}

bool wantsInteger(COSInterface* figure) {
  static const COSNameID name("IntegerHandle");
  const COSInterfacePtr found = figure->findProperty(name);
  const vcos::COSPropInfo* const property = vcos::COSPropInfoPtrHelper().getObject(found);
  return property && property->getValue(figure).asLogical();
}

bool isBehindZero(const COSInterface* root) {
  const auto found = objectOf(0);
  if (!found)
    throw InvalidDoubleHandleException("VORTIL:vg:dt_conv:Matrix_to_HObject:BadHandle",
                                       "Invalid object handle");
  return *found == root;
}

class DoubleVCOSConversion final : public vcos::COSTypeConversion {
 public:
  COSValue to(COSValue value) const override {
    auto* const object = value.asPointer<COSInterface>();
    warnAboutToDoubleConversion(COSInterfacePtr(object));
    return COSValue::fromDouble(handleOf(object));
  }

  COSValue from(COSValue value) const override {
    COSInterface* const object = objectOf(value.asDouble()).value_or(nullptr);
    if (object) warnAboutFromDoubleConversion();
    return COSValue::fromPointer(object);
  }

 private:
  static double handleOf(COSInterface* object) {
    static const COSNameID graphicsObject("vg2utils.VGHandle");
    static const COSNameID root("vortil.ui.Root");
    static const COSNameID figure("vortil.ui.Figure");
    graphicsClass();  // registered first, so that a failure leaves no number behind
    vcos::COSClass* const ownClass = object ? object->getClass() : nullptr;
    if (!ownClass || !ownClass->isA(graphicsObject)) return kNoHandle;
    const bool isRoot = ownClass->isA(root);
    if (isRoot && !rootHasHandle) return firstRootHandle(object);
    if (ownClass->isA(figure) && wantsInteger(object))
      return tracked(enterRecord(object, new_figure_handle));
    if (isRoot && isBehindZero(object)) return 0;
    return tracked(
        enterRecord(object, [](HandleRecord* record) { return new_handle(record, kNoHandle); }));
  }
};

bool isOn(const char* feature) {
  const svFeatureEntry* const entry = svFindFeatureEntry(feature);
  return entry && entry->state == 1;
}

bool warningsAreOn() {
  return isOn("VG2EarlyWarnings") || isOn("VG2DoubleConversionWarning");
}

}  // namespace

void initDoubleConverters() {
  addConversion<DoubleVCOSConversion>("double", "vortil.graphics.datatype.COSInterface");
}

void vcos_destroy_handle(double handle) {
  HandleRecord* const record = handle2pointer(handle);
  if (!record) return;
  destroy_handle(handle);
  record->object = nullptr;
  delete record;
}

void assignFigureIntegerHandle(const COSInterfacePtr& figure, int number) {
  assignInteger(figure.get(), number);
}

void warnAboutToDoubleConversion(const COSInterfacePtr& object) {
  if (!warningsAreOn()) return;
  const vcos::COSClass* const ownClass = object ? object->getClass() : nullptr;
  vxWarningMsgId(component_VORTIL::catalog_graphics::key_DoubleConversionWarning(
      ownClass ? ownClass->getName() : "graphics"));
}

void warnAboutFromDoubleConversion() {
  if (warningsAreOn()) vxWarningMsgId(component_VORTIL::catalog_vg::key_DoubleToHandleConversion());
}

void test::enableDoubleHandleTracking(bool enable) {
  Tracking& numbers = requireTracking();
  if (numbers.enabled && !enable) {
    for (const double handle : numbers.handles) {
      vcos_destroy_handle(handle);
      rebind_handle(handle, nullptr);
    }
    numbers.handles.clear();
  }
  numbers.enabled = enable;
}

}  // namespace graphics::datatype
