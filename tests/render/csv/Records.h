#ifndef TESTS_RENDER_CSV_RECORDS_H
#define TESTS_RENDER_CSV_RECORDS_H

#include <csv.h>
#include <stdexcept>
#include <string>
#include <vector>

using CsvRecords = std::vector<std::vector<std::string>>;

/// The records of a CSV text, read by libcsv in its strict mode. Empty lines are records without
/// fields.
/// @throws std::runtime_error for a text that is not CSV.
inline CsvRecords ReadCsvRecords(std::string const& text) {
  struct Reader {
    Reader() { csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI | CSV_REPALL_NL); }
    ~Reader() { csv_free(&parser); }
    csv_parser parser{};
    CsvRecords records;
    std::vector<std::string> record;
  } reader;
  csv_set_space_func(&reader.parser, [](unsigned char) { return 0; });
  auto const onField = [](void* field, std::size_t size, void* self) {
    static_cast<Reader*>(self)->record.emplace_back(static_cast<char const*>(field), size);
  };
  // CSV_REPALL_NL reports the two characters of a line end one by one.
  auto const onRow = [](int end, void* self) {
    auto& to = *static_cast<Reader*>(self);
    if (end != '\n') {
      to.records.push_back(std::move(to.record));
      to.record.clear();
    }
  };
  std::size_t const parsed =
      csv_parse(&reader.parser, text.data(), text.size(), onField, onRow, &reader);
  if (parsed != text.size() || csv_fini(&reader.parser, onField, onRow, &reader) != 0) {
    throw std::runtime_error(csv_strerror(csv_error(&reader.parser)));
  }
  if (!reader.record.empty()) {
    throw std::runtime_error("the last record has no line end, or one is no CR LF");
  }
  return std::move(reader.records);
}

#endif
