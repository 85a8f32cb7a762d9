/// What a session tells. Plain values, which may cross threads.
#ifndef KX_PANEL_SESSION_SESSION_EVENTS_H
#define KX_PANEL_SESSION_SESSION_EVENTS_H

#include "addresses/address_text.h"
#include "addresses/export.h"
#include "exchange/failure.h"

namespace kx
{

/// The value of one address is another, or may be.
struct ValueChange {
    AddressRange range; ///< one address
    qint64 value = 0;   ///< 0 or 1, 0..65535, or 0..4294967295
    int link = 0;       ///< SessionSettings::link
    /// All that one request read or wrote with it: the values of these addresses belong together.
    AddressRange request;
};

/// Whether all of the addresses changed with it, or stayed, at once.
KXRUNTIME_EXPORT bool isWhole(const AddressRange& value, const ValueChange& change);

/// How a one-off read ended.
struct ReadEnd {
    QList<qint64> values; ///< one per address, as ValueChange::value; none after a failure
    Failure failure;
    ExchangeRecord exchange; ///< its last request; empty when none was answered or given up
};

/// How a write ended. After a failure it may have been carried out all the same: its
/// confirmation may be what was lost.
struct WriteEnd {
    Failure failure;
    ExchangeRecord exchange; ///< as ReadEnd::exchange
};

/// Lets the events of sessions cross threads; may be called many times, on any thread.
KXRUNTIME_EXPORT void registerEventTypes();

enum class RecipeDirection {
    Download, ///< to the controllers
    Upload    ///< from the controllers
};

/// How the transfer of a recipe ended.
struct RecipeEnd {
    Failure failure;
    /// The block that a station may have stored although nobody knows: its request went out,
    /// and no answer settled it. Without a type when there is none.
    AddressRange unsettled;
};

} // namespace kx

Q_DECLARE_METATYPE(kx::AddressRange)
Q_DECLARE_METATYPE(kx::ValueChange)
Q_DECLARE_METATYPE(kx::ReadEnd)
Q_DECLARE_METATYPE(kx::WriteEnd)
Q_DECLARE_METATYPE(kx::RecipeEnd)

#endif
