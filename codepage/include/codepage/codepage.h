#ifndef CODEPAGE_CODEPAGE_H
#define CODEPAGE_CODEPAGE_H

#include <string>

/// @file
/// Converts UTF-8 (RFC 3629) into the code pages that the C library's iconv knows.

/// Marks the functions that the shared library makes visible to its callers.
#define CODEPAGE_EXPORT __attribute__((visibility("default")))

/// Opens a converter from UTF-8 to a code page.
///
/// The page is a plain name such as "ISO-8859-1", in any case of letters; `iconv -l` lists them. A
/// name with a suffix that would let the conversion replace or drop characters ("//TRANSLIT",
/// "//IGNORE") counts as unknown.
///
/// Thread safety: none; one thread at a time uses a converter. Several may open converters.
///
/// @param page the name; may be null.
/// @return a handle that the caller closes with VELKMBConverterDelete_A(), until which it is valid;
///         null when the name is null, unknown, or without a letter or digit.
/// @throws std::bad_alloc.
CODEPAGE_EXPORT void* VELKMBConverterNew_A(char const* page);

/// Converts `utf8` as a whole, from and to the initial shift state of the page. Time and memory in
/// proportion to the text.
///
/// The conversion fails rather than change the text. The C library's iconv is more lenient: it lets
/// codes above U+10FFFF through to some pages, and drops the tag characters U+E0000 to U+E007F
/// where the page lacks them, so both are looked for here.
///
/// @param converter a handle from VELKMBConverterNew_A(); may be null.
/// @param out       replaced by the converted text; empty after a failure. May be the same string
///                  as `utf8`.
/// @return 0, or non-zero when `converter` is null, `utf8` is not UTF-8 throughout, or the page
///         lacks one of its characters. The converter stays usable.
/// @throws std::bad_alloc; `out` is then as before, and the converter stays usable.
CODEPAGE_EXPORT int VELKMBU8ToGeneric(void* converter, std::string& out, std::string const& utf8);

/// Closes a converter; null does nothing.
/// Requires: `converter` came from VELKMBConverterNew_A() and was not closed.
CODEPAGE_EXPORT void VELKMBConverterDelete_A(void* converter);

#endif
