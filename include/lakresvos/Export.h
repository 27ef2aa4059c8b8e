#ifndef LAKRESVOS_EXPORT_H
#define LAKRESVOS_EXPORT_H

/// @file
/// What the shared library shows of itself. Everything that carries no mark is hidden by default.

/// Marks the classes and functions that the shared library makes visible to its callers.
#define LAKRESVOS_EXPORT __attribute__((visibility("default")))

/// Keeps a record that is nested in a visible class hidden. Its layout is no part of the interface:
/// callers only pass pointers to it.
#define LAKRESVOS_HIDDEN __attribute__((visibility("hidden")))

#endif
