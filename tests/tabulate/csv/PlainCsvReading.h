#ifndef TESTS_TABULATE_CSV_PLAINCSVREADING_H
#define TESTS_TABULATE_CSV_PLAINCSVREADING_H

#include <cstddef>
#include <rapidcheck.h>
#include <string>
#include <vector>

#include "tabulate/GatheredCsv.h"
#include "text/Utf8.h"

/// Reading CSV from byte to byte, to compare the library's reader with.
namespace csv_model {

/// What a reader finds that goes from byte to byte, as a file with these bytes is described.
struct PlainReading {
  explicit PlainReading(std::string const& bytes) {
    bool const marked = bytes.starts_with("\xEF\xBB\xBF");
    for (std::size_t i = marked ? 3 : 0; i < bytes.size() && IsFine(); ++i) {
      Take(bytes[i], i > 0 && bytes[i - 1] == '\r');
    }
    if (IsFine()) {
      if (quoted && !closed) {
        error = Place() + "unclosed quoted field";
      } else if (!fields.empty() || quoted || !field.empty()) {
        EndRecord();
      }
    }
  }

  void Take(char c, bool afterCarriageReturn) {
    bool const lineEnd = c == '\n' || c == '\r';
    bool const pair = c == '\n' && afterCarriageReturn;
    if (quoted && !closed) {
      linesInField += lineEnd && !pair ? 1 : 0;
      closed = c == '"';
      field += closed ? "" : std::string(1, c);
    } else if (closed && c == '"') {
      closed = false;
      field += c;
    } else if (c == ',') {
      EndField();
    } else if (lineEnd) {
      bool const blank = fields.empty() && !quoted && field.empty();
      if (!blank) {
        EndRecord();
      }
      line += blank && pair ? 0 : 1;
    } else if (quoted) {
      error = Place() + "text after the closing quote";
    } else if (c != '"') {
      field += c;
    } else if (field.empty()) {
      quoted = true;
    } else {
      error = Place() + "quote in an unquoted field";
    }
  }

  void EndField() {
    fields.push_back(field);
    linesInFields.push_back(linesInField);
    field.clear();
    linesInField = 0;
    quoted = closed = false;
  }

  void EndRecord() {
    EndField();
    std::size_t at = line;
    for (std::size_t i = 0; i < fields.size() && IsFine(); ++i) {
      if (!lakresvos::tabulate::IsUtf8(fields[i])) {
        error = ":" + std::to_string(at) + ": column " + std::to_string(i + 1) + ": invalid UTF-8";
      }
      at += linesInFields[i];
    }
    if (IsFine()) {
      records.push_back(fields);
      lines.push_back(line);
    }
    line = at;
    fields.clear();
    linesInFields.clear();
  }

  /// Where the field starts that is at fault.
  std::string Place() const {
    std::size_t at = line;
    for (std::size_t const more : linesInFields) {
      at += more;
    }
    return ":" + std::to_string(at) + ": column " + std::to_string(fields.size() + 1) + ": ";
  }

  bool IsFine() const { return error == "none"; }

  GatheredCsv::Records records;
  std::vector<std::size_t> lines;
  std::string error = "none";

  std::size_t line = 1;
  std::vector<std::string> fields;
  std::vector<std::size_t> linesInFields;
  std::string field;
  std::size_t linesInField = 0;
  bool quoted = false;  // whether the field started with a quote
  bool closed = false;  // and whether a later quote may have been its end
};

/// Reads bytes both ways and compares. Asserts as properties do.
inline void CheckReading(std::string const& bytes,
                         lakresvos::tabulate::CsvReading const& how = {}) {
  PlainReading const plain(bytes);
  CsvResult const read(bytes, how);
  RC_ASSERT(read.error == plain.error);
  RC_ASSERT(read.gathered.records == plain.records);
  RC_ASSERT(read.gathered.lines == plain.lines);
}

}  // namespace csv_model

#endif
