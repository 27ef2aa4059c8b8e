#ifndef CELLS_EXPORT_H
#define CELLS_EXPORT_H

/// Marks the classes and functions that the cell library makes visible to its callers.
#define CELLS_EXPORT __attribute__((visibility("default")))

#endif
