#ifndef TARVELAN_DRIVER_EXPORT_H
#define TARVELAN_DRIVER_EXPORT_H

/// Marks a name that the library exports. Everything else stays hidden.
#define KX_EXPORT __attribute__((visibility("default")))

#endif
