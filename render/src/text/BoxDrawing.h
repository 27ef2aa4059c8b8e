#ifndef LAKRESVOS_RENDER_TEXT_BOXDRAWING_H
#define LAKRESVOS_RENDER_TEXT_BOXDRAWING_H

#include <string_view>

namespace lakresvos::render {

/// The four directions in which a line may leave a crossing.
struct Arms {
  bool up;
  bool down;
  bool left;
  bool right;
};

/// The characters that frames are drawn with; every one is a column wide.
class BoxDrawing {
 public:
  explicit BoxDrawing(bool ascii) : ascii_(ascii) {}

  std::string_view Vertical() const;

  /// @param strong the line between the column headings and the body.
  std::string_view Horizontal(bool strong) const;

  /// The character where lines meet, a space when none do.
  std::string_view Joint(Arms const& arms, bool strong) const;

 private:
  bool ascii_;
};

}  // namespace lakresvos::render

#endif
