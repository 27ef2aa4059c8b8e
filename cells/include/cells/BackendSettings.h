#ifndef CELLS_BACKENDSETTINGS_H
#define CELLS_BACKENDSETTINGS_H

#include <climits>
#include <string>

#include <cells/Export.h>

/// The settings of the back end that fills a table. A plain value: it is copied as a whole, and
/// changing it changes no table that was given a copy before.
///
/// Thread safety: for reading; several threads may read an object that none changes.
class CELLS_EXPORT BackendSettings {
 public:
  /// The limit on the writes to a table's cells; INT_MAX, the default, means none.
  int getMaxCells() const { return maxCells_; }

  /// Sets the limit. A write succeeds while at most `cells` writes were tried before it, so that
  /// one more than the limit gets through. Writes are counted, not cells: overwriting and clearing
  /// a cell count like filling one. A negative limit refuses every write.
  void setMaxCells(int cells) { maxCells_ = cells; }

  /// Whether the texts of a table share storage through a tracker; true by default.
  bool getFastTables() const { return fastTables_; }

  /// Sets whether texts share storage, which saves memory where they repeat.
  void setFastTables(bool on) { fastTables_ = on; }

  /// The name of the locale that the back end works in, as its trackers get it; empty by default.
  /// Valid until the object is changed or destroyed.
  std::string const& getLocale() const { return locale_; }

  /// Sets the name of the locale; any text is taken.
  /// @throws std::bad_alloc; nothing has changed then.
  void setLocale(std::string const& locale) { locale_ = locale; }

  /// Whether the back end works in Unicode; true by default.
  bool getUnicode() const { return unicode_; }

  /// Sets whether the back end works in Unicode. With false, texts that are UTF-8 all the same
  /// (OmStringCellUTF8) get a tracker of their own.
  void setUnicode(bool on) { unicode_ = on; }

 private:
  std::string locale_;
  int maxCells_ = INT_MAX;
  bool fastTables_ = true;
  bool unicode_ = true;
};

#endif
