// Random programs of callbacks, each step held against a model of the executor.

#include "callbacks/Product.h"
#include "support/HostError.h"

#include <gmock/gmock.h>

#include <deque>
#include <memory>
#include <random>
#include <utility>

namespace {

using namespace test;

/// The world as it ought to be: the executor as it is described, by recursion.
class Model final : public World, WaitForObserver {
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
    if (!utIsInterruptPending()) {
      utSetInterruptHandled(0);
      const bool before = isInterruptible_;
      const auto restore = [&](const void*) { isInterruptible_ = before, --depth_; };
      const std::unique_ptr<const void, decltype(restore)> restoring(this, restore);
      ++depth_;
      isInterruptible_ = !object.hasFlags || object.isInterruptible;
      const bool wasSet = (svGetVGStatus() & 4) != 0;
      svSetVGStatus(4);
      if (object.code) {
        vghost::clearLastError();
        ++references_;  // until the callback ends without an exception
        outcome = run(object.number, *object.code, item.data);
        --references_;
      }
      if (!wasSet) svClearVGStatus(4);
    }
    const int failure = outcome.hasFailed ? 2 : 0;
    const int status = utWasInterruptHandled() ? 4 : inIsDbquitSet() ? 3 : failure;
    if (status == 4) queue_.clear();
    if (status == 3) vxSetErrorMode(vxERROR_MODE_REPORT);
    const char* const id = status == 2 ? lastError().identifier : nullptr;
    if (outcome.hasFailed && !outcome.wasSaved && status != 3)
      tell("<", id ? id : "", status == 2 ? " Error" : " Interrupt", " while evaluating ",
           object.className, " ", item.property, id ? ">" : ".>");
    return status;
  }

  void post(int status) {
    tell(";", std::to_string(status));
    const bool isLeft = utWasInterruptHandled() || status == 3;
    if (depth_ == 0 && !isLeft && !queue_.empty()) {
      const Item item = queue_.front();
      queue_.pop_front();
      process(item, true);
    } else if (depth_ > 0 && isLeft) {
      if (utWasInterruptHandled()) throw Lindgrove::System::InterruptException(false);
      throw Lindgrove::System::DebugQuitException();
    }
  }

  void waitForStarted() override { waits_.push_back(std::exchange(isInterruptible_, true)); }
  void waitForFinished() override { isInterruptible_ = waits_.back(), waits_.pop_back(); }

  void change(char act, std::size_t which, const std::string* code) override {
    auto& object = objects_[which];
    if (act == 'r') object = std::make_shared<Object>(Object{made_++, kClasses[which], which < 3});
    if (act == 'x') *object = {object->number, "DestroyedObject", false, false};
    if (act == 'i' || act == 'I') object->isInterruptible = act == 'I';
    if (act == 'b' || act == 'B') object->isQueued = act == 'B';
    if (act == 'c' && object->isAlive) object->code = code;
  }

  void tellRest() override {
    tellReferences(references_);
    for (const Item& item : queue_)
      tell(" ", item.object->className, ".", item.property);
  }

  std::size_t made_ = 0;
  std::size_t references_ = 0;
  std::array<std::shared_ptr<Object>, 4> objects_;
  bool isInterruptible_ = true;
  std::deque<Item> queue_;
  int depth_ = 0;
  std::vector<bool> waits_;
};

/// Acts as World has them, each as often as it stands here.
std::string randomActs(std::mt19937_64& random, std::size_t most) {
  static constexpr std::string_view kActs =
      "ppppppppppppppppppppppppppppnnnnnuuuuuuuuuuuuucciiIIbBxrrreeeffsstwwwwWWWW^!!!oqQQQ";
  const auto below = [&random](std::size_t end) { return random() % end; };
  std::string acts;
  for (std::size_t i = below(most + 1); i > 0; --i) {
    const char act = kActs[below(kActs.size())];
    acts += {act, static_cast<char>('0' + below(kClasses.size()))};
    if (std::string_view("pnu").find(act) != std::string_view::npos && below(8) > 0) acts += '?';
    if (act == '^' && below(2) == 0) acts += " !";
    if (act == 'c') acts += below(6) == 0 ? '-' : static_cast<char>('a' + below(6));
    acts += ' ';
  }
  return acts;
}

TEST_F(Samples, OfCallbacksDoWhatTheModelDoes) {
  constexpr int kStorms = 4000;  // with more than a million firings
  std::mt19937_64 random(static_cast<std::uint64_t>(GTEST_FLAG_GET(random_seed)));
  std::vector<std::string_view> unseen = {"[1d[2d[",   ";01d[];0",    " bit",
                                          " mode",     " mark",       " DestroyedObject",
                                          "< Error",   " references", " vortil.ui.Figure.",
                                          "<id Error", "< Interrupt", "!Interrupt",
                                          "!Debug",    "!Thrown",     ";4!Interrupt",
                                          ";0;0;0"};
  for (int storm = 0; storm < kStorms; ++storm) {
    std::vector<std::string> codes(6);
    for (std::string& code : codes)
      code = randomActs(random, 5);
    std::vector<std::string> steps(40);
    for (std::string& acts : steps)
      acts = randomActs(random, 3);
    const std::vector<std::string> told = Product(codes).play(steps);
    const std::vector<std::string> expected = Model(codes).play(steps);
    for (std::size_t i = 0; i < steps.size(); ++i) {
      ASSERT_EQ(told[i], expected[i]) << "storm " << storm << ", " << steps[i];
      std::erase_if(unseen, [&](auto words) { return told[i].find(words) != std::string::npos; });
    }
  }
  EXPECT_THAT(unseen, testing::IsEmpty());
}

}  // namespace
