/// Stations that understand one setting of the line, as those on a real line do.
#ifndef KX_TESTS_TOOLS_KXHOST_SCAN_ONE_FORMAT_LINE_H
#define KX_TESTS_TOOLS_KXHOST_SCAN_ONE_FORMAT_LINE_H

#include <QtCore/QList>
#include <QtCore/QString>

#include <atomic>
#include <thread>

namespace kx
{

/// A pseudo-terminal that carries everything, but whose stations look at the setting of the host's
/// end before they answer, from a thread of their own. Of the parity a pseudo-terminal keeps
/// nothing but whether it is odd.
class OneFormatLine
{
public:
    /// @param baud  in bits per second, one that has a constant: 38400
    /// @param isOdd odd parity, else even or none
    OneFormatLine(int baud, bool isOdd, const QList<int>& stations);
    ~OneFormatLine();
    OneFormatLine(const OneFormatLine&) = delete;
    OneFormatLine& operator=(const OneFormatLine&) = delete;

    QString name() const;

private:
    void serve();
    bool isUnderstood() const;
    void answer(int station) const;

    int m_baud;
    bool m_isOdd;
    QList<int> m_stations;
    int m_controller;
    int m_hostEnd; ///< held open, so that the line outlives a host that closes it
    std::atomic<bool> m_isOver{false};
    std::thread m_thread;
};

} // namespace kx

#endif
