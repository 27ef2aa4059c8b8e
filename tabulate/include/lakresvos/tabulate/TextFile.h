#ifndef LAKRESVOS_TABULATE_TEXTFILE_H
#define LAKRESVOS_TABULATE_TEXTFILE_H

#include <iosfwd>
#include <string>

#include <lakresvos/tabulate/DataSet.h>
#include <lakresvos/tabulate/DataSource.h>
#include <lakresvos/tabulate/Export.h>
#include <lakresvos/tabulate/TextFormat.h>

namespace lakresvos::tabulate {

/// A file of records, the first of which names the columns: CSV (RFC 4180, UTF-8), also with another
/// separator than a comma.
///
/// Thread safety: needs exclusive access.
class LAKRESVOS_TABULATE_EXPORT TextFile : public DataSource {
 public:
  /// @param format  how it is written.
  /// @param options how many threads may read at once; what they count does not depend on it. Each
  ///                has cells of its own until the end.
  explicit TextFile(std::string file, TextFormat const& format = {},
                    ReadOptions const& options = {});

  /// Data that are read from a stream instead, from where it is, in the calling thread.
  /// @param input has to outlive the object, which counts once.
  /// @param name  names the stream in messages.
  TextFile(std::istream& input, std::string name, TextFormat const& format = {},
           ReadOptions const& options = {});

  /// Reads the file once, as ReadDataSet() does. A separator that was guessed is noted.
  CountedData Count(CountRequest const& request, WarningLog& warnings) override;

 private:
  std::istream* input_ = nullptr;  // null: the file
  std::string file_;
  TextFormat format_;
  ReadOptions options_;
};

}  // namespace lakresvos::tabulate

#endif
