#ifndef CELLS_ICUTRACKER_H
#define CELLS_ICUTRACKER_H

#include <cstddef>
#include <string>
#include <utility>

#include <cells/Export.h>

class OmTextPool;

/// Keeps each distinct text of the cells that are bound to it once.
///
/// A cell is bound with OmCellText::UseTracker(). A bound cell may outlive its tracker: it stays
/// readable, and its text goes when the last cell that shares it goes.
///
/// Thread safety: none; one thread at a time uses a tracker and the cells that are or were bound to
/// it.
class CELLS_EXPORT icuTracker {
 public:
  /// Makes a tracker without texts.
  /// @param settings whether the texts are Unicode, and the locale that they belong to.
  /// @throws std::bad_alloc.
  explicit icuTracker(std::pair<bool, std::string> settings);

  icuTracker(icuTracker const&) = delete;
  icuTracker& operator=(icuTracker const&) = delete;

  /// Leaves the cells that are still bound with a null OmCellText::GetTracker().
  ~icuTracker();

  /// Whether the texts are Unicode, as given to the constructor.
  bool getUnicode() const { return settings_.first; }

  /// The locale that the texts belong to, as given to the constructor. Valid as long as the
  /// tracker.
  std::string const& getLocale() const { return settings_.second; }

  /// The number of distinct texts that bound cells share. Constant time.
  std::size_t TextCount() const;

 private:
  friend class OmCellBytes;

  std::pair<bool, std::string> settings_;
  OmTextPool* pool_;  // outlives the tracker while cells hold texts of it
};

#endif
