#pragma once

#include <boost/intrusive/list.hpp>

namespace vcos {

/// Is told when the last reference to an object goes. It watches one object at a time, and stops
/// where it ends or unlink() is called.
class ObjectWatch : public boost::intrusive::list_base_hook<
                        boost::intrusive::link_mode<boost::intrusive::auto_unlink>> {
 public:
  virtual void objectGone() noexcept = 0;

 protected:
  ~ObjectWatch() = default;
};

using ObjectWatches =
    boost::intrusive::list<ObjectWatch, boost::intrusive::constant_time_size<false>>;

}  // namespace vcos
