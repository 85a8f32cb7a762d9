#include "panel/text/reply_faults.h"

#include "addresses/request_limits.h"
#include "exchange/lines/frame_crc.h"
#include "exchange/lines/mbap_frames.h"
#include "exchange/replies/driver_request.h"
#include "panel/text/frame_text.h"

namespace kx
{

namespace
{

const int REFUSAL_LENGTH = 5; // station, function, code, CRC
const int CRC_BYTES = 2;
const int MOST_NOISE_SHOWN = 8; // bytes

struct HeaderField {
    const char* text; ///< with a place for its bytes
    int position;
    int size; ///< bytes
};

const HeaderField STATION_FIELD = {QT_TRANSLATE_NOOP("kx", "station %1"), 0, 1};
const HeaderField FUNCTION_FIELD = {QT_TRANSLATE_NOOP("kx", "function %1"), 1, 1};
const HeaderField BYTE_COUNT_FIELD = {QT_TRANSLATE_NOOP("kx", "byte count %1"), 2, 1};
const HeaderField ADDRESS_FIELD = {QT_TRANSLATE_NOOP("kx", "address %1"), 2, 2};
const HeaderField VALUE_FIELD = {QT_TRANSLATE_NOOP("kx", "value %1"), 4, 2};
const HeaderField QUANTITY_FIELD = {QT_TRANSLATE_NOOP("kx", "quantity %1"), 4, 2};

/// What the driver's request and its good reply have to do with each other.
struct ExpectedReply {
    QByteArray start; ///< of the reply; as far as it is known
    int length = 0;   ///< of the whole reply; 0: not known
    QVector<HeaderField> fields;
};

int numberOfByte(const QByteArray& bytes, int index)
{
    return static_cast<unsigned char>(bytes.at(index));
}

ExpectedReply expectedReply(const QByteArray& request)
{
    const int length = driverRequest(request).recvLen;
    const int function = request.size() < 2 ? 0 : numberOfByte(request, 1);
    if (length == 0)
        return {request.left(2), 0, {STATION_FIELD, FUNCTION_FIELD}};
    if (function <= 4) {
        const char dataBytes = static_cast<char>(length - REFUSAL_LENGTH); // as long without data
        return {
            request.left(2) + dataBytes, length, {STATION_FIELD, FUNCTION_FIELD, BYTE_COUNT_FIELD}};
    }
    const bool isSingle = function == 5 || function == 6;
    return {
        request.left(6),
        length,
        {STATION_FIELD, FUNCTION_FIELD, ADDRESS_FIELD, isSingle ? VALUE_FIELD : QUANTITY_FIELD}};
}

/// A refusal tells nothing of the request but its function.
ExpectedReply expectedRefusal(const QByteArray& request)
{
    QByteArray start = request.left(2);
    start[1] = static_cast<char>(start.at(1) | EXCEPTION_FLAG);
    return {start, REFUSAL_LENGTH, {STATION_FIELD, FUNCTION_FIELD}};
}

bool isRefusalOf(const QByteArray& request, const QByteArray& bytes)
{
    return request.size() >= 2 && bytes.size() >= 2
           && numberOfByte(bytes, 1) == (numberOfByte(request, 1) | EXCEPTION_FLAG);
}

ExpectedReply expectedFor(const QByteArray& request, const QByteArray& bytes)
{
    return isRefusalOf(request, bytes) ? expectedRefusal(request) : expectedReply(request);
}

QString insteadOf(const char* field, const QByteArray& came, const QByteArray& wanted,
                  Wording wording)
{
    return wording(QT_TRANSLATE_NOOP("kx", "%1 instead of %2"))
        .arg(wording(field).arg(hexText(came)), hexText(wanted));
}

QStringList headerFaults(const ExpectedReply& expected, const QByteArray& bytes, Wording wording)
{
    QStringList faults;
    for (const HeaderField& field : expected.fields) {
        const QByteArray came = bytes.mid(field.position, field.size);
        const QByteArray wanted = expected.start.mid(field.position, field.size);
        if (came.size() == field.size && came != wanted)
            faults << insteadOf(field.text, came, wanted, wording);
    }
    return faults;
}

QString noiseWords(const QByteArray& bytes, Wording wording)
{
    const QString more = bytes.size() > MOST_NOISE_SHOWN ? QStringLiteral(" ...") : QString();
    return wording(QT_TRANSLATE_NOOP("kx", "bytes in no frame (%1)"))
        .arg(hexText(bytes.left(MOST_NOISE_SHOWN)) + more);
}

/// Whether one of station and function is as it should be.
bool beginsAs(const ExpectedReply& expected, const QByteArray& bytes)
{
    return bytes.at(0) == expected.start.at(0)
           || (bytes.size() > 1 && expected.start.size() > 1
               && bytes.at(1) == expected.start.at(1));
}

QString damageWords(const QByteArray& request, const QByteArray& bytes, Wording wording)
{
    const ExpectedReply expected = expectedFor(request, bytes);
    if (expected.length == 0 || !beginsAs(expected, bytes))
        return noiseWords(bytes, wording);
    QStringList faults = headerFaults(expected, bytes, wording);
    const QString length = QString::number(expected.length);
    const QString size = QString::number(bytes.size());
    if (bytes.size() < expected.length) {
        faults << wording(QT_TRANSLATE_NOOP("kx", "cut short: %1 of %2 bytes")).arg(size, length);
        return faults.join(QLatin1String(", "));
    }
    const int end = expected.length - CRC_BYTES;
    const QByteArray crc = bytes.mid(end, CRC_BYTES);
    const QByteArray rightCrc = withCrc(bytes.left(end)).mid(end);
    if (crc != rightCrc)
        faults << insteadOf(QT_TRANSLATE_NOOP("kx", "CRC %1"), crc, rightCrc, wording);
    if (bytes.size() > expected.length)
        faults << wording(QT_TRANSLATE_NOOP("kx", "%1 bytes instead of %2")).arg(size, length);
    return faults.join(QLatin1String(", "));
}

QString otherFrameWords(const QByteArray& request, const QByteArray& frame,
                        const QByteArray& answer, Wording wording)
{
    if (frame == answer)
        return wording(QT_TRANSLATE_NOOP("kx", "the reply once more"));
    if (frame.at(0) != request.at(0))
        return wording(QT_TRANSLATE_NOOP("kx", "reply of station %1")).arg(numberOfByte(frame, 0));
    const int function = numberOfByte(frame, 1) & ~EXCEPTION_FLAG;
    if (request.size() < 2 || function != numberOfByte(request, 1))
        return wording(QT_TRANSLATE_NOOP("kx", "reply to function %1")).arg(function);
    return wording(QT_TRANSLATE_NOOP("kx", "reply of another request"));
}

} // namespace

QString partFaults(const QByteArray& request, const ReplyPart& part, const QByteArray& answer,
                   Wording wording)
{
    switch (part.kind) {
    case PartKind::Answer:
        return headerFaults(expectedFor(request, part.bytes), part.bytes, wording)
            .join(QLatin1String(", "));
    case PartKind::Damaged:
        return damageWords(request, part.bytes, wording);
    case PartKind::Echo:
        return wording(QT_TRANSLATE_NOOP("kx", "echo of the request"));
    case PartKind::OtherFrame:
        return otherFrameWords(request, part.bytes, answer, wording);
    case PartKind::Noise:
        break;
    }
    return noiseWords(part.bytes, wording);
}

QString replyFaults(const ExchangeRecord& record, Wording wording)
{
    if (isMbapReply(record.reply))
        return QString(); // its reason says so
    const QVector<ReplyPart> parts = partsOfReply(record);
    const QByteArray answer = answerAmong(parts);
    QString text;
    for (const ReplyPart& part : parts) {
        QString words = partFaults(record.request, part, answer, wording);
        if (words.isEmpty() && parts.size() > 1)
            words = wording(QT_TRANSLATE_NOOP("kx", "the reply"));
        text = text.isEmpty() ? words
                              : wording(QT_TRANSLATE_NOOP("kx", "%1, then %2")).arg(text, words);
    }
    return text;
}

} // namespace kx
