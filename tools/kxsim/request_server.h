/// Finds Modbus RTU requests in received bytes and composes the replies from the
/// stations' memories. Knows no line: sending the reply is the caller's.
#ifndef KX_KXSIM_REQUEST_SERVER_H
#define KX_KXSIM_REQUEST_SERVER_H

#include "kxsim/stations.h"

#include <QtCore/QByteArray>

struct _modbus;

namespace kxsim
{

class RequestServer
{
public:
    enum Verdict {
        INCOMPLETE, ///< the bytes so far are the beginning of a request
        DAMAGED,    ///< no request begins at the first byte
        IGNORED,    ///< a request to a station that is not simulated
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
    /// carries it out. Requests that touch an address outside the map change
    /// nothing and are answered with exception 2, other functions than 1, 3, 5,
    /// 6, 15 and 16 with exception 1.
    /// @param carriesOut false: a request to one station changes nothing, and its
    ///                   reply is left empty
    Answer answer(const QByteArray& received, bool carriesOut = true);

private:
    Verdict find(const QByteArray& received, QByteArray* request);
    void execute(const QByteArray& request, ControllerMemory* memory);
    QByteArray takeReply();

    Stations* m_stations;
    _modbus* m_modbus;
    int m_modbusEnd; ///< libmodbus receives and replies here, as if on a line
    int m_ownEnd;
};

} // namespace kxsim

#endif
