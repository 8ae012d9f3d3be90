#pragma once

#include <locale>
#include <string>

namespace test {

/// Gives the global locale a facet for as long as this lives.
class GlobalLocale {
 public:
  template <class Facet>
  explicit GlobalLocale(Facet* facet)
      : old_(std::locale::global(std::locale(std::locale(), facet))) {}
  ~GlobalLocale() { std::locale::global(old_); }
  GlobalLocale(const GlobalLocale&) = delete;
  GlobalLocale& operator=(const GlobalLocale&) = delete;

 private:
  std::locale old_;
};

/// Digits in groups, with ',' between them.
struct Grouping : std::numpunct<char> {
  explicit Grouping(std::string ownGroups) : groups(std::move(ownGroups)) {}
  std::string do_grouping() const override { return groups; }
  char do_thousands_sep() const override { return ','; }
  std::string groups;
};

/// "_" and "q" are the only white space, and "!" is the upper case of "o".
struct OddCharacters : std::ctype<char> {
  OddCharacters() : ctype(masks) {}
  char do_tolower(char c) const override { return c == '!' ? 'o' : ctype::do_tolower(c); }
  const char* do_tolower(char* low, const char* high) const override {
    for (; low != high; ++low)
      *low = do_tolower(*low);
    return high;
  }
  static inline mask masks[256] = {};
  static inline const bool areSet = (masks[int{'_'}] = masks[int{'q'}] = space) != 0;
};

}  // namespace test
