/// What the cells of the grid say of a value. Pure functions.
#ifndef KX_KXPANEL_GRID_MODEL_CELL_TEXTS_H
#define KX_KXPANEL_GRID_MODEL_CELL_TEXTS_H

#include "kxpanel/grid/model/value_writer.h"

namespace kxpanel
{

/// State of a value as people see it, rising with the attention that it asks for.
enum class CellState {
    Ok,
    Changed, ///< within the last second
    NeverRead,
    Offline, ///< read once, but no line is open now
    Waiting, ///< to be written, or being written
    Written,
    NotWritten,
    Refused,
    NoAnswer,
};

const CellState ALL_STATES[] = {CellState::Ok,         CellState::Changed, CellState::NeverRead,
                                CellState::Offline,    CellState::Waiting, CellState::Written,
                                CellState::NotWritten, CellState::Refused, CellState::NoAnswer};

/// @param write the value's latest, or null
/// @param now milliseconds since 1970 in UTC
/// @param isOnline whether a line is open
CellState cellStateOf(const WatchedValue& value, const Reading& reading, const ValueWrite* write,
                      qint64 now, bool isOnline = true);

/// One character, which tells the states apart without colour.
QString stateSymbol(CellState state);

/// "no answer"; of a write that failed with its reason.
QString stateText(CellState state, const ValueWrite* write);

/// The value without its unit, as it was read last, or is being written; empty: never read.
QString valueCellText(const WatchedValue& value, const Reading& reading, const ValueWrite* write);

/// The registers in hexadecimal, as kx::hexValue().
QString rawText(const WatchedValue& value, const Reading& reading);

/// "coil 1455", "registers 100 to 101".
QString modbusCellText(const kx::AddressRange& range);

/// The format without its unit, which has a column, as people read it: "s16*0.1, 0.00, 0…90" with
/// two decimals and limits; of plain values empty.
QString formatCellText(const kx::ValueFormat& format);

/// "500 ms", "10 s", "5 min", as kx::parseInterval() takes it; below 0, of a value without an
/// interval of its own, empty.
QString intervalText(int milliseconds);

/// "0.4 s", "12 min", "3 h"; empty when it was never read.
QString ageText(const Reading& reading, qint64 now);

/// Whether the value that is shown is the controller's, as far as anybody can know: it was read,
/// or confirmed, after all that was sent.
bool isKnownNow(const Reading& reading, const ValueWrite* write);

/// Whether the value is 0 or 1 and is shown as a switch.
bool isSwitch(const kx::Tag& tag);

} // namespace kxpanel

#endif
