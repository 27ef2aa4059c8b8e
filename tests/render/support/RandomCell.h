#ifndef TESTS_RENDER_SUPPORT_RANDOMCELL_H
#define TESTS_RENDER_SUPPORT_RANDOMCELL_H

#include <memory>
#include <random>
#include <string>

#include <cells/OmCellText.h>

/// Random texts and cells, for documents with everything in them.
class RandomCells {
 public:
  explicit RandomCells(unsigned int seed) : random_(seed) {}

  /// An even number from 0 to `below` - 1.
  int Draw(int below) { return static_cast<int>(random_() % static_cast<unsigned int>(below)); }
  bool OneIn(int chances) { return Draw(chances) == 0; }

  /// Any integer, the extremes of an int among them.
  int Integer();

  /// Any number: fractions, integers, zeros of both signs, the largest and smallest, infinities and
  /// NaN.
  double Number();

  /// Ordinary, empty, marked-up, broken and binary texts.
  std::string Text();

  /// Up to some hundred bytes of any value.
  std::string Bytes();

  /// A cell of any kind, with any of its settings, footnotes, style and context; a composite with
  /// parts of any kind, below each other and in each other.
  std::unique_ptr<OmCellText> Cell();

 private:
  std::unique_ptr<OmCellText> Value();
  std::unique_ptr<OmCellText> Composite();

  std::mt19937 random_;
  int nesting_ = 0;
};

#endif
