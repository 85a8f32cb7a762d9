/// A machine on a simulated controller, and what it told.
#ifndef KX_TESTS_TOOLS_KXPANEL_MACHINE_FIXTURE_H
#define KX_TESTS_TOOLS_KXPANEL_MACHINE_FIXTURE_H

#include "kxpanel/machine/machine.h"

#include <QtCore/QMap>

namespace kxpanel
{

/// Of an address as typed, with its format: "D100/float", "M0@2".
WatchedValue watched(int number, const char* address);

/// With the driver of this build; station 1, replies within half a second.
kx::ConnectionOptions simulated();
kx::ConnectionOptions serialPort(const QString& port);

/// Listens in the thread in which it is made.
class MachineLog : public QObject
{
public:
    explicit MachineLog(const Machine* machine);

    QMap<int, Reading> readings; ///< the latest, by number
    int batches = 0;             ///< of readings
    QVector<Exchange> exchanges;
    LineStatus status;            ///< the latest
    QStringList states;           ///< "opening", "open: FAULT", "interrupted", "closed"
    QMap<int, kx::Failure> ended; ///< by ticket
    int ends = 0;
    qint64 cycles = 0;
    QList<kx::WatchSummary> summaries;
};

} // namespace kxpanel

#endif
