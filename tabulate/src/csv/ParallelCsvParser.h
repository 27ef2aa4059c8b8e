#ifndef LAKRESVOS_TABULATE_CSV_PARALLELCSVPARSER_H
#define LAKRESVOS_TABULATE_CSV_PARALLELCSVPARSER_H

#include <cstddef>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "csv/CsvParser.h"
#include "csv/CsvReader.h"

namespace lakresvos::tabulate {

/// A parser that has several threads parse different parts of the same bytes. What the sink gets
/// and what is thrown are those of one CsvParser.
///
/// The bytes are cut after records. That takes no more than counting quotes: all of them belong to
/// quoted fields, for any other one is an error, and then what comes after it does not matter.
class ParallelCsvParser {
 public:
  /// @param file      names the source in messages; has to outlive the parser, as the sink has.
  /// @param separator between fields, whatever `how` says.
  ParallelCsvParser(std::string const& file, CsvSink& sink, CsvReading const& how, char separator);

  /// How many bytes are worth being parsed at once.
  std::size_t GoodSize() const;

  /// Takes as many of the next bytes as can be told to belong to records.
  /// @return how many; the others have to come again with more bytes after them.
  std::size_t Parse(std::string_view bytes);

  /// Takes the last bytes, which Parse() did not.
  void Finish(std::string_view bytes) { parser_.Finish(bytes); }

 private:
  /// What a thread other than the calling one has.
  struct Part {
    Part(std::string const& file, std::unique_ptr<CsvPartSink> partSink, char separator)
        : sink(std::move(partSink)), parser(file, *sink, separator) {}

    /// Parses bytes whose line is not known yet.
    void Parse(std::string_view bytes);

    std::unique_ptr<CsvPartSink> sink;
    CsvParser parser;
    bool broken = false;  // whether there was an error in the bytes
  };

  std::size_t ParseAlone(std::string_view bytes);
  bool MakeParts(std::size_t count);
  void ParseTogether(std::string_view bytes, std::vector<std::size_t> const& cuts);
  void TakeOver(Part& part, std::string_view bytes);

  std::string const& file_;
  CsvSink& sink_;
  CsvReading how_;
  char separator_;
  CsvParser parser_;        // of the calling thread, which has the first part of the bytes
  std::deque<Part> parts_;  // of the other ones
  bool quoted_ = false;     // whether the next bytes start inside a quoted field
};

}  // namespace lakresvos::tabulate

#endif
