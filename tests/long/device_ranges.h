/// The addresses that the soak works with, and their values in the controllers'
/// memory in the layout of intf_getData().
#ifndef KX_TESTS_LONG_DEVICE_RANGES_H
#define KX_TESTS_LONG_DEVICE_RANGES_H

#include "long/memory_controller.h"

#include <QtCore/QString>

struct DeviceRange {
    int station;
    QString regType;
    int address;
    int count; ///< bits or registers, 32CV two per address
};

/// Changed by the controllers, only read by the runtime.
const std::vector<DeviceRange>& processRanges();

/// Changed by the runtime's writes alone.
const std::vector<DeviceRange>& setpointRanges();

/// Transferred as recipes; every register of them is one recipe variable.
const std::vector<DeviceRange>& recipeRanges();

bool holdsBits(const QString& regType);
bool holdsDoubleWords(const QString& regType);

/// Whether `outer` holds all of `inner`.
bool holds(const DeviceRange& outer, const DeviceRange& inner);

int bytesOf(const DeviceRange& range);
QByteArray inMemory(const MemoryController& controller, const DeviceRange& range);
void putIntoMemory(MemoryController& controller, const DeviceRange& range,
                   const QByteArray& values);

#endif
