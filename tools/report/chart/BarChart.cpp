#include "chart/BarChart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "chart/AxisScale.h"
#include "chart/SvgCanvas.h"

namespace lakresvos::report {

namespace {

using Overflow = ShapedText::Overflow;

constexpr std::size_t kMaxBars = 5000;

// In pixels.
constexpr double kMargin = 8;
constexpr double kPlotWidth = 600;  // more when the bars need it
constexpr double kPlotHeight = 260;
constexpr double kMinCategoryWidth = 20;  // leaves room for slanting names side by side
constexpr double kMinBarWidth = 4;
constexpr double kMaxBarWidth = 56;
constexpr double kMinBarLength = 1;
constexpr double kBarShare = 0.8;  // the share of its width that they fill
constexpr double kMaxNameWidth = 150;
constexpr double kMaxTitleWidth = 400;
constexpr int kMaxNameLines = 3;
constexpr double kSlant = -0.785398163397448;  // half a right angle
constexpr double kSwatch = 12;

// Contrasts 4.5 to 1 with both white and black, which WCAG 2.1 (success criterion 1.4.3) asks of
// text.
constexpr Color kInk = {0x76 / 255.0, 0x76 / 255.0, 0x76 / 255.0};

// From the palette of Okabe and Ito (2008): neighbors differ in lightness, and all differ for each
// kind of color blindness.
constexpr std::array<Color, 6> kColors = {{
    {0x00 / 255.0, 0x72 / 255.0, 0xB2 / 255.0},
    {0xE6 / 255.0, 0x9F / 255.0, 0x00 / 255.0},
    {0x00 / 255.0, 0x9E / 255.0, 0x73 / 255.0},
    {0xCC / 255.0, 0x79 / 255.0, 0xA7 / 255.0},
    {0x56 / 255.0, 0xB4 / 255.0, 0xE9 / 255.0},
    {0xD5 / 255.0, 0x5E / 255.0, 0x00 / 255.0},
}};

AxisScale MakeScale(render::ChartData const& data) {
  double lowest = 0;
  double highest = 0;
  bool whole = true;
  for (render::ChartData::Series const& series : data.series) {
    for (double const value : series.values) {
      if (std::isfinite(value)) {
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
        whole = whole && value == std::floor(value);
      }
    }
  }
  return {lowest, highest, whole};
}

/// The colors come again in darker shades.
Color SeriesColor(std::size_t series) {
  Color const color = kColors[series % kColors.size()];
  auto const round = static_cast<int>(series / kColors.size());
  double const shade = std::pow(0.65, round);
  return {color.red * shade, color.green * shade, color.blue * shade};
}

class BarChart {
 public:
  explicit BarChart(render::ChartData const& data)
      : data_(data), scale_(MakeScale(data)), categoryWidth_(CategoryWidth()) {
    ShapeTicks();
    ShapeNames();
    ShapeLegend();
    ShapeTitles();
  }

  std::string Draw() {
    SvgCanvas canvas(Right() + kMargin, NamesBottom() + PaddedHeight(categoryTitle_));
    DrawLegend(canvas);
    DrawTitles(canvas);
    DrawAxis(canvas);
    DrawBars(canvas);
    DrawNames(canvas);
    double const zero = Height(scale_.Position(0));
    canvas.DrawLine(left_, zero, Right(), zero, 1, kInk);
    return canvas.Finish();
  }

 private:
  // Measures

  double CategoryWidth() const {
    auto const bars = static_cast<double>(data_.series.size());
    double const needed = std::max(kMinCategoryWidth, bars * kMinBarWidth / kBarShare);
    return std::max(needed, kPlotWidth / static_cast<double>(
                                             std::max<std::size_t>(data_.categories.size(), 1)));
  }

  double Right() const {
    auto const categories = static_cast<double>(std::max<std::size_t>(data_.categories.size(), 1));
    return left_ + categoryWidth_ * categories;
  }
  double Bottom() const { return top_ + kPlotHeight; }
  double NamesBottom() const { return Bottom() + kMargin + heightOfNames_ + kMargin; }
  static double PaddedHeight(std::optional<ShapedText> const& title) {
    return title ? title->Height() + kMargin : 0;
  }
  double Middle(std::size_t category) const {
    return left_ + categoryWidth_ * (static_cast<double>(category) + 0.5);
  }
  double Height(double position) const { return Bottom() - kPlotHeight * position; }

  void ShapeTicks() {
    double widest = 0;
    for (int tick = 0; tick < scale_.Ticks(); ++tick) {
      ticks_.emplace_back(scale_.TickLabel(tick), kMaxNameWidth, Overflow::Ellipsis);
      widest = std::max(widest, ticks_.back().Width());
    }
    left_ = kMargin + widest + kMargin;
  }

  void ShapeNames() {
    slanting_ = !WrapNames();
    if (slanting_) {
      names_.clear();
      for (std::string const& name : data_.categories) {
        names_.emplace_back(name, kMaxNameWidth, Overflow::Ellipsis);
      }
    }
    for (std::size_t i = 0; i < names_.size(); ++i) {
      double const width = names_[i].Width() * std::cos(kSlant);
      double const height = names_[i].Height();
      heightOfNames_ = std::max(heightOfNames_, slanting_ ? width + height : height);
      if (slanting_) {
        left_ += std::max(0.0, kMargin + width - Middle(i));
      }
    }
  }

