#ifndef LAKRESVOS_REPORT_CLI_OPTIONBUILDER_H
#define LAKRESVOS_REPORT_CLI_OPTIONBUILDER_H

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "cli/OptionConditions.h"
#include "cli/OptionErrors.h"

namespace lakresvos::report {

/// Declares the options of a command line, in the groups and the order in which help lists them.
///
/// All that is said of an option is said in one place: its name, what help calls its value, where
/// the value goes, its help line, and what it needs to make a difference. The variables that the
/// values go to must outlive the parsing; what is in them before is the default.
class OptionBuilder {
 public:
  /// A value that the user chooses by its name.
  template <class Value>
  using Choice = std::pair<std::string, Value>;

  explicit OptionBuilder(CLI::App& app) : app_(app) {}

  /// The options that are added next belong to this group.
  void StartGroup(char const* name) { app_.option_defaults()->group(name); }

  OptionBuilder& AddFlag(char const* name, bool& target, char const* help);

  /// @param value what help calls the value; empty for an operand, whose name says it.
  OptionBuilder& AddText(char const* name, char const* value, std::string& target,
                         char const* help);

  /// Adds an option that may be repeated.
  OptionBuilder& AddTexts(char const* name, char const* value, std::vector<std::string>& target,
                          char const* help);

  OptionBuilder& AddNumber(char const* name, char const* value, int& target, int min, int max,
                           char const* help);

  /// Adds an option with a few named values, which follow in the help line.
  template <class Value>
  OptionBuilder& AddChoice(char const* name, char const* value, Value& target,
                           std::vector<Choice<Value>> const& choices, std::string const& help) {
    std::vector<std::string> names;
    std::vector<std::string> listed;
    for (auto const& [choice, meaning] : choices) {
      names.push_back(choice);
      listed.push_back(choice + (meaning == target ? " (default)" : ""));
    }
    auto const read = [&target, choices](std::string const& wanted) {
      target = std::find_if(choices.begin(), choices.end(), [&](Choice<Value> const& choice) {
                 return choice.first == wanted;
               })->second;
    };
    CLI::Option* const option =
        app_.add_option_function<std::string>(name, read, help + " " + ListAlternatives(listed));
    return Add(option->check(AllowValues(names)), value);
  }

  /// The option that was added last is refused where the condition does not hold.
  OptionBuilder& Requires(OptionCondition const& condition);

  /// @throws InputError for the first option on the command line that a condition refuses.
  void CheckConditions(Options const& options) const;

 private:
  struct Requirement {
    CLI::Option const* option;
    OptionCondition condition;
  };

  OptionBuilder& Add(CLI::Option* option, char const* value);
  static std::string ListAlternatives(std::vector<std::string> const& values);

  CLI::App& app_;
  CLI::Option const* last_ = nullptr;
  std::vector<Requirement> requirements_;
};

}  // namespace lakresvos::report

#endif
