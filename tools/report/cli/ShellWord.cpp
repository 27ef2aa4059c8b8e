#include "cli/ShellWord.h"

#include <algorithm>

namespace lakresvos::report {

std::string QuoteShellWord(std::string_view text) {
  auto const safe = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("_-./,:=%@+").find(c) != std::string_view::npos;
  };
  if (!text.empty() && std::all_of(text.begin(), text.end(), safe)) {
    return std::string(text);
  }
  std::string word = "'";
  for (char const c : text) {
    if (c == '\'') {
      word += "'\\''";
    } else {
      word += c;
    }
  }
  return word + "'";
}

}  // namespace lakresvos::report
