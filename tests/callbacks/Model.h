#pragma once

#include "callbacks/World.h"

#include <deque>
#include <memory>
#include <utility>

namespace test {

/// The world as it ought to be: the executor as it is described, by recursion.
class Model final : public World {
 public:
  explicit Model(std::vector<std::string> codes) : World(std::move(codes)) { makeObjects(); }

 private:
  struct Object {
    std::size_t number;
    const char* className;
    bool hasFlags;
    bool isAlive = true;
    bool isInterruptible = true;
    bool isQueued = true;
    const std::string* code = nullptr;
  };
  struct Item {
    std::shared_ptr<Object> object;
    const char* property;
    char data;
  };

  void fire(char event, std::size_t which) override {
    const auto object = objects_[which];
    if (!object->code) return;
    process(event == 'p'   ? Item{object, "OnPress", 'd'}
            : event == 'n' ? Item{object, "OnNotify", 'z'}
                           : Item{object, "OnUrgent", 'n'},
            event != 'u');
  }

  void process(const Item& item, bool isAware) {
    if (!isAware || isInterruptible_) return post(call(item));
    if (item.object->hasFlags && item.object->isQueued) queue_.push_back(item);
  }

  int call(const Item& item) {
    const Object& object = *item.object;
    vghost::CallbackOutcome outcome;
    if (!isPending_) {
      wasHandled_ = false;
      const bool before = isInterruptible_;
      const auto restore = [&](const void*) { isInterruptible_ = before, --depth_; };
      const std::unique_ptr<const void, decltype(restore)> restoring(this, restore);
      ++depth_;
      isInterruptible_ = !object.hasFlags || object.isInterruptible;
      const bool wasSet = std::exchange(isBitSet_, true);
      if (object.code) {
        ++references_;
        lastError_.clear();
        outcome = run(object.number, *object.code, item.data);
        --references_;
      }
      isBitSet_ = wasSet;
    }
    if (wasHandled_) queue_.clear();
    const int status = wasHandled_ ? 4 : isQuitting_ ? 3 : outcome.hasFailed ? 2 : 0;
    isModeLeft_ |= status == 3;
    const std::string id = status == 2 ? lastError_ : "";
    if (outcome.hasFailed && !outcome.wasSaved && status != 3)
      tell("<", id, status == 2 ? " Error" : " Interrupt", " while evaluating ", object.className,
           " ", item.property, id.empty() ? ".>" : ">");
    return status;
  }

  void post(int status) {
    tell(";", std::to_string(status));
    if (!wasHandled_ && status != 3) {
      if (depth_ != 0 || queue_.empty()) return;
      const Item item = queue_.front();
      queue_.pop_front();
      return process(item, true);
    }
    if (depth_ <= 0) return;
    if (wasHandled_) throw Lindgrove::System::InterruptException(false);
    throw Lindgrove::System::DebugQuitException();
  }

  void change(char act, std::size_t which, const std::string* code) override {
    auto& object = objects_[which];
    if (act == 'r') object = std::make_shared<Object>(made_++, kClasses[which], which < 3);
    if (act == 'x') *object = {object->number, "DestroyedObject", false, false};
    if (act == 'i' || act == 'I') object->isInterruptible = act == 'I';
    if (act == 'b' || act == 'B') object->isQueued = act == 'B';
    if (act == 'c' && object->isAlive) object->code = code;
    if (act == 'f') lastError_ = "id";
    if (act == 'w') waits_.push_back(std::exchange(isInterruptible_, true));
    if (act == 'W' && !waits_.empty()) isInterruptible_ = waits_.back(), waits_.pop_back();
    if (act == '^') isPending_ = true;
    if (act == '!' && std::exchange(isPending_, false)) wasHandled_ = true;
    if (act == 'o') isPending_ = false;
    if (act == 'q' || act == 'Q') isQuitting_ = act == 'q';
  }

  void tellRest() override {
    World::tellRest(depth_ > 0, isBitSet_, isModeLeft_, references_, wasHandled_);
    for (const Item& item : queue_)
      tell(" ", item.object->className, ".", item.property);
  }

  std::size_t made_ = 0;
  std::array<std::shared_ptr<Object>, 4> objects_;
  bool isInterruptible_ = true;
  std::deque<Item> queue_;
  int depth_ = 0;
  std::vector<bool> waits_;
  std::string lastError_;
  bool isPending_ = false, wasHandled_ = false, isQuitting_ = false;
  bool isBitSet_ = false, isModeLeft_ = false;
  std::size_t references_ = 0;
};

}  // namespace test
