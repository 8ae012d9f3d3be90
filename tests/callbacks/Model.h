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
    bool isInterruptible = true;
    bool isQueued = true;
    bool isAlive = true;
    bool hasCode = false;
    std::string code = {};
  };
  struct Item {
    std::shared_ptr<Object> object;
    const char* property;
    char data;
    bool wasCaught = false;

    const char* className() const {
      return object->isAlive ? object->className : "DestroyedObject";
    }
    bool hasFlags() const { return object->isAlive && object->hasFlags; }
  };
  using ItemPtr = std::shared_ptr<Item>;

  void fire(char event, std::size_t which) override {
    const auto object = objects_[which];
    if (!object->isAlive || !object->hasCode) return;
    process(std::make_shared<Item>(event == 'p'   ? Item{object, "OnPress", 'd'}
                                   : event == 'n' ? Item{object, "OnNotify", 'z'}
                                                  : Item{object, "OnUrgent", 'n'}),
            event != 'u');
  }

  void process(const ItemPtr& item, bool isAware) {
    if (isAware && !isInterruptible_) {
      if (item->hasFlags() && item->object->isQueued) queue_.push_back(item);
      return;
    }
    post(call(*item));
  }

  int call(Item& item) {
    int status = 0;
    if (!isPending_) {
      wasHandled_ = false;
      const bool before = isInterruptible_;
      const auto restore = [&](const void*) { isInterruptible_ = before, --depth_; };
      const std::unique_ptr<const void, decltype(restore)> restoring(this, restore);
      ++depth_;
      isInterruptible_ = !item.hasFlags() || item.object->isInterruptible;
      const bool wasSet = std::exchange(isBitSet_, true);
      if (execute(item)) status = 2;
      isBitSet_ = wasSet;
    }
    const bool print = status == 2 && !item.wasCaught;
    if (wasHandled_) queue_.clear();
    if (wasHandled_ || isQuitting_) status = wasHandled_ ? 4 : 3;
    isModeLeft_ |= status == 3;
    const std::string id = status == 2 ? lastError_ : "";
    if (print && status != 3)
      tell("<", id, status == 2 ? " Error" : " Interrupt", " while evaluating ", item.className(),
           " ", item.property, id.empty() ? ".>" : ">");
    return status;
  }

  bool execute(Item& item) {
    item.wasCaught = false;
    if (!item.object->isAlive || !item.object->hasCode) return false;
    ++references_;
    lastError_.clear();
    const auto outcome = run(item.object->number, std::string(item.object->code), item.data);
    item.wasCaught = outcome.wasSaved;
    --references_;
    return outcome.hasFailed;
  }

  void post(int status) {
    tell(";", std::to_string(status));
    if (!wasHandled_ && status != 3) {
      if (depth_ != 0 || queue_.empty()) return;
      const ItemPtr item = queue_.front();
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
    if (act == 'x') object->isAlive = false;
    if (act == 'i' || act == 'I') object->isInterruptible = act == 'I';
    if (act == 'b' || act == 'B') object->isQueued = act == 'B';
    if (act == 'c') object->hasCode = code != nullptr;
    if (act == 'c' && code) object->code = *code;
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
    for (const ItemPtr& item : queue_)
      tell(" ", item->className(), ".", item->property);
  }

  std::size_t made_ = 0;
  std::array<std::shared_ptr<Object>, 4> objects_;
  bool isInterruptible_ = true;
  std::deque<ItemPtr> queue_;
  int depth_ = 0;
  std::vector<bool> waits_;
  std::string lastError_;
  bool isPending_ = false, wasHandled_ = false, isQuitting_ = false;
  bool isBitSet_ = false, isModeLeft_ = false;
  std::size_t references_ = 0;
};

}  // namespace test
