/// Set-up entry points: what the driver is, and how a runtime configures it. None
/// calls the value-change function.
#ifndef TARVELAN_DRIVER_SETUP_H
#define TARVELAN_DRIVER_SETUP_H

#include "driver/export.h"
#include "driver/tarvelan.h"

#include <QtCore/QMutex>
#include <QtCore/QString>

extern "C" {

/// Gives the protocol type, a number for the runtime. Pure: may be called on any
/// thread, before initialising and from inside the value-change function.
/// @param out set to 0; not null; stays the caller's
KX_EXPORT void intf_getProtocolType(int* out);

/// Gives the default parameters. Pure, as intf_getProtocolType().
/// @param out set to 23 items separated by commas, among them the baud rate (bits
///            per second), data bits, parity, stop bits, network address and port of
///            a device, the driver's name and the register types; stays the caller's
KX_EXPORT void intf_getDriverParameter(QString& out);

/// Gives the property page, a text for the runtime. Pure, as intf_getProtocolType().
/// @param out set to "0_0"; stays the caller's
KX_EXPORT void intf_getDriverPropertyPage(QString& out);

/// Takes a property page, of which the driver keeps nothing. Pure, as
/// intf_getProtocolType().
/// @param out set to the empty string, whatever it held; stays the caller's
KX_EXPORT void intf_SetDriverPropertyPage(QString& out);

/// Registers the value-change function, replacing any earlier one. Communication
/// thread only; may be called from inside that function: the next report goes to the
/// new one.
/// @param callBack called on the communication thread, inside intf_dealRcvFrame() and
///                 intf_setData(), without a test for null: register one before the
///                 first reply or write. It must exist until it is replaced or the
///                 library is used no more.
KX_EXPORT void intf_setAddrValueChangeCallBack(ValueChangeCallBack callBack);

/// Hands over parameters and resources and discards every queued job, frame
/// and cached value. The recipe plan and its position survive.
///
/// Takes time in proportion to the length of `parameters` and to the jobs and cache
/// records that it drops.
///
/// Communication thread only; not from inside the value-change function.
///
/// @param shared       the runtime's block of at least 60117 bytes: byte 60115
///                     requests a recipe write, byte 60116 a recipe read, each
///                     set to 1 by the runtime and cleared to 0 by the driver.
///                     Null: no recipe is ever requested.
/// @param hostValue    stored, never used
/// @param recipeBuffer recipe values, 16-bit words: from each recipe variable's
///                     offset on, room for the longest block, that is `maxWords`
///                     or the longest variable. A block is written from its first
///                     variable's offset on, whatever the offsets of the others,
///                     and a 32CV block is read to the offset of the variable
///                     that has the block's number. Null: recipe writes end
///                     at once, with nothing sent, and recipe reads store nothing.
/// @param status       set to 0; null is accepted
/// @param parameters   Latin-1 up to a zero byte, of any length; not null. Items
///                     separated by "#": link number, local-write switch, a stored
///                     value, retry limit (bad replies in a row), maximum request
///                     length (registers). An item that is no
///                     decimal number counts as 0; items after the fifth are
///                     ignored; with fewer than five none of them changes.
/// @param mutex        locked only around the two request bytes, never while
///                     the value-change function runs. Null: nothing to lock.
/// @return always 1
///
/// The pointers stay the runtime's and must outlive the driver's use of them,
/// that is until the next call of this function or the unloading of the library.
KX_EXPORT int intf_initProperty(unsigned char* shared, void* hostValue,
                                unsigned short* recipeBuffer, int* status, const char* parameters,
                                QMutex* mutex);
}

#endif
