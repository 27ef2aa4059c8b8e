#ifndef TESTS_SUPPORT_SETTING_H
#define TESTS_SUPPORT_SETTING_H

#include <cstdlib>
#include <optional>
#include <string>

/// An environment variable with another value for a while; null: none.
class Setting {
 public:
  Setting(char const* name, char const* value) : name_(name) {
    if (char const* const before = std::getenv(name)) {
      before_ = before;
    }
    Set(value);
  }
  ~Setting() { Set(before_ ? before_->c_str() : nullptr); }
  Setting(Setting const&) = delete;
  Setting& operator=(Setting const&) = delete;

 private:
  void Set(char const* value) { value != nullptr ? setenv(name_, value, 1) : unsetenv(name_); }

  char const* name_;
  std::optional<std::string> before_;
};

#endif
