#include "Comparisons.h"

#include <cstdio>
#include <utility>
#include <vector>

namespace measuring {
namespace {

struct Row {
  Comparison comparison;
  std::size_t bytes;  ///< 0 where times are compared
  std::size_t itsBytes;
};

/// Bytes in a nanosecond are gigabytes in a second.
double figureOf(const Time& time, std::size_t bytes) {
  return bytes > 0 ? static_cast<double>(bytes) / time.median : time.median;
}

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
  const double figure = figureOf(ours, row.bytes);
  const double itsFigure = figureOf(other, row.itsBytes);
  const double ratio = figure / itsFigure;
  if (comparison.goal != Goal::kNone) {
    ++score.goals;
    score.met += comparison.goal.isMet(ratio) ? 1 : 0;
  }
  std::printf("%-46s %11.2f %5.0f%%  %-9s %11.2f %5.0f%% %7.2f  %s\n", comparison.work.c_str(),
              figure, 100 * ours.spread, comparison.against.c_str(), itsFigure, 100 * other.spread,
              ratio, comparison.goal.verdict(ratio, 13).c_str());
}

void printTable(const Table& table, const Times& times, Score& score) {
  std::printf("\n%-46s %6s %4s %6s  %-9s %6s %4s %6s %7s  %s\n", "work", "ours", table.unit,
              "spread", "against", "its", table.unit, "spread", "ratio", "goal");
  for (const Row& row : table.rows)
    printRow(row, times, score);
}

}  // namespace

void compareSpeeds(const Comparison& comparison, std::size_t bytes, std::size_t itsBytes) {
  speeds.rows.push_back({comparison, bytes, itsBytes});
}

void compareTimes(const Comparison& comparison) {
  nanoseconds.rows.push_back({comparison, 0, 0});
}

void printComparisons(const Times& times) {
  Score score;
  printTable(speeds, times, score);
  printTable(nanoseconds, times, score);
  std::printf("\n%d of %d goals are met.\n", score.met, score.goals);
}

}  // namespace measuring
