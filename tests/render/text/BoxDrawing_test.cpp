#include "text/BoxDrawing.h"

#include <gtest/gtest.h>
#include <string>

#include "unicode/TextWidth.h"

using lakresvos::render::BoxDrawing;

namespace {

/// All sixteen joints, by up, down, left and right as the digits of a binary number.
std::string AllJoints(bool ascii, bool strong) {
  BoxDrawing const box(ascii);
  std::string joints;
  for (int i = 0; i < 16; ++i) {
    joints += box.Joint({(i & 8) != 0, (i & 4) != 0, (i & 2) != 0, (i & 1) != 0}, strong);
  }
  return joints;
}

}  // namespace

TEST(BoxDrawing, JointHasExactlyTheArmsAskedFor) {
  EXPECT_EQ(AllJoints(false, false), " ╶╴─╷┌┐┬╵└┘┴│├┤┼");
}

TEST(BoxDrawing, StrongJointHasDoubleHorizontalArms) {
  EXPECT_EQ(AllJoints(false, true), " ═══╷╒╕╤╵╘╛╧│╞╡╪");
}

TEST(BoxDrawing, AsciiJointIsAPlusWhereLinesCross) {
  EXPECT_EQ(AllJoints(true, false), " ---|+++|+++|+++");
  EXPECT_EQ(AllJoints(true, true), " ===|+++|+++|+++");
}

TEST(BoxDrawing, StraightLinesAreJointsOfTwoArms) {
  EXPECT_EQ(BoxDrawing(false).Vertical(), "│");
  EXPECT_EQ(BoxDrawing(false).Horizontal(false), "─");
  EXPECT_EQ(BoxDrawing(false).Horizontal(true), "═");
  EXPECT_EQ(BoxDrawing(true).Vertical(), "|");
  EXPECT_EQ(BoxDrawing(true).Horizontal(false), "-");
  EXPECT_EQ(BoxDrawing(true).Horizontal(true), "=");
}

TEST(BoxDrawing, EveryCharacterIsOneColumnWide) {
  for (bool const ascii : {false, true}) {
    for (bool const strong : {false, true}) {
      EXPECT_EQ(lakresvos::render::TextWidth(AllJoints(ascii, strong)), 16);
    }
  }
}
