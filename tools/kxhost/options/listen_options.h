/// The options of `kxhost listen`.
#ifndef KX_KXHOST_OPTIONS_LISTEN_OPTIONS_H
#define KX_KXHOST_OPTIONS_LISTEN_OPTIONS_H

#include "exchange/lines/line_timing.h"

#include <QtCore/QCommandLineParser>

namespace kx
{

struct ListenOptions {
    QString port;
    LineTiming timing;
    char parity = 'N';       ///< 'N', 'E' or 'O'
    int replyTimeout = 1000; ///< milliseconds
    int seconds = 0;         ///< 0: until it is ended
    QString captureFile;     ///< empty: none
    bool frames = false;
    bool json = false;
};

void addListenOptions(QCommandLineParser* parser);

/// Reads them. False and one line in `*error` when a value is wrong or no port is named.
bool parseListenOptions(const QCommandLineParser& parser, ListenOptions* options, QString* error);

} // namespace kx

#endif
