#pragma once

#include "ObjectNames.h"

#include <vcos/COSClass.h>

#include <boost/intrusive/list.hpp>
#include <boost/intrusive/set.hpp>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vgdt {

/// An object of a session under its name.
class SessionObject : public ObjectName {
 public:
  SessionObject(std::string name, const vcos::COSClass& ownClass, std::uint64_t number)
      : ObjectName(std::move(name), ownClass.createObject()),
        number_(number) {}

  bool isLiving() const { return !object()->isDestroyed(); }
  const vcos::COSClass& ownClass() const { return *object()->getClass(); }

 private:
  friend class Objects;

  using Unlinking = boost::intrusive::link_mode<boost::intrusive::auto_unlink>;
  using ListHook = boost::intrusive::list_member_hook<Unlinking>;
  using SetHook = boost::intrusive::set_member_hook<Unlinking>;
  struct NumberOf {
    using type = std::uint64_t;
    type operator()(const SessionObject& object) const noexcept { return object.number_; }
  };
  ListHook among_;   // among the living
  SetHook sibling_;  // in the children of its parent
  ListHook doomed_;  // in what is to be deleted with its parent

  template <ListHook SessionObject::*hook>
  using List = boost::intrusive::list<SessionObject, boost::intrusive::constant_time_size<false>,
                                      boost::intrusive::member_hook<SessionObject, ListHook, hook>>;
  using Living = List<&SessionObject::among_>;
  using Children = boost::intrusive::set<
      SessionObject, boost::intrusive::constant_time_size<false>,
      boost::intrusive::key_of_value<NumberOf>,
      boost::intrusive::member_hook<SessionObject, SetHook, &SessionObject::sibling_>>;

  std::uint64_t number_;  ///< in order of creation
  Children children_;     ///< those whose Parent it is
  List<&SessionObject::doomed_> toDelete_;
  bool isBeingDeleted_ = false;
};

/// The objects of a session: the living ones, and the destroyed ones whose names are still known.
/// There is a root from the start.
class Objects {
 public:
  using Living = SessionObject::Living;

  static constexpr const char* kRoot = "root";

  Objects();
  /// No object outlives it by a reference of another.
  ~Objects();
  Objects(const Objects&) = delete;
  Objects& operator=(const Objects&) = delete;

  /// Living or destroyed; null if the name is not known.
  SessionObject* find(std::string_view name) noexcept;
  /// Null for an object that has no name here.
  SessionObject* find(const vcos::COSInterface& object) noexcept;
  /// RequestError if it is none that lives.
  SessionObject& requireLiving(std::string_view name);

  /// Makes an object under a name that no living object has, with the parent as its Parent, and
  /// fires Create on it. Nothing is left behind if this fails.
  void add(const std::string& name, const vcos::COSClass& ownClass, const SessionObject* parent);
  /// Has to be called after the Parent of an object was set.
  void noteParent(SessionObject& object) noexcept;
  /// Fires Delete on an object, removes in the same way and in order of creation those living
  /// objects whose Parent it is then, and destroys it. The root stays, and so does what is being
  /// removed already. If firing throws, what has not been destroyed by then stays.
  void remove(SessionObject& first);

  const SessionObject& root() const noexcept { return living_.front(); }
  /// In order of creation.
  const Living& living() const noexcept { return living_; }
  std::vector<std::string> livingNames() const;

 private:
  void destroy(SessionObject& object) noexcept;

  std::map<std::string, std::unique_ptr<SessionObject>, std::less<>> byName_;
  Living living_;
  std::uint64_t count_ = 0;
};

}  // namespace vgdt
