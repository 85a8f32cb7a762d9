#ifndef KX_TESTS_RELAY_IMMEDIATE_SLAVE_H
#define KX_TESTS_RELAY_IMMEDIATE_SLAVE_H

#include <QtCore/QByteArray>

namespace kx
{

/// A station that answers every read at once, each register holding its own address and each coil
/// on at odd addresses, and that takes every write without keeping it.
class ImmediateSlave
{
public:
    /// A request's byte came in; the reply when it was the last one, else nothing. Requests of
    /// function codes 1 to 6 are known by their length of 8, 15 and 16 by their byte count.
    QByteArray take(char byte);

private:
    int lengthOfRequest() const;
    QByteArray reply() const;

    QByteArray m_request;
};

} // namespace kx

#endif
