#ifndef TESTS_TABULATE_GATHEREDCSV_H
#define TESTS_TABULATE_GATHEREDCSV_H

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "csv/CsvReader.h"
#include "support/ErrorOf.h"

/// Keeps all records of CSV, in one thread or several.
class GatheredCsv : public lakresvos::tabulate::CsvSink {
 public:
  using Records = std::vector<std::vector<std::string>>;

  void Add(lakresvos::tabulate::CsvRecord const& record) override {
    records.emplace_back();
    for (std::size_t i = 0; i < record.size(); ++i) {
      records.back().emplace_back(record[i]);
    }
    lines.push_back(record.Line());
  }

  std::unique_ptr<lakresvos::tabulate::CsvPartSink> MakePart() override;

  Records records;
  std::vector<std::size_t> lines;
  std::size_t parts = 0;  // how many were made

 private:
  class Part;
};

class GatheredCsv::Part : public lakresvos::tabulate::CsvPartSink {
 public:
  explicit Part(GatheredCsv& whole) : whole_(whole) {}

  void Add(lakresvos::tabulate::CsvRecord const& record) override { own_.Add(record); }

  void HandOver(std::size_t linesBefore) override {
    whole_.records.insert(whole_.records.end(), own_.records.begin(), own_.records.end());
    for (std::size_t const line : own_.lines) {
      whole_.lines.push_back(linesBefore + line);
    }
    own_ = GatheredCsv();
  }

 private:
  GatheredCsv& whole_;
  GatheredCsv own_;
};

inline std::unique_ptr<lakresvos::tabulate::CsvPartSink> GatheredCsv::MakePart() {
  ++parts;
  return std::make_unique<Part>(*this);
}

/// What comes of bytes of CSV.
struct CsvResult {
  CsvResult(std::string const& bytes, lakresvos::tabulate::CsvReading const& how) {
    std::istringstream input(bytes);
    error = ErrorOf([&] { lakresvos::tabulate::ReadCsv(input, "", gathered, how); });
  }

  GatheredCsv gathered;
  std::string error;
};

#endif
