#include "SqliteCrosstab.h"

#include <stdexcept>

#if LAKRESVOS_HAS_SQLITE

#include <memory>
#include <sqlite3.h>

#include "CsvRows.h"
#include "support/Workload.h"

namespace {

struct Closer {
  void operator()(sqlite3* database) const { sqlite3_close(database); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Closer>;
using Statement = std::unique_ptr<sqlite3_stmt, Closer>;

void Expect(int expected, int result) {
  if (result != expected) {
    throw std::runtime_error(std::string("SQLite: ") + sqlite3_errstr(result));
  }
}

Statement Prepare(Database const& database, char const* text) {
  sqlite3_stmt* statement = nullptr;
  Expect(SQLITE_OK, sqlite3_prepare_v2(database.get(), text, -1, &statement, nullptr));
  return Statement(statement);
}

void Execute(Database const& database, char const* text) {
  Expect(SQLITE_DONE, sqlite3_step(Prepare(database, text).get()));
}

void Load(Database const& database, std::string const& data) {
  Execute(database, "CREATE TABLE data (a TEXT, b TEXT, c TEXT, d TEXT, x REAL)");
  Execute(database, "BEGIN");
  Statement const insert = Prepare(database, "INSERT INTO data VALUES (?, ?, ?, ?, ?)");
  ReadCsv(data, [&](CsvRow const& row) {
    for (int column = 0; column < 4; ++column) {
      std::string_view const text = row[static_cast<std::size_t>(column)];
      sqlite3_bind_text(insert.get(), column + 1, text.data(), static_cast<int>(text.size()),
                        SQLITE_STATIC);
    }
    sqlite3_bind_double(insert.get(), 5, NumberIn(row[4]));
    Expect(SQLITE_DONE, sqlite3_step(insert.get()));
    sqlite3_reset(insert.get());
  });
  Execute(database, "COMMIT");
}

void Query(Database const& database, bool sums, std::string const& html) {
  Statement const groups =
      Prepare(database, sums ? "SELECT a, b, c, d, count(*), sum(x) FROM data GROUP BY a, b, c, d"
                             : "SELECT a, b, c, d, count(*) FROM data GROUP BY a, b, c, d");
  std::ofstream out(html, std::ios::binary);
  out << "<table>\n";
  while (sqlite3_step(groups.get()) == SQLITE_ROW) {
    out << "<tr>";
    for (int column = 0; column < sqlite3_column_count(groups.get()); ++column) {
      out << "<td>" << sqlite3_column_text(groups.get(), column) << "</td>";
    }
    out << "</tr>\n";
  }
  out << "</table>\n";
}

}  // namespace

double WriteSqliteCrosstab(std::string const& data, bool sums, std::string const& html) {
  sqlite3* opened = nullptr;
  Expect(SQLITE_OK, sqlite3_open(":memory:", &opened));
  Database const database(opened);
  Load(database, data);
  return Seconds([&] { Query(database, sums, html); });
}

#else

double WriteSqliteCrosstab(std::string const& /*data*/, bool /*sums*/,
                           std::string const& /*html*/) {
  throw std::runtime_error("libsqlite3-dev is missing");
}

#endif
