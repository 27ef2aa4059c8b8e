#ifndef LAKRESVOS_TABULATE_CSV_CSVPARSER_H
#define LAKRESVOS_TABULATE_CSV_CSVPARSER_H

#include <cstddef>
#include <csv.h>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "csv/CsvSink.h"

namespace lakresvos::tabulate {

/// Splits bytes into records and keeps count of lines. Records without a quote are taken as they
/// stand; the others go through a parser.
class CsvParser {
 public:
  /// @param file      names the source in messages; has to outlive the parser, as the sink has.
  /// @param separator between fields; a byte of ASCII, neither a quote nor a line end.
  CsvParser(std::string const& file, CsvSink& sink, char separator);
  CsvParser(CsvParser const&) = delete;
  CsvParser& operator=(CsvParser const&) = delete;
  ~CsvParser() { csv_free(&parser_); }

  /// Takes as many of the next bytes as can be told to belong to records.
  /// @return how many; the others have to come again with more bytes after them.
  std::size_t Parse(std::string_view bytes);

  /// Takes the last bytes, which Parse() did not.
  void Finish(std::string_view bytes);

  /// The line on which the next record starts, from 1. Requires: the bytes so far ended with a
  /// record.
  std::size_t Line() const { return record_.line_; }

  /// The next bytes start on this line, with a record. Requires: as above.
  void GoOnAt(std::size_t line);

 private:
  char const* FindSpecial(char const* at, char const* end) const;
  char const* ReadPlainRecord(char const* start, char const* end);
  char const* ParseLine(char const* start, char const* end);
  void ParsePart(std::string_view bytes);

  template <class Action>
  void Guarded(Action action) noexcept;
  static void OnField(void* text, std::size_t size, void* self);
  static void OnRowEnd(int end, void* self);
  void Rethrow() const;

  void ReadParsedFields();
  void EndRow(int end, bool ascii);
  void CheckUtf8() const;
  std::size_t CountLinesInRecord() const;
  [[noreturn]] void FailUnlessParsed(char const* broken) const;
  [[noreturn]] void Fail(std::size_t line, std::size_t column, std::string const& what) const;

  std::string const& file_;
  CsvSink& sink_;
  char separator_;
  csv_parser parser_;
  bool parsing_ = false;           // whether the parser is to take the next bytes
  bool ascii_ = false;             // whether all bytes at hand are ASCII
  std::string text_;               // the fields that the parser has finished, one after the other
  std::vector<std::size_t> ends_;  // where each of them ends
  CsvRecord record_;
  bool afterCarriageReturn_ = false;
  std::exception_ptr thrown_;
};

}  // namespace lakresvos::tabulate

#endif
