#include "text/BoxDrawing.h"

#include <array>
#include <cstddef>

namespace lakresvos::render {

namespace {

// Indexed by the sum of up 1, down 2, left 4, right 8.
using Joints = std::array<std::string_view, 16>;

constexpr Joints kLight = {" ", "╵", "╷", "│", "╴", "┘", "┐", "┤",
                           "╶", "└", "┌", "├", "─", "┴", "┬", "┼"};
constexpr Joints kDouble = {" ", "╵", "╷", "│", "═", "╛", "╕", "╡",
                            "═", "╘", "╒", "╞", "═", "╧", "╤", "╪"};
constexpr Joints kAscii = {" ", "|", "|", "|", "-", "+", "+", "+",
                           "-", "+", "+", "+", "-", "+", "+", "+"};
constexpr Joints kAsciiDouble = {" ", "|", "|", "|", "=", "+", "+", "+",
                                 "=", "+", "+", "+", "=", "+", "+", "+"};

}  // namespace

std::string_view BoxDrawing::Vertical() const {
  return Joint({true, true, false, false}, false);
}

std::string_view BoxDrawing::Horizontal(bool strong) const {
  return Joint({false, false, true, true}, strong);
}

std::string_view BoxDrawing::Joint(Arms const& arms, bool strong) const {
  std::size_t const index =
      (arms.up ? 1 : 0) + (arms.down ? 2 : 0) + (arms.left ? 4 : 0) + (arms.right ? 8 : 0);
  Joints const& joints = ascii_ ? (strong ? kAsciiDouble : kAscii) : (strong ? kDouble : kLight);
  return joints[index];
}

}  // namespace lakresvos::render
