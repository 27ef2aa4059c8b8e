#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <lakresvos/render/JsonRenderer.h>
#include <lakresvos/tabulate/CrossTable.h>

#include "document/Document.h"
#include "support/TemporaryDirectory.h"
#include "tabulate/TextData.h"

using namespace lakresvos::report;
using namespace lakresvos::tabulate;

namespace {

constexpr std::size_t kThreads = 4;

/// Does something in several threads at once, and gives what each of them made of it.
template <class Action>
std::vector<std::string> InThreads(Action action) {
  std::vector<std::string> results(kThreads);
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (std::string& result : results) {
    threads.emplace_back([&result, &action] { result = action(); });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  return results;
}

/// So many rows that several threads read them.
std::string ManyRows() {
  std::string bytes = "a,b,w,x\n";
  for (int row = 0; row < 30'000; ++row) {
    bytes += std::to_string(row % 7) + ",b" + std::to_string(row % 5) + "," +
             std::to_string(row % 3) + "," + std::to_string(row / 8.0) + "\n";
  }
  return bytes;
}

std::string Written(OmOutputTree const& document) {
  std::ostringstream out;
  lakresvos::render::JsonOptions options;
  options.layout = true;
  lakresvos::render::RenderJson(document, out, options);
  return out.str();
}

}  // namespace

TEST(Threads, EachMakeTheReportThatOneMakes) {
  TemporaryDirectory const directory;
  Options options;
  options.command = "lakresvos-report";
  options.dataFile = directory.Write("data.csv", ManyRows());
  options.statistics = ParseStatistics("count,mean:x,sd:x,row%");
  options.tables.push_back({ParseFormula("a ~ b"), "", ""});
  options.weight = "w";
  options.threads = 2;
  auto const report = [&options] {
    OmOutputTree document;
    AppendReport(document, options);
    return Written(document);
  };
  std::string const expected = report();
  for (std::string const& text : InThreads(report)) {
    EXPECT_EQ(text, expected);
  }
}

TEST(Threads, TabulateTheSameDataAtOnce) {
  DataSet const data = ReadData(ManyRows(), {"a", "b", "w", "x"});
  auto const tabulate = [&data] {
    WarningLog warnings;
    OmOutputTree document;
    document.Append(MakeCrossTable(data, RowWeights(data, "w", warnings),
                                   {ParseFormula("b ~ a"), "", ""},
                                   ParseStatistics("count,mean:x,sum:x,column%"), true)
                        .release());
    return Written(document);
  };
  std::vector<std::string> const tables = InThreads(tabulate);
  for (std::string const& text : tables) {
    EXPECT_EQ(text, tables.front());
  }
  EXPECT_EQ(tables.front(), tabulate());
}
