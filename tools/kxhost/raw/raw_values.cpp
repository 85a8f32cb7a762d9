#include "kxhost/raw/raw_values.h"

#include "addresses/request_limits.h"
#include "exchange/failure.h"
#include "panel/text/frame_text.h"

#include <QtCore/QJsonArray>
#include <QtCore/QStringList>
#include <QtCore/QtEndian>

namespace kx
{

namespace
{

const int CONTENT = 2; // the byte at which it begins: behind station and function
const int CRC_LENGTH = 2;
const int BITS_PER_BYTE = 8;

int valueByteAt(const QByteArray& bytes, int position)
{
    return static_cast<unsigned char>(bytes.at(position));
}

int wordAt(const QByteArray& bytes, int position)
{
    return qFromBigEndian<quint16>(bytes.constData() + position);
}

/// What stands behind the byte count of a read; empty when the count is another.
QByteArray readData(const QByteArray& content)
{
    const bool isCounted = !content.isEmpty() && valueByteAt(content, 0) == content.size() - 1;
    return isCounted ? content.mid(1) : QByteArray();
}

QJsonArray coils(const QByteArray& request, const QByteArray& frame, const QByteArray& data)
{
    const int most = static_cast<int>(data.size()) * BITS_PER_BYTE;
    const bool isAsked = request.size() >= 6 && request.at(1) == frame.at(1);
    const int count = isAsked ? qMin(wordAt(request, 4), most) : most;
    QJsonArray values;
    for (int i = 0; i < count; ++i)
        values.append(valueByteAt(data, i / BITS_PER_BYTE) >> i % BITS_PER_BYTE & 1);
    return values;
}

QJsonArray registers(const QByteArray& data)
{
    QJsonArray values;
    for (int i = 0; i + 1 < data.size(); i += BYTES_PER_REGISTER)
        values.append(wordAt(data, i));
    return values;
}

QJsonObject written(int function, const QByteArray& content)
{
    const bool isSingle = function == 5 || function == 6;
    const int second = wordAt(content, 2);
    return {{QStringLiteral("address"), wordAt(content, 0)},
            {isSingle ? QStringLiteral("value") : QStringLiteral("quantity"), second}};
}

} // namespace

QString functionName(int function)
{
    switch (function & ~EXCEPTION_FLAG) {
    case 1:
        return QStringLiteral("read coils");
    case 2:
        return QStringLiteral("read discrete inputs");
    case 3:
        return QStringLiteral("read holding registers");
    case 4:
        return QStringLiteral("read input registers");
    case 5:
        return QStringLiteral("write single coil");
    case 6:
        return QStringLiteral("write single register");
    case 7:
        return QStringLiteral("read exception status");
    case 8:
        return QStringLiteral("diagnostics");
    case 15:
        return QStringLiteral("write multiple coils");
    case 16:
        return QStringLiteral("write multiple registers");
    case 17:
        return QStringLiteral("report server ID");
    case 22:
        return QStringLiteral("mask write register");
    case 23:
        return QStringLiteral("read and write registers");
    case 43:
        return QStringLiteral("encapsulated interface");
    default:
        return QStringLiteral("unknown");
    }
}

QJsonObject rawValues(const QByteArray& request, const QByteArray& frame)
{
    const int function = valueByteAt(frame, 1);
    const QByteArray content = frame.mid(CONTENT, frame.size() - CONTENT - CRC_LENGTH);
    if (function >= EXCEPTION_FLAG && content.size() == 1)
        return {{QStringLiteral("exception"), valueByteAt(content, 0)}};
    const QByteArray data = readData(content);
    if ((function == 1 || function == 2) && !data.isEmpty())
        return {{QStringLiteral("coils"), coils(request, frame, data)}};
    if ((function == 3 || function == 4) && !data.isEmpty() && data.size() % 2 == 0)
        return {{QStringLiteral("registers"), registers(data)}};
    const bool isWrite = function == 5 || function == 6 || function == 15 || function == 16;
    if (isWrite && content.size() == 4)
        return written(function, content);
    return {{QStringLiteral("data"), hexText(content)}};
}

QString rawValuesText(const QByteArray& request, const QByteArray& frame)
{
    const QJsonObject values = rawValues(request, frame);
    const QString exception = QStringLiteral("exception");
    if (values.contains(exception))
        return exceptionText(values.value(exception).toInt());
    QStringList parts;
    for (auto value = values.begin(); value != values.end(); ++value) {
        QStringList words = {value.key()};
        const QJsonArray elements = value->toArray();
        for (const QJsonValue element : elements)
            words << QString::number(element.toInt());
        if (value->isDouble())
            words << QString::number(value->toInt());
        else if (value->isString())
            words << (value->toString().isEmpty() ? QStringLiteral("none") : value->toString());
        parts << words.join(QLatin1Char(' '));
    }
    return parts.join(QLatin1String(", "));
}

} // namespace kx
