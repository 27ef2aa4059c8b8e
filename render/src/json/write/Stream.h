#ifndef LAKRESVOS_RENDER_JSON_WRITE_STREAM_H
#define LAKRESVOS_RENDER_JSON_WRITE_STREAM_H

#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "content/NumberText.h"
#include "io/OutputBuffer.h"
#include "json/Names.h"

namespace lakresvos::render {

/// Writes one JSON value piece by piece and puts the commas. The caller sees to it that in an object
/// each value has a name.
class JsonStream {
 public:
  /// @param out must outlive the object.
  explicit JsonStream(std::ostream& out) : out_(out) {}

  void BeginObject() { Open('{', '}', false); }
  void BeginArray() { Open('[', ']', false); }
  /// Begins an array each of whose elements starts a line.
  void BeginLines() { Open('[', ']', true); }
  /// Ends the object or array that was begun last.
  void End();

  /// The name of the next value, which must need no escapes.
  JsonStream& Name(std::string_view name);

  void Boolean(bool value) { Raw(value ? "true" : "false"); }
  void Null() { Raw("null"); }

  /// A number. A whole one that a double may not hold exactly, as other readers take all numbers, is
  /// written as a text of its digits.
  template <class Value>
  void Number(Value value) {
    if constexpr (std::is_floating_point_v<Value>) {
      Floating(value);
    } else if (IsExactInDouble(value)) {
      Raw(std::to_string(value));
    } else {
      Raw('"' + std::to_string(value) + '"');
    }
  }

  /// A text; one that is not UTF-8 as an object with the bytes in base64.
  void Text(std::string_view text);

  /// Bytes as a text in base64.
  void Bytes(std::string_view bytes);

  /// Hands everything to the stream. What is not flushed is lost.
  void Flush() { out_.Flush(); }

 private:
  struct Level {
    char end;
    bool lines;
    bool empty;
  };

  void Open(char begin, char end, bool lines);
  void StartValue();
  void Raw(std::string_view text);
  void Quoted(std::string_view text);

  template <class Value>
  void Floating(Value value);

  OutputBuffer out_;
  std::vector<Level> levels_;
  bool named_ = false;
};

}  // namespace lakresvos::render

#endif
