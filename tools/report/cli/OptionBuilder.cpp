#include "cli/OptionBuilder.h"

#include <lakresvos/tabulate/InputError.h>

namespace lakresvos::report {

OptionBuilder& OptionBuilder::AddFlag(char const* name, bool& target, char const* help) {
  return Add(app_.add_flag(name, target, help), "");
}

OptionBuilder& OptionBuilder::AddText(char const* name, char const* value, std::string& target,
                                      char const* help) {
  return Add(app_.add_option(name, target, help), value);
}

OptionBuilder& OptionBuilder::AddTexts(char const* name, char const* value,
                                       std::vector<std::string>& target, char const* help) {
  CLI::Option* const option = app_.add_option(name, target, std::string(help) + " (repeatable)");
  return Add(option->allow_extra_args(false), value);
}

OptionBuilder& OptionBuilder::AddNumber(char const* name, char const* value, int& target, int min,
                                        int max, char const* help) {
  return Add(app_.add_option(name, target, help)->check(AllowRange(min, max)), value);
}

OptionBuilder& OptionBuilder::Requires(OptionCondition const& condition) {
  requirements_.push_back({last_, condition});
  return *this;
}

void OptionBuilder::CheckConditions(Options const& options) const {
  for (auto const& [option, condition] : requirements_) {
    if (option->count() != 0 && !condition.holds(options)) {
      throw tabulate::InputError(option->get_name() + " " + condition.failure);
    }
  }
}

OptionBuilder& OptionBuilder::Add(CLI::Option* option, char const* value) {
  option->option_text(value);
  last_ = option;
  return *this;
}

std::string OptionBuilder::ListAlternatives(std::vector<std::string> const& values) {
  std::string list = values.front();
  for (std::size_t i = 1; i < values.size(); ++i) {
    list += (i + 1 < values.size() ? ", " : " or ") + values[i];
  }
  return list;
}

}  // namespace lakresvos::report
