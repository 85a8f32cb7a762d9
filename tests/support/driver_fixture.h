/// A runtime for tests: the resources that a panel hands to the driver, and a
/// value-change function that writes down each call.
#ifndef KX_TESTS_SUPPORT_DRIVER_FIXTURE_H
#define KX_TESTS_SUPPORT_DRIVER_FIXTURE_H

#include "tarvelan_kx_series.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMutex>
#include <QtCore/QString>

#include <functional>
#include <vector>

/// One call of the value-change function.
struct Report {
    int link;
    int station;
    QString name;
    int address;

    bool operator==(const Report& other) const
    {
        return link == other.link && station == other.station && name == other.name
               && address == other.address;
    }
};

/// Shows a failed comparison of reports in QCOMPARE.
char* toString(const Report& report);

/// What a runtime may transmit of a request; empty when it is not whole.
QByteArray wholeBytes(const FRAME_PRO& frame);

class DriverFixture
{
public:
    /// Brings the one driver object into the state of a freshly loaded library,
    /// then initialises it with `parameters` and registers the value-change
    /// function.
    explicit DriverFixture(const char* parameters = "1#0#0#3#32");
    ~DriverFixture();

    /// Initialises again, as a runtime that restarts communication does.
    void initialise(const char* parameters);

    /// Polls once; empty when there is nothing to send, or no whole request.
    QByteArray poll();

    /// The frame of the last poll() that gave one.
    const FRAME_PRO& polled() const { return m_polled; }

    /// Hands over a reply that lies in memory of its own, as long as it is; see
    /// lastError() for the error text.
    int deal(const QByteArray& reply);
    QString lastError() const { return m_lastError; }

    void requestRecipeWrite() { shared[60115] = 1; }
    void requestRecipeRead() { shared[60116] = 1; }

    /// Cached addresses whose last read went unanswered.
    static int unanswered();

    /// Values as the runtime reads them.
    static QByteArray data(int station, const char* regType, int address, int count, int bytes);

    QList<Report> reports; ///< calls of the value-change function, in order
    /// Called inside the value-change function, after the call was written down.
    std::function<void(const Report&)> onReport;

    std::vector<unsigned char> shared;  ///< the runtime's block with the request bytes
    std::vector<unsigned short> recipe; ///< the recipe buffer, 4096 words
    QMutex mutex;
    int status;

private:
    static void valueChanged(int link, int station, QString name, int address);

    FRAME_PRO m_polled;
    QString m_lastError;
};

/// Bytes from hex text with any spaces: bytes("01 03 00 64").
QByteArray bytes(const char* hex);

/// The same with the CRC (low byte first) appended, computed bit by bit here and
/// not by the library.
QByteArray withCrc(const char* hex);

/// A KEY_ADDRESS as a runtime makes it; `bitIndex` is -1 for bit types, else 0.
KEY_ADDRESS key(int station, const char* regType, int address, int count);

/// A job with a zeroed payload, and with payload bytes from hex text.
VARIABLE job(int station, const char* regType, int address, int count, const char* hex = "");

/// A recipe variable of link 1.
_RCP_VAR_PRO variable(int station, const QString& regType, int address, int count, int bufOffset);

#endif
