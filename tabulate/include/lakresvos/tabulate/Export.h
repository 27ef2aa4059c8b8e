#ifndef LAKRESVOS_TABULATE_EXPORT_H
#define LAKRESVOS_TABULATE_EXPORT_H

/// Makes a class or function of the tabulation library visible to its callers.
#define LAKRESVOS_TABULATE_EXPORT __attribute__((visibility("default")))

#endif
