#include "cli/OptionErrors.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <system_error>

#include <lakresvos/tabulate/InputError.h>
#include <lakresvos/tabulate/Quoting.h>

namespace lakresvos::report {

namespace {

std::string JoinedWith(std::string const& separator, std::vector<std::string> const& values) {
  std::string joined;
  for (std::string const& value : values) {
    joined += (joined.empty() ? "" : separator) + value;
  }
  return joined;
}

bool IsFlag(CLI::Option const& option) {
  return option.get_items_expected_max() == 0;
}

[[noreturn]] void RefuseWithoutValue(CLI::Option const& option) {
  throw tabulate::InputError(option.get_name() + " needs a value");
}

/// @param left what the parser found no use for.
[[noreturn]] void RefuseArgument(std::vector<std::string> const& left) {
  bool const noOptions = left.size() > 1 && left.front() == "--";
  std::string const& argument = left[noOptions ? 1 : 0];
  if (!noOptions && argument.starts_with('-')) {
    throw tabulate::InputError("unknown option " +
                               tabulate::Quoted(argument.substr(0, argument.find('='))));
  }
  throw tabulate::InputError("unexpected argument " + tabulate::Quoted(argument));
}

/// Looks for two options that exclude one another.
void RefuseExcluded(CLI::App const& app) {
  for (CLI::Option const* const option : app.get_options()) {
    for (CLI::Option const* const other : option->get_excludes()) {
      // Of the two, the one that excludes all others is the better reason.
      if (option->count() != 0 && other->count() != 0 &&
          option->get_excludes().size() <= other->get_excludes().size()) {
        throw tabulate::InputError(option->get_name() + " cannot be used with " +
                                   other->get_name());
      }
    }
  }
}

/// Looks for an option with too many values, or for the one without any that the parser names first.
void RefuseCount(CLI::App const& app, std::string_view parserWords) {
  for (CLI::Option const* const option : app.get_options()) {
    auto const most = static_cast<std::size_t>(option->get_items_expected_max());
    if (!IsFlag(*option) && option->results().size() > most) {
      throw tabulate::InputError(option->get_name() + " is given more than once");
    }
  }
  for (CLI::Option const* const option : app.get_options()) {
    if (parserWords.starts_with(option->get_name() + ":")) {
      RefuseWithoutValue(*option);
    }
  }
}

}  // namespace

CLI::Validator OneOf(std::vector<std::string> const& values) {
  auto const check = [values](std::string const& value) {
    bool const isKnown = std::find(values.begin(), values.end(), value) != values.end();
    return isKnown
               ? ""
               : "expected one of " + JoinedWith(", ", values) + ", not " + tabulate::Quoted(value);
  };
  return {check, "{" + JoinedWith(",", values) + "}"};
}

CLI::Validator WholeNumber(int least, int most) {
  std::string const range = std::to_string(least) + " to " + std::to_string(most);
  auto const check = [least, most, range](std::string const& value) {
    int number = 0;
    char const* const end = value.data() + value.size();
    auto const [last, error] = std::from_chars(value.data(), end, number);
    bool const fits = last == end && error == std::errc() && number >= least && number <= most;
    return fits ? "" : "expected a whole number from " + range + ", not " + tabulate::Quoted(value);
  };
  return {check, range};
}

void CheckAssignments(CLI::App const& app, int argc, char const* const* argv) {
  for (int i = 1; i < argc && std::string_view(argv[i]) != "--"; ++i) {
    std::string const argument = argv[i];
    std::size_t const sign = argument.find('=');
    CLI::Option const* const option =
        argument.starts_with('-') ? app.get_option_no_throw(argument.substr(0, sign)) : nullptr;
    if (option == nullptr) {
      continue;
    }
    if (sign == std::string::npos) {
      i += IsFlag(*option) ? 0 : 1;  // past its value, which may look like an option
    } else if (IsFlag(*option)) {
      throw tabulate::InputError(option->get_name() + " takes no value");
    } else if (sign + 1 == argument.size()) {
      RefuseWithoutValue(*option);
    }
  }
}

void RefuseEmptyValues(CLI::App const& app) {
  for (CLI::Option const* const option : app.get_options()) {
    std::vector<std::string> const& values = option->results();
    if (std::find(values.begin(), values.end(), "") != values.end()) {
      RefuseWithoutValue(*option);
    }
  }
}

void Refuse(CLI::App const& app, CLI::ParseError const& error) {
  RefuseEmptyValues(app);
  if (dynamic_cast<CLI::ValidationError const*>(&error) != nullptr) {
    throw tabulate::InputError(
        error.what());  // the name of the option and the words of its validator
  }
  if (dynamic_cast<CLI::ExtrasError const*>(&error) != nullptr) {
    RefuseArgument(app.remaining());
  }
  if (dynamic_cast<CLI::ExcludesError const*>(&error) != nullptr) {
    RefuseExcluded(app);
  }
  RefuseCount(app, error.what());
  throw tabulate::InputError("the command line cannot be understood");
}

}  // namespace lakresvos::report
