/// What the commands that end by themselves have in common.
#ifndef KX_KXHOST_COMMANDS_RUN_TO_END_H
#define KX_KXHOST_COMMANDS_RUN_TO_END_H

#include "kxhost/options/connection_options.h"
#include "kxhost/terminal/interrupt.h"

#include <QtCore/QCoreApplication>

namespace kx
{

/// Prints every exchange when the options ask for frames.
void showFrames(const DriverSession* session, const ConnectionOptions& options);

/// Lets the simulated controllers answer for that station.
void simulateStation(int station, ConnectionOptions* options);

/// Runs a transfer to its end; an interrupt ends it early through its abort().
template <class Transfer>
void runToItsEnd(Transfer* transfer)
{
    const Interrupt interrupt;
    QObject::connect(&interrupt, &Interrupt::interrupted, transfer,
                     [transfer] { transfer->abort(QStringLiteral("interrupted")); });
    QObject::connect(transfer, &Transfer::finished, QCoreApplication::instance(),
                     &QCoreApplication::quit, Qt::QueuedConnection);
    transfer->start();
    QCoreApplication::exec();
}

} // namespace kx

#endif
