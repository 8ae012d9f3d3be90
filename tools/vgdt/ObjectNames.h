#pragma once

#include <vcos/COSInterface.h>
#include <vx/literal.h>

#include <boost/intrusive/set.hpp>
#include <string>
#include <string_view>

namespace vgdt {

/// Gives an object a name for as long as this lives, and holds a reference to the object, so that
/// no name outlives what it names.
class ObjectName : public boost::intrusive::set_base_hook<
                       boost::intrusive::link_mode<boost::intrusive::auto_unlink>> {
 public:
  /// If the object has a name already, it keeps that one.
  ObjectName(std::string name, vcos::COSInterfacePtr object);
  ObjectName(const ObjectName&) = delete;
  ObjectName& operator=(const ObjectName&) = delete;

  const std::string& name() const noexcept { return name_; }
  const vcos::COSInterfacePtr& object() const noexcept { return object_; }

 protected:
  ~ObjectName() { unlink(); }

 private:
  std::string name_;
  vcos::COSInterfacePtr object_;
};

/// The name of an object; empty if it has none.
std::string_view nameOf(const vcos::COSInterface& object) noexcept;

using vghost::shownName;

}  // namespace vgdt
