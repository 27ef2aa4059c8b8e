#include "style/StyleSheet.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>
#include <system_error>
#include <utility>

#include <lakresvos/render/JsonSyntax.h>
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
    throw tabulate::InputError(file_ + ":" +
                               render::MakeSyntaxError(text_, position, error.what()).what());
  }

 private:
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
