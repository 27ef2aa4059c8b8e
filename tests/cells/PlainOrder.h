#ifndef TESTS_CELLS_PLAINORDER_H
#define TESTS_CELLS_PLAINORDER_H

#include <cmath>
#include <cstddef>
#include <string>

// How texts and numbers compare, in the plainest way.

inline int Sign(int value) {
  return (value > 0) - (value < 0);
}

/// Simple case folding for texts that have no other capital letters than "A" and "\u00C9".
inline std::string Fold(std::string text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == 'A') {
      text[i] = 'a';
    } else if (text[i] == '\x89' && i != 0 && text[i - 1] == '\xC3') {
      text[i] = '\xA9';
    }
  }
  return text;
}

inline int PlainOrder(std::string const& a, std::string const& b, bool ignoreCase) {
  return Sign(ignoreCase ? Fold(a).compare(Fold(b)) : a.compare(b));
}

inline int PlainOrder(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) {
    return static_cast<int>(std::isnan(b)) - static_cast<int>(std::isnan(a));
  }
  return static_cast<int>(a > b) - static_cast<int>(a < b);
}

/// The first of two comparisons that finds a difference.
inline int Either(int first, int second) {
  return first != 0 ? first : second;
}

#endif
