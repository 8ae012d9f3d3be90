#include "../vcos/ObjectWatch.h"

#include <handles/handle_table.h>
#include <ut/faults.h>
#include <vcos/COSInterface.h>

#include <climits>
#include <cstddef>
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

bool isInteger(double number) noexcept {
  return number >= INT_MIN && number <= INT_MAX &&
         static_cast<double>(static_cast<int>(number)) == number;
}

/// Numbers that are not whole. The whole part is the place in the table, counted from 1; the
/// fraction counts who has had the place, so that a number is never given twice.
class FractionTable {
 public:
  double add(HandleRecord* record) {
    if (freePlaces_.empty()) addPlace();
    const std::size_t index = freePlaces_.back();
    freePlaces_.pop_back();
    Place& place = places_[index];
    const double number = static_cast<double>(index + 1) + ++place.uses / kUses;
    place.entry.enter(record, number);
    numbers_[index] = {number, record};
    return number;
  }

  HandleRecord* find(double number) const noexcept {
    if (!(number >= 1 && number < static_cast<double>(numbers_.size() + 1))) return nullptr;
    const Number& found = numbers_[indexOf(number)];
    return found.number == number ? found.record : nullptr;
  }

  // The number has to be in the table.

  void rebind(double number, HandleRecord* record) noexcept {
    const std::size_t index = indexOf(number);
    places_[index].entry.enter(record, number);
    numbers_[index].record = record;
  }
  void remove(double number) noexcept {
    const std::size_t index = indexOf(number);
    places_[index].entry.leave();
    numbers_[index] = {};
    if (places_[index].uses + 1 < kUses) freePlaces_.push_back(index);
  }

 private:
  static constexpr double kUses = 65536;

  static std::size_t indexOf(double number) noexcept {
    return static_cast<std::size_t>(number) - 1;
  }

  struct Number {
    double number = 0;
    HandleRecord* record = nullptr;
  };
  struct Place {
    Entry entry;
    double uses = 0;
  };

  void addPlace() {
    if (freePlaces_.capacity() <= places_.size())  // freeing a place must not fail
      freePlaces_.reserve(2 * places_.size() + 1);
    numbers_.emplace_back();
    try {
      places_.emplace_back();
    } catch (...) {
      numbers_.pop_back();
      throw;
    }
    freePlaces_.push_back(places_.size() - 1);
  }

  std::vector<Number> numbers_;  ///< of the places: what a look-up reads
  std::deque<Place> places_;
  std::vector<std::size_t> freePlaces_;
};

/// Whole numbers. A number that is given up stays in one of the two maps, whose nodes move from one
/// to the other, so that giving it up does not fail.
class IntegerTable {
 public:
  double add(HandleRecord* record) {
    // The smallest of those given up, unless there is one that nobody has had yet below it.
    while (used_.contains(next_) || free_.contains(next_)) {
      if (next_ == INT_MAX) return Entry::kNone;
      ++next_;
    }
    const auto smallest = free_.lower_bound(1);
    const bool isFreeBelow = smallest != free_.end() && smallest->first < next_;
    return enter(isFreeBelow ? smallest->first : next_, record);
  }

  double enter(int number, HandleRecord* record) {
    if (auto node = free_.extract(number)) used_.insert(std::move(node));
    used_[number].enter(record, number);
    return number;
  }

  HandleRecord* find(double number) const noexcept {
    if (!isInteger(number)) return nullptr;
    const auto found = used_.find(static_cast<int>(number));
    return found == used_.end() ? nullptr : found->second.record();
  }

  // The number has to be in the table.

  void rebind(double number, HandleRecord* record) noexcept {
    used_.find(static_cast<int>(number))->second.enter(record, number);
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

}  // namespace

HandleRecord* handle2pointer(double handle) noexcept {
  if (!entered) return nullptr;
  HandleRecord* const record = entered->fractions.find(handle);
  return record ? record : entered->integers.find(handle);
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
  if (!handle2pointer(handle)) return;
  if (isInteger(handle))
    entered->integers.remove(handle);
  else
    entered->fractions.remove(handle);
}

void rebind_handle(double handle, HandleRecord* record) noexcept {
  if (!record) return destroy_handle(handle);
  if (!handle2pointer(handle)) return;
  if (isInteger(handle))
    entered->integers.rebind(handle, record);
  else
    entered->fractions.rebind(handle, record);
}

int get_any_object_type(const HandleRecord* record) noexcept {
  return record->classNumber;
}
