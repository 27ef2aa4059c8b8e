#ifndef FUZZ_HARNESS_TARGET_H
#define FUZZ_HARNESS_TARGET_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// What every fuzz target is made of: it defines Exercise(). The harness runs it on one input after
// another, and checks after each that it took no more memory than it may and left none behind.

/// Does with one input what the target is about. Returns when all is well; ends in Fail(), an
/// exception or a sanitizer's report otherwise. The bytes are there only until it returns.
void Exercise(std::string_view input);

/// Reports a finding: writes one line to standard error and aborts.
[[noreturn]] void Fail(std::string const& why);

/// The variable of the environment that names a folder for inputs that took more than a second of
/// the processor, which is no finding where sanitizers slow the code down. Not set: they go nowhere.
constexpr char const* kSlowInputs = "LAKRESVOS_SLOW_INPUTS";

/// What libFuzzer calls, and the replay of the corpus.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

#endif
