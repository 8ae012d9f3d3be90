#pragma once

/// What the contenders at setting and reading a property share.

#include "../common/Comparisons.h"
#include "../common/measuring.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <span>
#include <string>

namespace properties {

/// A property that all contenders have, and texts for it: set in turn, so that each differs from
/// the one before.
struct Work {
  const char* name;
  const char* property;
  std::span<const char* const> texts;
};

inline constexpr std::array<const char*, 4> kMarkers{"square", "diamond", "pentagram", "none"};
inline constexpr std::array<const char*, 4> kColors{"red", "blue", "green", "white"};
inline constexpr std::array<const char*, 4> kNumbers{"2.5", "0.75", "12", "1e3"};
inline constexpr Work kWorks[] = {
    {"name", "Marker", kMarkers},
    {"color", "Color", kColors},
    {"number", "Width", kNumbers},
};

/// Fails unless the text that a contender gives back is the one that it was given, or one of the
/// same value that it writes in its own way.
template <class Set, class Get>
void verify(const std::string& contender, const Work& work, Set&& set, Get&& get) {
  const auto textAfter = [&](const char* text) {
    set(work.property, text);
    return get(work.property);
  };
  for (std::size_t i = 0; i < work.texts.size(); ++i) {
    const char* const text = work.texts[i];
    const auto given = textAfter(text);
    const bool isOther = given != textAfter(work.texts[(i + 1) % work.texts.size()]);
    if (!isOther || textAfter(text) != given || given.empty())
      measuring::fail(contender + " takes '" + text + "' for '" + given + "'");
  }
}

/// Adds the measurements of one contender: `set(property, text)`, and `get(property)`, whose result
/// is a text of the contender's own kind, with `asString` for the check that is done now.
template <class Set, class Get, class AsString>
void compete(const std::string& contender, Set set, Get get, AsString asString) {
  for (const Work& work : kWorks) {
    verify(contender, work, set, [&](const char* name) { return asString(get(name)); });
    const std::string name = std::string(work.name) + "/" + contender;
    const auto measureSet = [set, work](benchmark::State& state) {
      for ([[maybe_unused]] auto each : state)
        for (const char* text : work.texts)
          set(work.property, text);
      state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(work.texts.size()));
    };
    benchmark::RegisterBenchmark(("set/" + name).c_str(), measureSet);
    measuring::measure("get/" + name, [get, work] { return get(work.property); });
  }
}

/// The name of the library among the contenders.
inline constexpr const char* kOurs = "vgdatatypes";

/// Adds the library.
void addLibrary();
/// Puts another contender on the list that addContenders() runs. It returns true, so that a global
/// can be set to it.
bool addContender(const char* name, void (*add)());
/// Runs that list and asks for comparisons with the library.
void addContenders();

}  // namespace properties
