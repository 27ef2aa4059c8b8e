#ifndef LAKRESVOS_RENDER_HTML_LANGUAGE_H
#define LAKRESVOS_RENDER_HTML_LANGUAGE_H

#include <string>

namespace lakresvos::render {

/// The language tag of a locale with its script and region, "en-US" for "en_US.UTF-8"; empty when
/// the locale names no language.
std::string FindLanguage(std::string const& locale);

/// ` lang="..." dir="..."` for a language tag as FindLanguage() gives it.
std::string LanguageAttributes(std::string const& language);

}  // namespace lakresvos::render

#endif
