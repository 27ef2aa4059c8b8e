#ifndef LAKRESVOS_TABULATE_DICTIONARY_H
#define LAKRESVOS_TABULATE_DICTIONARY_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <lakresvos/Export.h>
#include <lakresvos/tabulate/Export.h>

namespace lakresvos::tabulate {

class ColumnWriter;
class IdTable;

/// The distinct texts among many, numbered 0, 1, 2, ... in the order in which they first appear.
///
/// Can be moved but not copied. One that was moved from can only be assigned to and destroyed.
///
/// Thread safety: const operations may run in several threads at once; others need exclusive
/// access.
class LAKRESVOS_TABULATE_EXPORT Dictionary {
 public:
  /// What Find() returns when there is nothing to find, and the one number that is never given.
  static constexpr std::uint32_t kNone = 0xFFFFFFFF;

  /// Makes a dictionary without texts.
  Dictionary();
  /// Takes over the texts of another one, in constant time.
  Dictionary(Dictionary&& other) noexcept;
  /// Drops its texts and takes over those of another one.
  Dictionary& operator=(Dictionary&& other) noexcept;
  ~Dictionary();

  /// The number of the text, which is added when it is new. Takes time linear in the length of the
  /// text, amortized.
  /// @throws std::length_error for the text after the 4,294,967,295th, and std::bad_alloc; nothing
  ///         is added then.
  std::uint32_t Intern(std::string_view text);

  /// The number of the text, or kNone. Takes time linear in the length of the text.
  std::uint32_t Find(std::string_view text) const;

  /// The number of distinct texts.
  std::size_t size() const { return ends_.size(); }

  /// The text with this number. Requires: the number is below size().
  /// @return a view that is valid until the next Intern() and as long as the dictionary.
  std::string_view operator[](std::uint32_t id) const {
    std::size_t const start = id == 0 ? 0 : ends_[id - 1];
    return std::string_view(text_).substr(start, ends_[id] - start);
  }

 private:
  friend class ColumnWriter;

  LAKRESVOS_HIDDEN static std::uint64_t Hash(std::string_view text);
  LAKRESVOS_HIDDEN void Prefetch(std::uint64_t hash) const;
  LAKRESVOS_HIDDEN std::uint32_t InternHashed(std::string_view text, std::uint64_t hash);
  LAKRESVOS_HIDDEN std::uint32_t FindHashed(std::string_view text, std::uint64_t hash) const;

  std::string text_;               // all texts, one after the other
  std::vector<std::size_t> ends_;  // where each text ends
  std::unique_ptr<IdTable> ids_;
};

}  // namespace lakresvos::tabulate

#endif
