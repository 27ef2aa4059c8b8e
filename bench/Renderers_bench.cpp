#include <charconv>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <cells/OmNumber.h>
#include <cells/OmStringCell.h>
#include <lakresvos/OmOutputTree.h>
#include <lakresvos/OmPivotTable.h>
#include <lakresvos/render/CsvRenderer.h>
#include <lakresvos/render/HtmlRenderer.h>
#include <lakresvos/render/TextRenderer.h>

#include "support/CountedBytes.h"
#include "support/Programs.h"
#include "support/Workload.h"

// A table of numbers with two decimals written to a file as HTML, CSV and text: by the renderers, by a
// bare loop of `to_chars` with the least that the form needs around a number, and by pandas. Times are
// those of writing alone; the memory is what writing needs on top of what is written.

namespace {

using namespace lakresvos::render;

double NumberAt(int row, int column, int side) {
  return (row * static_cast<double>(side) + column) * 0.37;
}

void AddDimension(OmPivotTable& table, std::string const& label, int side) {
  OmDimension& dimension = table.AddDimension(OmStringCell(label));
  for (int i = 0; i < side; ++i) {
    dimension.AddNewChild(dimension.Root(), OmStringCell(label + std::to_string(i)),
                          static_cast<unsigned long>(i), false);
  }
}

std::shared_ptr<OmOutputTree const> MakeDocument(int side) {
  OmStringCell const label("Table");
  auto table = std::make_unique<OmPivotTable>(label, label, false);
  AddDimension(*table, "r", side);
  AddDimension(*table, "c", side);
  table->Rows().push_back(0);
  table->Columns().push_back(1);
  std::vector<int> index(2);
  for (index[1] = 0; index[1] < side; ++index[1]) {
    for (index[0] = 0; index[0] < side; ++index[0]) {
      table->Cell(index, OmNumber(NumberAt(index[0], index[1], side), 2));
    }
  }
  auto document = std::make_shared<OmOutputTree>();
  document->begin().AppendChild(table.release());
  return document;
}

/// What a bare loop writes around labels and numbers.
struct Form {
  std::string rowStart, rowEnd, labelStart, labelEnd, numberStart, numberEnd;
  std::size_t width = 0;  ///< that numbers are padded to
};

void WriteBare(Form const& form, std::vector<double> const& numbers, int side, std::ostream& out) {
  std::string row;
  auto number = numbers.begin();
  for (int r = 0; r < side; ++r) {
    row = form.rowStart + form.labelStart + "r" + std::to_string(r) + form.labelEnd;
    for (int c = 0; c < side; ++c) {
      char digits[32];
      char const* const end =
          std::to_chars(digits, digits + sizeof digits, *number++, std::chars_format::fixed, 2).ptr;
      auto const length = static_cast<std::size_t>(end - digits);
      row += form.numberStart;
      row.append(form.width > length ? form.width - length : 0, ' ');
      row.append(digits, length);
      row += form.numberEnd;
    }
    row += form.rowEnd;
    out << row;
  }
}

void MeasureWriting(benchmark::State& state, std::function<void(std::ostream& out)> const& write) {
  TemporaryFile const file;
  counted_bytes::Restart();
  long const before = counted_bytes::Held();
  double const seconds = Seconds([&] {
    std::ofstream out(file.name, std::ios::binary);
    write(out);
    if (!out.flush()) {
      state.SkipWithError(("cannot write " + file.name).c_str());
    }
  });
  state.counters["ms"] = seconds * 1000;
  state.counters["peak MB"] = static_cast<double>(counted_bytes::Peak() - before) / (1 << 20);
}

void RegisterForm(std::string const& name, int side, Form const& form,
                  std::function<void(std::ostream& out, unsigned int threads)> const& render) {
  auto const own = [&](std::string const& who, unsigned int threads) {
    Register(name + "/" + who, [render, threads](benchmark::State& state) {
      MeasureWriting(state, [&](std::ostream& out) { render(out, threads); });
    });
  };
  own("lakresvos", 1);
  own("lakresvos, 2 threads", 2);
  auto numbers = std::make_shared<std::vector<double>>();
  for (int r = 0; r < side; ++r) {
    for (int c = 0; c < side; ++c) {
      numbers->push_back(NumberAt(r, c, side));
    }
  }
  Register(name + "/bare loop", [form, numbers, side](benchmark::State& state) {
    MeasureWriting(state, [&](std::ostream& out) { WriteBare(form, *numbers, side, out); });
  });
  Register(name + "/pandas", [name, side](benchmark::State& state) {
    TemporaryFile const file;
    MeasurePeer(state, {"/usr/bin/python3", LAKRESVOS_PEERS "/render.py", name,
                        std::to_string(side), file.name});
  });
}

}  // namespace

void RegisterWorkload(bool quick) {
  int const side = quick ? 100 : 1000;
  auto const document = MakeDocument(side);
  RegisterForm("html", side, {"<tr>", "</tr>\n", "<th>", "</th>", "<td>", "</td>"},
               [document](std::ostream& out, unsigned int threads) {
                 HtmlOptions options;
                 options.threads = threads;
                 RenderHtml(*document, out, options);
               });
  RegisterForm("csv", side, {"", "\n", "", "", ",", ""},
               [document](std::ostream& out, unsigned int threads) {
                 CsvOptions options;
                 options.threads = threads;
                 options.shape = CsvOptions::Shape::Display;
                 RenderCsv(*document, out, options);
               });
  RegisterForm("text", side, {"", "\n", "", "", " ", "", 9},
               [document](std::ostream& out, unsigned int threads) {
                 TextOptions options;
                 options.threads = threads;
                 RenderText(*document, out, options);
               });
}
