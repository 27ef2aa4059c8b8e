#ifndef LAKRESVOS_REPORT_CHART_AXISSCALE_H
#define LAKRESVOS_REPORT_CHART_AXISSCALE_H

#include <string>

namespace lakresvos::report {

/// The axis of a chart: ticks at round numbers that enclose zero and all values, with the smallest
/// step that needs no more than eight of them. At least three quarters of the axis of positive
/// numbers are in use, unless whole numbers below 4 leave less to choose.
///
/// The steps are 1, 2 and 5 times a power of ten, as in P. S. Heckbert, "Nice Numbers for Graph
/// Labels", Graphics Gems (1990).
class AxisScale {
 public:
  /// @param whole whether the values are whole numbers, which nothing between two ticks could be.
  /// Requires: both are finite.
  AxisScale(double lowest, double highest, bool whole);

  /// The number of ticks, at least 2.
  int Ticks() const { return last_ - first_ + 1; }

  /// Where a tick, from 0, or a value is: from 0 at the lowest tick to 1 at the highest one.
  double TickPosition(int tick) const;
  double Position(double value) const;

  /// The number at a tick, with as many decimals as the ticks need.
  std::string TickLabel(int tick) const;

 private:
  // A tick is a multiple of one, two or five at a power of ten: whole numbers give exact labels.
  int factor_ = 1;
  int exponent_ = 0;
  double step_ = 1;
  int first_ = 0;
  int last_ = 1;
};

}  // namespace lakresvos::report

#endif
