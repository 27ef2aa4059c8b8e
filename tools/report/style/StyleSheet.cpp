#include "style/StyleSheet.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>

#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>

#include "style/StyleProperties.h"

namespace lakresvos::report {

namespace {

std::string ReadFile(std::string const& file) {
  errno = 0;
  std::ifstream input(file, std::ios::binary);
  std::string text;
  std::array<char, 4096> buffer;
  while (input) {
    input.read(buffer.data(), buffer.size());
    text.append(buffer.data(), static_cast<std::size_t>(input.gcount()));
  }
  if (!input.eof()) {
    throw tabulate::InputError(file + ": " +
                               std::generic_category().message(errno != 0 ? errno : EIO));
  }
  return text;
}

/// Stores a style file value by value. Nothing that nests deeper than an area's properties gets in,
/// so hostile files need neither memory nor stack.
class StyleSink : public nlohmann::json_sax<nlohmann::json> {
 public:
  StyleSink(std::string const& file, std::string const& text) : file_(file), text_(text) {}

  StyleSheet Result() { return std::move(style_); }

  bool null() override { return Store({}); }
  bool boolean(bool value) override { return Store(value); }
  bool number_integer(number_integer_t value) override { return Store(static_cast<double>(value)); }
  bool number_unsigned(number_unsigned_t value) override {
    return Store(static_cast<double>(value));
  }
  bool number_float(number_float_t value, string_t const& /*text*/) override {
    return Store(value);
  }
  bool string(string_t& value) override { return Store(std::move(value)); }
  bool binary(binary_t& /*value*/) override { return Store({}); }
  bool start_array(std::size_t /*size*/) override { return Store({}); }
  bool end_array() override { return true; }

  bool start_object(std::size_t /*size*/) override {
    if (depth_ == 2) {
      return Store({});
    }
    ++depth_;
    return true;
  }

  bool end_object() override {
    --depth_;
    area_.clear();
    given_.clear();
    return true;
  }

  bool key(string_t& name) override {
    if (depth_ == 1) {
      StartArea(name);
    } else {
      property_ = FindStyleProperty(name);
      propertyName_ = name;
      if (property_ == nullptr) {
        Fail("unknown property " + tabulate::Quote(name));
      }
      if (!given_.insert(property_).second) {
        Fail("duplicate property " + tabulate::Quote(name));
      }
    }
    return true;
  }

  bool parse_error(std::size_t position, std::string const& /*token*/,
                   nlohmann::detail::exception const& error) override {
    std::string_view const read =
        std::string_view(text_).substr(0, std::min(position == 0 ? 0 : position - 1, text_.size()));
    auto const line = std::count(read.begin(), read.end(), '\n') + 1;
    auto const startsCharacter = [](char c) {
      return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    };
    auto const lineStart = read.begin() + static_cast<std::ptrdiff_t>(read.rfind('\n') + 1);
    auto const column = std::count_if(lineStart, read.end(), startsCharacter) + 1;
    throw tabulate::InputError(file_ + ":" + std::to_string(line) + ":" + std::to_string(column) +
                               ": " + Reason(position, error));
  }

 private:
  /// What is wrong with the text, in few words.
  std::string Reason(std::size_t position, nlohmann::detail::exception const& error) const {
    if (dynamic_cast<nlohmann::detail::out_of_range const*>(&error) != nullptr) {
      return "number out of range";
    }
    if (std::string_view(error.what()).find("UTF-8") != std::string_view::npos) {
      return "invalid UTF-8";
    }
    return position > text_.size() ? "invalid JSON: unexpected end" : "invalid JSON";
  }

  void StartArea(std::string const& name) {
    std::optional<FormatArea::Area> const area = FindStyleArea(name);
    if (!area) {
      Fail("unknown area " + tabulate::Quote(name));
    }
    area_ = name;
    for (FormatArea const& format : style_) {
      if (format.getArea() == *area) {
        Fail("duplicate area");
      }
    }
    style_.emplace_back(*area);
  }

  bool Store(StyleValue const& value) {
    if (depth_ < 2) {
      Fail("expected an object");
    }
    if (!property_->set(style_.back(), value)) {
      area_ += "/" + propertyName_;
      Fail(std::string("expected ") + property_->expected);
    }
    return true;
  }

  [[noreturn]] void Fail(std::string const& what) const {
    throw tabulate::InputError(file_ + ": " + (area_.empty() ? "" : "/" + area_ + ": ") + what);
  }

  std::string const& file_;
  std::string const& text_;
  StyleSheet style_;
  int depth_ = 0;     // 1 in the file's object, 2 in that of an area
  std::string area_;  // as the file names it; empty outside of all
  std::set<StyleProperty const*> given_;
  StyleProperty const* property_ = nullptr;
  std::string propertyName_;  // as the file has it
};

}  // namespace

StyleSheet ReadStyleSheet(std::string const& file) {
  std::string const text = ReadFile(file);
  StyleSink sink(file, text);
  nlohmann::json::sax_parse(text, &sink);
  return sink.Result();
}

void Attach(StyleSheet const& style, OmPivotTable& table) {
  for (FormatArea const& format : style) {
    auto copy = std::make_unique<FormatArea>(format);
    table.setAreaFormat(copy.get());
    (void)copy.release();
  }
}

}  // namespace lakresvos::report
