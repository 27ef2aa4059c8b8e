#ifndef LAKRESVOS_TABULATE_EXPORT_H
#define LAKRESVOS_TABULATE_EXPORT_H

/// Marks the classes and functions that the tabulation library makes visible to its callers.
#define LAKRESVOS_TABULATE_EXPORT __attribute__((visibility("default")))

#endif
