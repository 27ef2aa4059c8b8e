#ifndef CELLS_BACKENDSETTINGS_H
#define CELLS_BACKENDSETTINGS_H

#include <climits>
#include <string>

#include <cells/Export.h>

/// The settings of the back end that fills a table.
///
/// Thread safety: reading from several threads is safe while nobody changes the object.
class CELLS_EXPORT BackendSettings {
 public:
  /// The largest number of cells that a table may hold; INT_MAX, the default, means no limit.
  int getMaxCells() const { return maxCells_; }
  void setMaxCells(int cells) { maxCells_ = cells; }

  /// Whether the texts of a table share storage through a tracker; true by default.
  bool getFastTables() const { return fastTables_; }
  void setFastTables(bool on) { fastTables_ = on; }

  /// The locale that the back end works in; empty by default.
  std::string const& getLocale() const { return locale_; }
  void setLocale(std::string const& locale) { locale_ = locale; }

  /// Whether the back end works in Unicode; true by default.
  bool getUnicode() const { return unicode_; }
  void setUnicode(bool on) { unicode_ = on; }

 private:
  std::string locale_;
  int maxCells_ = INT_MAX;
  bool fastTables_ = true;
  bool unicode_ = true;
};

#endif
