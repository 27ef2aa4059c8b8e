#ifndef LAKRESVOS_EXPORT_H
#define LAKRESVOS_EXPORT_H

/// Marks the classes and functions that the shared library makes visible to its callers.
#define LAKRESVOS_EXPORT __attribute__((visibility("default")))

/// Keeps what is nested in a visible class out of sight.
#define LAKRESVOS_HIDDEN __attribute__((visibility("hidden")))

#endif
