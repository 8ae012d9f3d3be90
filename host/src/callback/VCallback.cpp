#include "../ut/SharedCount.h"
#include "../vx/comparison.h"

#include <callback/VCallback.h>
#include <gui_objects/AutoPtr.h>
#include <gui_objects/exceptions.h>
#include <ut/faults.h>
#include <ut/memory.h>
#include <vcos/exceptions.h>
#include <vx/errors.h>

#include <boost/intrusive/list.hpp>
#include <memory>
#include <utility>

using vghost::faults::countHostCall;

namespace {

using ArrayOwner = gui_objects::AutoPtr<vxArray, gui_objects::VxArrayDtor>;
using ListHook =
    boost::intrusive::list_base_hook<boost::intrusive::link_mode<boost::intrusive::auto_unlink>>;

constinit vghost::CallbackEvaluator* installed = nullptr;
constinit vghost::Tally references;

bool isEmptyCode(const vxArray* array) {
  return vxGetClassID(array) == vxCHAR_CLASS && vxIsEmpty(array);
}

void requireCodeOrFunction(const vxArray* array) {
  if (!array) throw gui_objects::NullArrayException();
  const vxClassID classID = vxGetClassID(array);
  if (classID == vxFUNCTION_CLASS || isEmptyCode(array)) return;
  if (classID != vxCHAR_CLASS) throw gui_objects::InvalidArrayClassException();
  if (vxGetNumberOfDimensions(array) != 2 || vxGetM(array) != 1)
    throw gui_objects::InvalidArrayShapeException();
}

void requireCallback(const vxArray* array) {
  if (!array || vxGetClassID(array) != vxCELL_CLASS) return requireCodeOrFunction(array);
  if (vxIsEmpty(array)) throw gui_objects::InvalidArrayShapeException();
  requireCodeOrFunction(vxGetCell(array, 0));
}

}  // namespace

/// What callbacks and references share.
struct VCallback::Content : ListHook {
  explicit Content(ArrayOwner form) noexcept : array(std::move(form)), reference(*this) {}
  ~Content() { reference.content_ = nullptr; }
  Content(const Content&) = delete;
  Content& operator=(const Content&) = delete;

  static void* operator new(std::size_t size) { return VCallback::operator new(size); }
  static void operator delete(void* storage) noexcept { VCallback::operator delete(storage); }

  void release() noexcept {
    if (uses.subtract(1) == 0) delete this;
  }

  /// Those with references, which leak checkers find here: whoever leaves a callback by an
  /// exception may never give its reference back.
  static auto& referenced() {
    using Contents = boost::intrusive::list<Content, boost::intrusive::constant_time_size<false>>;
    static Contents& all = *new Contents;
    return all;
  }

  ArrayOwner array;
  VCallback reference;  ///< what all references to this content are
  vghost::SharedCount uses;
  std::size_t references = 0;
};

VCallback::VCallback(const vxArray* array) {
  countHostCall("VCallback");
  requireCallback(array);
  content_ = new Content(ArrayOwner(vxCreateSharedCopyNotOnArrayList(array)));
  content_->uses.add(1);
}

VCallback::VCallback(const VCallback& other) noexcept : content_(other.content_) {
  content_->uses.add(1);
}

VCallback::~VCallback() {
  if (content_) content_->release();
}

void* VCallback::operator new(std::size_t size) {
  void* const storage = utMalloc(size);
  if (!storage) throw vcos::COSOutOfMemoryException();
  return storage;
}
void VCallback::operator delete(void* storage) noexcept {
  utFree(storage);
}

VCallback* VCallback::createFromString(const char* code) {
  countHostCall("VCallback::createFromString");
  if (!code) throw gui_objects::NullArrayException();
  const ArrayOwner array(vxCreateString(code));
  return new VCallback(array.get());
}

bool VCallback::isEqual(const VCallback* other) const {
  const vxArray* const a = content_->array.get();
  const vxArray* const b = other->content_->array.get();
  return a == b || (isEmptyCode(a) && isEmptyCode(b)) || vghost::areSame(a, b);
}

vxArray* VCallback::convertToVortilArray(bool isNew) const {
  vxArray* const own = content_->array.get();
  return isNew ? vxCreateSharedDataCopy(own) : own;
}

int VCallback::execute(vxArray* source, vxArray* eventData) const {
  countHostCall("VCallback::execute");
  vghost::clearLastError();
  wasSaved_ = false;
  if (!installed) return 0;
  const auto outcome = installed->run(content_->array.get(), source, eventData);
  wasSaved_ = outcome.wasSaved;
  return outcome.hasFailed ? 1 : 0;
}

VCallback* GetVCallbackReference(VCallback* callback) {
  countHostCall("GetVCallbackReference");
  VCallback::Content& content = *callback->content_;
  content.uses.add(1);
  if (content.references++ == 0) VCallback::Content::referenced().push_back(content);
  references.add(1);
  return &content.reference;
}

void DestroyVCallback(VCallback* reference) noexcept {
  if (!reference) return;
  VCallback::Content& content = *reference->content_;
  references.subtract(1);
  if (--content.references == 0) content.unlink();
  content.release();
}

namespace vghost {

CallbackEvaluator::~CallbackEvaluator() = default;

CallbackEvaluator* installCallbackEvaluator(CallbackEvaluator* evaluator) noexcept {
  return std::exchange(installed, evaluator);
}

std::size_t callbackReferences() noexcept {
  return references.get();
}

}  // namespace vghost
