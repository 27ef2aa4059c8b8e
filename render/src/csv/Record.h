#ifndef LAKRESVOS_RENDER_CSV_RECORD_H
#define LAKRESVOS_RENDER_CSV_RECORD_H

#include <cstddef>
#include <string>
#include <string_view>

namespace lakresvos::render {

/// Appends records of comma-separated values, as RFC 4180 has them, to a string.
///
/// A field is in quotes when it holds a comma, a quote or a line end, or starts or ends with a
/// space; so is the only field of a record when it is empty, as its line would be an empty one.
class CsvRecord {
 public:
  /// @param safe puts an apostrophe before what spreadsheets would run as a formula, at the start of
  /// a text and wherever in it a spreadsheet may see a field start.
  CsvRecord(std::string& out, bool safe) : out_(out), safe_(safe) {}

  /// Appends to another string what `like` would. Requires: no record has been started there.
  CsvRecord(std::string& out, CsvRecord const& like)
      : out_(out), safe_(like.safe_), lead_(like.lead_) {}

  /// What a field with this text shows: the text cleaned and, where it has to be, made safe. Applying
  /// it twice changes nothing.
  std::string CleanField(std::string_view text) const;

  /// A field with this text, as it is written.
  std::string EncodeField(std::string_view text) const;

  /// Has every record from the next one start with a field of this text, which has to be shown
  /// already.
  void SetLead(std::string const& shown) { lead_ = EncodeField(shown) + ','; }

  /// Adds one or more fields, commas between, as they are written.
  void Add(std::string_view encoded);

  /// Adds a field with any text.
  void AddText(std::string_view text) { Add(EncodeField(text)); }

  /// Adds a field that shows a number.
  void AddNumber(std::string_view text) { Add(text); }

  /// Adds a field without content.
  void AddEmpty() { Add({}); }

  /// Ends the record.
  void End();

 private:
  std::string& out_;
  bool safe_;
  std::string lead_;        // what each record starts with, as it is written
  std::size_t fields_ = 0;  // how often some were added
  bool empty_ = true;       // whether all fields so far are empty
};

}  // namespace lakresvos::render

#endif
