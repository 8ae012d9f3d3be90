#include "CountedObject.h"

#include <ut/faults.h>
#include <vcos/COSClass.h>
#include <vcos/COSIterator.h>
#include <vcos/exceptions.h>

#include <utility>

namespace vcos {
namespace {

COSClass& compositeClass() {
  static auto& composites = *new COSClass("vortil.Composite", nullptr);
  return composites;
}

class Composite final : public CountedObject {
 public:
  explicit Composite(std::vector<COSInterfacePtr> elements) : elements_(std::move(elements)) {}

  COSClass* getClass() const override { return &compositeClass(); }
  const std::vector<COSInterfacePtr>& elements() const noexcept { return elements_; }

 private:
  std::vector<COSInterfacePtr> elements_;
};

}  // namespace

COSInterfacePtr createComposite(std::vector<COSInterfacePtr> elements) {
  vghost::faults::countHostCall("createComposite");
  return COSInterfacePtr(new Composite(std::move(elements)));
}

COSIterator::COSIterator(COSInterface* object, int kind, int direction) {
  if (!object || kind != kIterateElements || direction != kIterateForward)
    throw COSMsgException("There is nothing to walk.");
  if (const auto* composite = dynamic_cast<const Composite*>(object))
    elements_ = composite->elements();
  else
    elements_.emplace_back(object);
}

}  // namespace vcos
