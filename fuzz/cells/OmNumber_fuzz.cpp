#include <cmath>
#include <cstdlib>
#include <string>

#include <cells/OmNumber.h>

#include "cells/PlainTexts.h"
#include "harness/InputBytes.h"
#include "harness/Target.h"

// Numbers, each with a count of decimals: their texts as the standard library writes them, and the
// shortest read back.
void Exercise(std::string_view input) {
  InputBytes bytes(input);
  while (!bytes.AtEnd()) {
    int const decimals = bytes.Take<short>();
    auto const value = bytes.Take<double>();
    for (int const shown : {-1, decimals, decimals & 15}) {
      if (OmNumber(value, shown).GetText() != PlainNumberText(value, shown)) {
        Fail("a number has another text than the standard library gives it");
      }
    }
    std::string const shortest = OmNumber(value).GetText();
    if (!std::isnan(value) && std::strtod(shortest.c_str(), nullptr) != value) {
      Fail("a number is not read back: " + shortest);
    }
  }
}
