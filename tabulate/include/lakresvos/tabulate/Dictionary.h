#ifndef LAKRESVOS_TABULATE_DICTIONARY_H
#define LAKRESVOS_TABULATE_DICTIONARY_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <lakresvos/tabulate/IdTable.h>

namespace lakresvos::tabulate {

/// The distinct texts among many, numbered in the order in which they first appear.
class Dictionary {
 public:
  /// The number of the text, which is added when it is new.
  std::uint32_t Intern(std::string_view text) {
    std::uint32_t const known = Find(text);
    if (known != IdTable::kNone) {
      return known;
    }
    text_.append(text);
    ends_.push_back(text_.size());
    ids_.Add(Hash(text));
    return static_cast<std::uint32_t>(ends_.size() - 1);
  }

  /// The number of the text, or IdTable::kNone.
  std::uint32_t Find(std::string_view text) const {
    return ids_.Find(Hash(text), [&](std::uint32_t id) { return (*this)[id] == text; });
  }

  /// How many distinct texts there are.
  std::size_t size() const { return ends_.size(); }

  /// The text with this number, below size(). Valid until the next Intern().
  std::string_view operator[](std::uint32_t id) const {
    std::size_t const start = id == 0 ? 0 : ends_[id - 1];
    return std::string_view(text_).substr(start, ends_[id] - start);
  }

 private:
  static std::size_t Hash(std::string_view text) { return std::hash<std::string_view>()(text); }

  std::string text_;               // all texts, one behind the other
  std::vector<std::size_t> ends_;  // where each text ends
  IdTable ids_;
};

}  // namespace lakresvos::tabulate

#endif
