#include "../vcos/ObjectWatch.h"

#include <handles/handle_table.h>
#include <ut/faults.h>
#include <vcos/COSInterface.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <utility>
#include <vector>

namespace {

using vghost::faults::countHostCall;

/// Where a number leads to; nowhere without a record.
class Entry final : public vcos::ObjectWatch {
 public:
  HandleRecord* record() const noexcept { return record_; }

  void enter(HandleRecord* record, double number) noexcept {
    leave();
    record_ = record;
    record->handle = number;
    if (record->object) record->object->addWatch(*this);
  }
  void leave() noexcept {
    if (!record_) return;
    record_->handle = kNone;
    record_ = nullptr;
    if (is_linked()) unlink();
  }
  void objectGone() noexcept override { record_->object = nullptr; }

  static constexpr double kNone = -1.0;

 private:
  HandleRecord* record_ = nullptr;
};

/// Numbers that are not whole. The whole part is the place in the table; the fraction counts who
/// has had the place, so that a number is never given twice.
class FractionTable {
 public:
  double add(HandleRecord* record) {
    if (freePlaces_.empty()) {
      if (freePlaces_.capacity() <= places_.size())  // freeing a place must not fail
        freePlaces_.reserve(2 * places_.size() + 1);
      places_.emplace_back();
      freePlaces_.push_back(places_.size() - 1);
    }
    const std::size_t index = freePlaces_.back();
    freePlaces_.pop_back();
    Place& place = places_[index];
    const double number = static_cast<double>(index) + ++place.uses / kUses;
    place.entry.enter(record, number);
    return number;
  }

  Entry* find(double number) noexcept {
    if (!(number > 0) || number >= static_cast<double>(places_.size())) return nullptr;
    const auto index = static_cast<std::size_t>(number);
    Place& place = places_[index];
    const bool isPresent = number == static_cast<double>(index) + place.uses / kUses;
    return isPresent && place.entry.record() ? &place.entry : nullptr;
  }

  void remove(double number) noexcept {
    const auto index = static_cast<std::size_t>(number);
    places_[index].entry.leave();
    if (places_[index].uses + 1 < kUses) freePlaces_.push_back(index);
  }

 private:
  static constexpr double kUses = 65536;

  /// One line of the processor's cache, since numbers come in any order.
  struct alignas(64) Place {
    Entry entry;
    double uses = 0;
  };
  std::deque<Place> places_;
  std::vector<std::size_t> freePlaces_;
};

/// Whole numbers. A number that is given up stays in one of the two maps, whose nodes move from one
/// to the other, so that giving it up does not fail.
class IntegerTable {
 public:
  double add(HandleRecord* record) {
    // The smallest of those given up, unless there is one that nobody has had yet below it.
    while (used_.contains(next_) || free_.contains(next_))
      if (next_++ == INT_MAX - 1) return Entry::kNone;
    const auto smallest = free_.lower_bound(1);
    const bool isFreeBelow = smallest != free_.end() && smallest->first < next_;
    return enter(isFreeBelow ? smallest->first : next_, record);
  }

  double enter(int number, HandleRecord* record) {
    if (auto node = free_.extract(number)) used_.insert(std::move(node));
    used_[number].enter(record, number);
    return number;
  }

  Entry* find(double number) noexcept {
    if (!(number >= INT_MIN && number <= INT_MAX)) return nullptr;
    const auto found = used_.find(static_cast<int>(number));
    return found == used_.end() ? nullptr : &found->second;
  }

  void remove(double number) noexcept {
    auto node = used_.extract(static_cast<int>(number));
    node.mapped().leave();
    free_.insert(std::move(node));
  }

 private:
  std::map<int, Entry> used_;
  std::map<int, Entry> free_;
  int next_ = 1;  ///< below it every number is in one of the maps
};

struct Tables {
  FractionTable fractions;
  IntegerTable integers;
};

/// Made with the first entry, since looking for one must not fail. Never destroyed: objects end
/// after it.
constinit Tables* entered = nullptr;

Tables& tables() {
  if (!entered) entered = new Tables;
  return *entered;
}

bool isWhole(double number) noexcept {
  constexpr double kAllAreWhole = 1e18;  // from here on, and it fits the integer
  if (!(std::abs(number) < kAllAreWhole)) return !std::isnan(number);
  return static_cast<double>(static_cast<std::int64_t>(number)) == number;
}

Entry* find(double number) noexcept {
  if (!entered) return nullptr;
  return isWhole(number) ? entered->integers.find(number) : entered->fractions.find(number);
}

}  // namespace

HandleRecord* handle2pointer(double handle) noexcept {
  const Entry* entry = find(handle);
  return entry ? entry->record() : nullptr;
}

double new_handle(HandleRecord* record, double) {
  countHostCall("new_handle");
  return tables().fractions.add(record);
}

double new_figure_handle(HandleRecord* record) {
  countHostCall("new_figure_handle");
  return tables().integers.add(record);
}

void assign_figure_handle(HandleRecord* record, int number) {
  countHostCall("assign_figure_handle");
  tables().integers.enter(number, record);
}

void destroy_handle(double handle) noexcept {
  if (!find(handle)) return;
  if (isWhole(handle))
    entered->integers.remove(handle);
  else
    entered->fractions.remove(handle);
}

void rebind_handle(double handle, HandleRecord* record) noexcept {
  if (!record) return destroy_handle(handle);
  if (Entry* entry = find(handle)) entry->enter(record, handle);
}

int get_any_object_type(const HandleRecord* record) noexcept {
  return record->classNumber;
}
