#include "kxsim/line/slave_line.h"

#include <cerrno>
#include <unistd.h>

namespace kxsim
{

bool SlaveLine::receive(QByteArray* received)
{
    char bytes[512];
    const ssize_t length = read(m_descriptor, bytes, sizeof bytes);
    if (length > 0)
        received->append(bytes, static_cast<int>(length));
    return length > 0 || (length < 0 && (errno == EAGAIN || errno == EINTR));
}

void SlaveLine::send(const QByteArray& bytes)
{
    qint64 sent = 0;
    while (sent < bytes.size()) {
        const ssize_t length =
            write(m_descriptor, bytes.constData() + sent, static_cast<size_t>(bytes.size() - sent));
        if (length < 0 && errno == EINTR)
            continue;
        if (length <= 0)
            return;
        sent += length;
    }
}

} // namespace kxsim
