/// Finds Modbus RTU requests in received bytes and composes the replies from the
/// stations' memories. Knows no line: sending the reply is the caller's.
#ifndef KX_KXSIM_REQUESTS_REQUEST_SERVER_H
#define KX_KXSIM_REQUESTS_REQUEST_SERVER_H

#include "kxsim/memory/stations.h"

#include <QtCore/QByteArray>

struct _modbus;

namespace kxsim
{

class RequestServer
{
public:
    enum Verdict {
        INCOMPLETE, ///< the bytes so far may be the beginning of a request
        DAMAGED,    ///< no request begins at the first byte
        IGNORED,    ///< a request to a station that is not simulated, or hears nothing
        EXECUTED    ///< carried out, if asked to; `reply` is empty for a broadcast
    };

    struct Answer {
        Verdict verdict;
        int requestLength; ///< bytes that the request takes of those received
        QByteArray reply;  ///< whole frame with CRC
    };

    /// `stations` must outlive the server.
    explicit RequestServer(Stations* stations);
    ~RequestServer();
    RequestServer(const RequestServer&) = delete;
    RequestServer& operator=(const RequestServer&) = delete;

    /// Judges the request at the beginning of `received`, which is not empty, and
    /// carries it out. What is refused changes nothing: requests that touch an address
    /// outside the map, and writes that touch an input, with exception 2, all else as
    /// formFault() and libmodbus say.
    /// @param carriesOut false: a request to one station changes nothing, and its
    ///                   reply is left empty
    Answer answer(const QByteArray& received, bool carriesOut = true);

private:
    void execute(const QByteArray& request, ControllerMemory* memory);
    QByteArray takeReply();

    Stations* m_stations;
    _modbus* m_modbus;
    int m_modbusEnd; ///< libmodbus replies here, as if on a line
    int m_ownEnd;
};

} // namespace kxsim

#endif
