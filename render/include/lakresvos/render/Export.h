#ifndef LAKRESVOS_RENDER_EXPORT_H
#define LAKRESVOS_RENDER_EXPORT_H

/// Marks the classes and functions that the renderer library makes visible to its callers.
#define LAKRESVOS_RENDER_EXPORT __attribute__((visibility("default")))

#endif
