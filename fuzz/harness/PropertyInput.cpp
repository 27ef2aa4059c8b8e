#include "harness/PropertyInput.h"

#include <algorithm>
#include <iostream>
#include <rapidcheck.h>
#include <rapidcheck/detail/PropertyContext.h>
#include <rapidcheck/gen/detail/GenerationHandler.h>
#include <sstream>
#include <string>

#include "harness/Target.h"
#include "support/Property.h"

namespace {

using rc::detail::Any;

/// Takes the place of RapidCheck's random numbers.
class InputDraws : public rc::gen::detail::GenerationHandler {
 public:
  explicit InputDraws(std::string_view input) : input_(input) {}

  Any onGenerate(rc::Gen<Any> const& gen) override {
    std::uint64_t const low = NextByte();
    return gen(rc::Random(low + 256 * NextByte()), rc::kNominalSize).value();
  }

 private:
  std::uint64_t NextByte() {
    if (input_.empty()) {
      return 0;
    }
    auto const byte = static_cast<unsigned char>(input_.front());
    input_.remove_prefix(1);
    return byte;
  }

  std::string_view input_;
};

/// Keeps what a property says of its course.
class HeldLog : public rc::detail::PropertyContext {
 public:
  bool reportResult(rc::detail::CaseResult const& /*result*/) override { return false; }
  std::ostream& logStream() override { return log_; }
  void addTag(std::string /*tag*/) override {}

  std::string Text() const { return log_.str(); }

 private:
  std::ostringstream log_;
};

void Run(Property const& property, std::string_view input) {
  InputDraws draws(input);
  HeldLog log;
  rc::detail::ImplicitParam<rc::gen::detail::param::CurrentHandler> const drawing(&draws);
  rc::detail::ImplicitParam<rc::detail::param::CurrentPropertyContext> const logging(&log);
  try {
    property.run();
  } catch (rc::detail::CaseResult const& result) {
    if (result.type == rc::detail::CaseResult::Type::Failure) {
      std::cerr << property.name << "\n" << log.Text();
    }
    throw;
  }
}

}  // namespace

void RunProperty(std::vector<std::string_view> const& names, std::string_view input) {
  std::size_t which = 0;
  if (names.size() > 1 && !input.empty()) {
    which = static_cast<unsigned char>(input.front()) % names.size();
    input.remove_prefix(1);
  }
  auto const found =
      std::find_if(Properties().begin(), Properties().end(),
                   [&](Property const& property) { return property.name == names[which]; });
  if (found == Properties().end()) {
    Fail("no property " + std::string(names[which]));
  }
  Run(*found, input);
}
