#ifndef KX_ADDRESSES_EXPORT_H
#define KX_ADDRESSES_EXPORT_H

/// Marks what libkxruntime exports; all else stays hidden. The driver's KX_EXPORT is another.
#define KXRUNTIME_EXPORT __attribute__((visibility("default")))

#endif
