/// The runtime of a fuzz run: what a panel hands to the driver, and nothing that
/// its headers leave to the panel is forgotten. Checks what they promise.
#ifndef KX_FUZZ_SUPPORT_PANEL_H
#define KX_FUZZ_SUPPORT_PANEL_H

#include "tarvelan_kx_series.h"

#include <QtCore/QByteArray>
#include <QtCore/QMutex>

#include <functional>
#include <vector>

class Panel
{
public:
    /// Brings the one driver object into the state of a freshly loaded library and
    /// initialises it.
    explicit Panel(const char* parameters);
    ~Panel();

    /// Without resources, the driver gets null pointers for the shared block, the
    /// recipe buffer, the status and the mutex.
    void initialise(const char* parameters, bool withResources = true);

    /// Registers one of two value-change functions, the first to begin with. They do the
    /// same; reports must come to the one registered last.
    void registerFunction(bool isSecond);

    void requestRecipeWrite() { m_shared[60115] = 1; }
    void requestRecipeRead() { m_shared[60116] = 1; }

    /// The offset of a recipe variable that the recipe buffer has room for: `wish`,
    /// or less. From each such offset on, the longest block fits.
    static int recipeOffset(int wish);

    /// Whether there is a request to send; it is then in request().
    bool poll();
    const FRAME_PRO& request() const { return m_request; }

    /// The request on the wire answered: well-formed bytes of the length expected,
    /// values from `values`.
    QByteArray goodReply(const QByteArray& values) const;

    /// Hands a reply over. A request whose answer would make more than MOST_MARKS
    /// records is dropped instead, and 0 returned.
    int deal(QByteArray reply);

    /// Checks what holds between any two calls.
    void check() const;

    /// Called inside the value-change function.
    std::function<void()> onReport;

private:
    static const int MOST_MARKS = 5000;

    static void firstFunction(int link, int station, QString name, int address);
    static void secondFunction(int link, int station, QString name, int address);
    static void valueChanged(bool isSecond, const QString& name);
    static bool isAffordable(const FRAME_PRO& request);

    std::vector<unsigned char> m_shared;
    std::vector<unsigned short> m_recipe;
    QMutex m_mutex;
    FRAME_PRO m_request;
    bool m_isSecond = false; ///< the value-change function registered last
};

/// Appends a frame's CRC, low byte first.
QByteArray withCrc(QByteArray frame);

#endif
