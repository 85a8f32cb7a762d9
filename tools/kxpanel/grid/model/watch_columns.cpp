#include "kxpanel/grid/model/watch_columns.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

// In the order of WatchModel::Column.
const ColumnText COLUMNS[] = {
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Name"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel", "What people call the value (F2 edits)"), false},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Station"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Station on the line, 1 to 247"), true},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Address"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel", "As typed on the panel; X and Y are octal"), false},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Value"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel",
                       "As read last. Type and press Enter to write; Space switches a bit"),
     true},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Unit"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Unit of the value"), false},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "State"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel", "What became of the last read, or of a write"),
     false},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Age"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Time since the last good read"), true},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Every"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel",
                       "Time from one read to the next, such as 500 ms or 10 s; empty: in each "
                       "cycle (F2 edits)"),
     true},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Format"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel", "What the registers mean, such as s16*0.1 or float"),
     false},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Raw"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel", "The registers in hexadecimal"), false},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Modbus"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel",
                       "Number of the coil or holding register on the wire, from 0"),
     false},
    {QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Comment"),
     QT_TRANSLATE_NOOP("kxpanel::WatchModel", "Notes (F2 edits)"), false},
};

} // namespace

const ColumnText& columnText(int column)
{
    return COLUMNS[column];
}

} // namespace kxpanel
