/// What the commands that end by themselves have in common.
#ifndef KX_KXHOST_READ_LOOP_H
#define KX_KXHOST_READ_LOOP_H

#include "kxhost/connection_options.h"
#include "kxhost/interrupt.h"

#include <QtCore/QCoreApplication>

/// Prints every exchange when the options ask for frames.
void showFrames(const DriverSession* session, const ConnectionOptions& options);

/// Why a request failed: "no reply", "exception 2 (illegal data address)".
QString reasonOf(const ExchangeRecord& record);

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

#endif
