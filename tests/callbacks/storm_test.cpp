// Random programs of callbacks, each step held against a model of the executor.

#include "callbacks/Model.h"
#include "callbacks/Product.h"

#include <cstdlib>
#include <random>

namespace {

using namespace test;

std::uint64_t numberIn(const char* variable, std::uint64_t otherwise) {
  const char* const text = std::getenv(variable);
  return text ? std::strtoull(text, nullptr, 10) : otherwise;
}

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
  const std::uint64_t seed = numberIn("VGDT_STORM_SEED", 1);
  const std::uint64_t firings = numberIn("VGDT_STORM_FIRINGS", 1'000'000);
  constexpr int kSteps = 40;
  std::vector<std::pair<std::string_view, int>> seen;
  for (const char* words :
       {"[1d[2d[", ";01d[];0", " bit", " mode", " references", " mark", " vortil.ui.Figure.",
        " DestroyedObject", "< Error", "<id Error", "< Interrupt", "!Interrupt", "!Debug",
        "!Thrown", ";4!Interrupt", ";0;0;0"})
    seen.emplace_back(words, 0);
  for (std::uint64_t done = 0, storm = 0; done < firings; ++storm) {
    std::mt19937_64 random(seed * 1'000'003 + storm);
    std::vector<std::string> codes(6);
    for (std::string& code : codes)
      code = randomActs(random, 5);
    Product product(codes);
    Model model(codes);
    for (int i = 0; i < kSteps; ++i) {
      const std::string acts = randomActs(random, 3);
      const std::string told = product.step(acts);
      ASSERT_EQ(told, model.step(acts)) << "storm " << storm << " of seed " << seed << ", " << acts;
      for (auto& [words, times] : seen)
        times += told.find(words) != std::string::npos;
    }
    done += product.firings();
  }
  for (const auto& [words, times] : seen)
    EXPECT_GT(times, 0) << words;
}

}  // namespace