  /// Whether every name has room below its bars.
  bool WrapNames() {
    double const room = categoryWidth_ - kMargin;
    for (std::string const& name : data_.categories) {
      names_.emplace_back(name, room, Overflow::Wrap);
      if (names_.back().Lines() > kMaxNameLines || names_.back().Width() > room) {
        return false;
      }
    }
    return true;
  }

  void ShapeLegend() {
    bool const named =
        std::any_of(data_.series.begin(), data_.series.end(),
                    [](render::ChartData::Series const& series) { return !series.name.empty(); });
    top_ = 2 * kMargin;
    if (!named) {
      return;
    }
    seriesTitle_ = Title(data_.seriesTitle);
    double x = left_ + (seriesTitle_ ? seriesTitle_->Width() + 2 * kMargin : 0);
    double y = kMargin;
    double height = 0;
    for (render::ChartData::Series const& series : data_.series) {
      ShapedText name(series.name, kMaxNameWidth, Overflow::Ellipsis);
      double const width = kSwatch + kMargin + name.Width();
      height = std::max(height, name.Height());
      if (x > left_ && x + width > Right()) {
        x = left_;
        y += height;
      }
      legend_.push_back({std::move(name), x, y});
      x += width + 2 * kMargin;
    }
    top_ = y + height + 2 * kMargin;
  }

  static std::optional<ShapedText> Title(std::string const& title) {
    return title.empty() ? std::nullopt
                         : std::optional<ShapedText>(std::in_place, title, kMaxTitleWidth,
                                                     Overflow::Ellipsis);
  }

  void ShapeTitles() {
    categoryTitle_ = Title(data_.categoryTitle);
    valueTitle_ = Title(data_.valueTitle);
    top_ += PaddedHeight(valueTitle_);
  }

  // Drawing

  void DrawTitles(SvgCanvas& canvas) const {
    if (seriesTitle_) {
      canvas.DrawText(*seriesTitle_, left_, kMargin, 0, kInk);
    }
    if (valueTitle_) {
      canvas.DrawText(*valueTitle_, kMargin, top_ - 2 * kMargin - valueTitle_->Height(), 0, kInk);
    }
    if (categoryTitle_) {
      // In the middle of what readers see before they scroll.
      double const middle = (left_ + std::min(Right(), left_ + kPlotWidth)) / 2;
      canvas.DrawText(*categoryTitle_, middle - categoryTitle_->Width() / 2, NamesBottom(), 0,
                      kInk);
    }
  }

  void DrawLegend(SvgCanvas& canvas) const {
    for (std::size_t i = 0; i < legend_.size(); ++i) {
      LegendEntry const& entry = legend_[i];
      canvas.DrawRectangle(entry.x, entry.y + (entry.name.Height() - kSwatch) / 2, kSwatch, kSwatch,
                           SeriesColor(i));
      canvas.DrawText(entry.name, entry.x + kSwatch + kMargin / 2, entry.y, 0, kInk);
    }
  }

  void DrawAxis(SvgCanvas& canvas) const {
    for (int tick = 0; tick < scale_.Ticks(); ++tick) {
      ShapedText const& label = ticks_[static_cast<std::size_t>(tick)];
      double const y = Height(scale_.TickPosition(tick));
      canvas.DrawLine(left_, y, Right(), y, 0.25, kInk);
      canvas.DrawText(label, left_ - kMargin - label.Width(), y - label.Height() / 2, 0, kInk);
    }
  }

  void DrawBars(SvgCanvas& canvas) const {
    auto const bars = static_cast<double>(data_.series.size());
    double const width = std::min(kMaxBarWidth, categoryWidth_ * kBarShare / bars);
    double const zero = Height(scale_.Position(0));
    for (std::size_t series = 0; series < data_.series.size(); ++series) {
      for (std::size_t category = 0; category < data_.categories.size(); ++category) {
        double const value = data_.series[series].values[category];
        if (!std::isfinite(value)) {
          continue;
        }
        double const length =
            std::max(kMinBarLength, std::abs(Height(scale_.Position(value)) - zero));
        double const x = Middle(category) + width * (static_cast<double>(series) - bars / 2);
        canvas.DrawRectangle(x, value < 0 ? zero : zero - length, width, length,
                             SeriesColor(series));
      }
    }
  }

  void DrawNames(SvgCanvas& canvas) const {
    double const y = Bottom() + kMargin;
    for (std::size_t i = 0; i < names_.size(); ++i) {
      double const width = names_[i].Width();
      if (slanting_) {
        double const along = width * std::cos(kSlant);
        canvas.DrawText(names_[i], Middle(i) - along - names_[i].Height() / 4, y + along, kSlant,
                        kInk);
      } else {
        canvas.DrawText(names_[i], Middle(i) - width / 2, y, 0, kInk);
      }
    }
  }

  struct LegendEntry {
    ShapedText name;
    double x;
    double y;
  };

  render::ChartData const& data_;
  AxisScale scale_;
  double categoryWidth_;
  std::vector<ShapedText> ticks_;
  std::vector<ShapedText> names_;
  std::vector<LegendEntry> legend_;
  std::optional<ShapedText> seriesTitle_;
  std::optional<ShapedText> valueTitle_;
  std::optional<ShapedText> categoryTitle_;
  bool slanting_ = false;
  double heightOfNames_ = 0;
  double left_ = 0;
  double top_ = 0;
};

}  // namespace

std::string DrawBarChart(render::ChartData const& data) {
  if (data.series.size() * data.categories.size() > kMaxBars) {
    return {};
  }
  return BarChart(data).Draw();
}

}  // namespace lakresvos::report
