#ifndef CODEPAGE_CODEPAGE_H
#define CODEPAGE_CODEPAGE_H

#include <string>

/// @file
/// Converts UTF-8 into the code pages that the C library's iconv knows.

/// Marks the functions that the shared library makes visible to its callers.
#define CODEPAGE_EXPORT __attribute__((visibility("default")))

/// Opens a converter from UTF-8 to a code page.
///
/// The page is a plain name such as "ISO-8859-1"; a name with a suffix that would let the
/// conversion replace or drop characters ("//TRANSLIT", "//IGNORE") counts as unknown.
///
/// Thread safety: several threads may open converters; one thread at a time uses a converter.
///
/// @param page the name; may be null.
/// @return a handle that the caller closes with VELKMBConverterDelete_A(); null when the name is
///         null, blank or unknown.
/// @throws std::bad_alloc.
CODEPAGE_EXPORT void* VELKMBConverterNew_A(char const* page);

/// Converts `utf8` as a whole and ends in the initial shift state of the page.
///
/// @param converter a handle from VELKMBConverterNew_A(); may be null.
/// @param out       replaced by the converted text; empty after a failure. May be the same string
///                  as `utf8`.
/// @return 0, or non-zero when `converter` is null, when `utf8` is not UTF-8 throughout, when the
///         page lacks one of its characters. The converter stays usable.
/// @throws std::bad_alloc; `out` is then as before, and the converter stays usable.
CODEPAGE_EXPORT int VELKMBU8ToGeneric(void* converter, std::string& out, std::string const& utf8);

/// Closes a converter; null does nothing.
CODEPAGE_EXPORT void VELKMBConverterDelete_A(void* converter);

#endif
