#include "Comparisons.h"

#include <cstdio>
#include <utility>
#include <vector>

namespace arrays {
namespace {

using measuring::Goal;
using measuring::Time;
using measuring::Times;

struct Row {
  Comparison comparison;
  std::size_t bytes;

  /// Bytes in a nanosecond are gigabytes in a second.
  double figureOf(const Time& time) const {
    return bytes > 0 ? static_cast<double>(bytes) / time.median : time.median;
  }
};

struct Table {
  const char* unit;
  std::vector<Row> rows;
};

Table speeds{"GB/s", {}};
Table nanoseconds{"ns", {}};

/// How many goals there are, and how many are met.
struct Score {
  int goals = 0;
  int met = 0;
};

void printRow(const Row& row, const Times& times, Score& score) {
  const Comparison& comparison = row.comparison;
  const Time ours = times.of(comparison.ours);
  const Time other = times.of(comparison.other);
  if (ours.median == 0 || other.median == 0) return;
  const double figure = row.figureOf(ours);
  const double itsFigure = row.figureOf(other);
  const double ratio = figure / itsFigure;
  if (comparison.goal != Goal::kNone) {
    ++score.goals;
    score.met += comparison.goal.isMet(ratio) ? 1 : 0;
  }
  std::printf("%-46s %11.1f %5.0f%%  %-7s %11.1f %5.0f%% %7.2f  %s\n", comparison.work.c_str(),
              figure, 100 * ours.spread, comparison.against.c_str(), itsFigure, 100 * other.spread,
              ratio, comparison.goal.verdict(ratio, 13).c_str());
}

void printTable(const Table& table, const Times& times, Score& score) {
  std::printf("\n%-46s %6s %4s %6s  %-7s %6s %4s %6s %7s  %s\n", "work", "ours", table.unit,
              "spread", "against", "its", table.unit, "spread", "ratio", "goal");
  for (const Row& row : table.rows)
    printRow(row, times, score);
}

}  // namespace

void compareSpeeds(const Comparison& comparison, std::size_t bytes) {
  speeds.rows.push_back({comparison, bytes});
}

void compareTimes(const Comparison& comparison) {
  nanoseconds.rows.push_back({comparison, 0});
}

void printComparisons(const Times& times) {
  Score score;
  printTable(speeds, times, score);
  printTable(nanoseconds, times, score);
  std::printf("\n%d of %d goals are met.\n", score.met, score.goals);
}

}  // namespace arrays
