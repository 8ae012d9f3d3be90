#include "Handles.h"

#include "../common/Comparisons.h"
#include "../common/measuring.h"
#include "SampleClasses.h"

#include <graphics/datatype/handles.h>
#include <vcos/COSTypeRepository.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <unordered_map>
#include <vector>

namespace {

using vcos::COSInterface;
using vcos::COSValue;

const vcos::COSTypeConversion& numbers() {
  static const auto& conversion = *vcos::COSTypeRepository::getConversion(
      vcos::COSNameID("double"), vcos::COSNameID("vortil.graphics.datatype.COSInterface"));
  return conversion;
}
COSInterface* objectOf(double number) {
  return numbers().from(COSValue::fromDouble(number)).asPointer<COSInterface>();
}
double numberOf(COSInterface* object) {
  return numbers().to(COSValue::fromPointer(object)).asDouble();
}

/// So many objects with a number each, in the library's table and in hash maps.
struct Handles {
  explicit Handles(std::size_t count) {
    const vcos::COSClass& lines = *sample::findClass("Line");
    for (std::size_t i = 0; i < count; ++i) {
      owners.push_back(lines.createObject());
      COSInterface* const object = owners.back().get();
      const double number = numberOf(object);
      inOrder.push_back(number);
      objects[number] = object;
      found[object] = number;
    }
    std::ranges::shuffle(inOrder, std::mt19937(7));
    for (const double number : inOrder)
      if (objectOf(number) != objects[number]) measuring::fail("a number leads elsewhere");
  }
  Handles(const Handles&) = delete;
  Handles& operator=(const Handles&) = delete;
  ~Handles() {
    for (const double number : inOrder)
      graphics::datatype::vcos_destroy_handle(number);
  }

  std::vector<vcos::COSInterfacePtr> owners;
  std::vector<double> inOrder;
  std::unordered_map<double, COSInterface*> objects;
  std::unordered_map<COSInterface*, double> found;
};

/// Adds the measurement of `operation(handles, number)`, called with the numbers in a random order.
template <class Operation>
void measure(const std::string& name, std::size_t count, Operation operation) {
  const auto run = [count, operation](benchmark::State& state) {
    static std::map<std::size_t, Handles> bySize;
    Handles& handles = bySize.try_emplace(count, count).first->second;
    std::size_t next = 0;
    for ([[maybe_unused]] auto each : state) {
      benchmark::DoNotOptimize(operation(handles, handles.inOrder[next]));
      next = next + 1 == count ? 0 : next + 1;
    }
    state.SetItemsProcessed(state.iterations());
  };
  benchmark::RegisterBenchmark(name.c_str(), run);
}

/// A number for an object, which is given up at once: every conversion makes a new one.
double numberAndBack(COSInterface* object) {
  const double number = numberOf(object);
  graphics::datatype::vcos_destroy_handle(number);
  return number;
}

}  // namespace

void addHandles() {
  using measuring::Goal;
  for (const auto& [size, count] : {std::pair("10", 10), {"1e3", 1000}, {"1e6", 1000000}}) {
    const std::string behind = std::string("/") + size;
    const auto handles = static_cast<std::size_t>(count);
    measure("toObject" + behind, handles, [](Handles&, double n) { return objectOf(n); });
    measure("toObject" + behind + "/map", handles,
            [](Handles& h, double n) { return h.objects.find(n)->second; });
    measure("toNumber" + behind, handles,
            [](Handles& h, double n) { return numberAndBack(h.objects.find(n)->second); });
    measure("toNumber" + behind + "/map", handles,
            [](Handles& h, double n) { return h.found.find(h.objects.find(n)->second)->second; });
    measure("thereAndBack" + behind, handles,
            [](Handles&, double n) { return numberAndBack(objectOf(n)); });
    for (const std::string work : {"toObject", "toNumber"})
      measuring::compareTimes({work + behind, "map", work + behind, work + behind + "/map",
                               work == "toObject" ? Goal::atMost(3) : Goal::kNone});
    measuring::compareTimes({"thereAndBack" + behind, "maps", "thereAndBack" + behind,
                             "toNumber" + behind + "/map", Goal::atMost(3)});
  }
}
