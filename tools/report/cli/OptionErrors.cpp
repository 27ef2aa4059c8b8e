#include "cli/OptionErrors.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>

namespace lakresvos::report {

namespace {

bool IsFlag(CLI::Option const& option) {
  return option.get_items_expected_max() == 0;
}

[[noreturn]] void RefuseMissingValue(CLI::Option const& option) {
  throw tabulate::InputError(option.get_positional() ? "operand " + option.get_name() + " is empty"
                                                     : option.get_name() + " needs a value");
}

/// @param left the arguments that the parser did not recognize.
[[noreturn]] void RefuseArgument(std::vector<std::string> const& left) {
  bool const afterOptions = left.size() > 1 && left.front() == "--";
  std::string const& argument = left[afterOptions ? 1 : 0];
  if (!afterOptions && argument.starts_with('-')) {
    throw tabulate::InputError("unknown option " +
                               tabulate::Quote(argument.substr(0, argument.find('='))));
  }
  throw tabulate::InputError("unexpected argument " + tabulate::Quote(argument));
}

/// Refuses an option with too many values, or the one without a value that the parser complains of.
void RefuseCount(CLI::App const& app, std::string_view parserWords) {
  for (CLI::Option const* const option : app.get_options()) {
    auto const max = static_cast<std::size_t>(option->get_items_expected_max());
    if (!IsFlag(*option) && option->results().size() > max) {
      throw tabulate::InputError(option->get_name() + " is given more than once");
    }
  }
  for (CLI::Option const* const option : app.get_options()) {
    if (parserWords.starts_with(option->get_name() + ":")) {
      RefuseMissingValue(*option);
    }
  }
}

/// The option with this name; null when there is none. The library's own function ends the program
/// when there is no memory for it.
CLI::Option const* FindOption(CLI::App const& app, std::string const& name) {
  for (CLI::Option const* const option : app.get_options()) {
    if (option->check_name(name)) {
      return option;
    }
  }
  return nullptr;
}

}  // namespace

CLI::Validator AllowValues(std::vector<std::string> const& values) {
  auto const check = [values](std::string const& value) {
    bool const isKnown = std::find(values.begin(), values.end(), value) != values.end();
    return isKnown ? ""
                   : "expected one of " + CLI::detail::join(values, ", ") + ", not " +
                         tabulate::Quote(value);
  };
  return {check, ""};
}

CLI::Validator AllowRange(int min, int max) {
  auto const check = [min, max](std::string const& value) {
    int number = 0;
    char const* const end = value.data() + value.size();
    auto const [last, error] = std::from_chars(value.data(), end, number);
    bool const fits = last == end && error == std::errc() && number >= min && number <= max;
    return fits ? ""
                : "expected a whole number from " + std::to_string(min) + " to " +
                      std::to_string(max) + ", not " + tabulate::Quote(value);
  };
  return {check, ""};
}

void CheckAssignments(CLI::App const& app, int argc, char const* const* argv) {
  for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
    std::string const argument = argv[i];
    std::size_t const sign = argument.find('=');
    CLI::Option const* const option =
        argument.starts_with('-') ? FindOption(app, argument.substr(0, sign)) : nullptr;
    if (option == nullptr) {
      continue;
    }
    if (sign == std::string::npos) {
      i += IsFlag(*option) ? 0 : 1;  // past its value, which may look like an option
    } else if (IsFlag(*option)) {
      throw tabulate::InputError(option->get_name() + " takes no value");
    } else if (sign + 1 == argument.size()) {
      RefuseMissingValue(*option);
    }
  }
}

void RefuseEmptyValues(CLI::App const& app) {
  for (CLI::Option const* const option : app.get_options()) {
    std::vector<std::string> const& values = option->results();
    if (std::find(values.begin(), values.end(), "") != values.end()) {
      RefuseMissingValue(*option);
    }
  }
}

void Refuse(CLI::App const& app, CLI::ParseError const& error) {
  RefuseEmptyValues(app);
  if (dynamic_cast<CLI::ValidationError const*>(&error) != nullptr) {
    // The name of the option and the words of its validator.
    throw tabulate::InputError(error.what());
  }
  if (dynamic_cast<CLI::ExtrasError const*>(&error) != nullptr) {
    RefuseArgument(app.remaining());
  }
  RefuseCount(app, error.what());
  throw tabulate::InputError("invalid command line");
}

}  // namespace lakresvos::report
