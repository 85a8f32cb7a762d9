#include "panel/files/file_text.h"

#include "system/translated_text.h"

#include <QtCore/QVector>
#include <QtCore/QtEndian>

namespace kx
{

namespace
{

const char UTF8_MARK[] = "\xEF\xBB\xBF";
const char UTF16_LITTLE_ENDIAN_MARK[] = "\xFF\xFE";
const char UTF16_BIG_ENDIAN_MARK[] = "\xFE\xFF";
const int UNIT_BYTES = 2; // of UTF-16

const uint REPLACEMENT = QChar::ReplacementCharacter;
const char REPLACEMENT_IN_UTF8[] = "\xEF\xBF\xBD";

int bytesInUtf8(uint character)
{
    return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

bool decodeUtf16(const QByteArray& bytes, TextEncoding encoding, QByteArray* utf8, QString* error)
{
    QString text;
    for (int i = 0; i + 1 < bytes.size(); i += UNIT_BYTES) {
        const char* const unit = bytes.constData() + i;
        text += QChar(encoding == TextEncoding::Utf16BigEndian ? qFromBigEndian<quint16>(unit)
                                                               : qFromLittleEndian<quint16>(unit));
    }
    *utf8 = text.toUtf8();
    if (bytes.size() % UNIT_BYTES == 0 && text.isValidUtf16())
        return true;
    *error = Text::tr("damaged UTF-16; save the file as UTF-8");
    return false;
}

QByteArray encodeUtf16(const QByteArray& utf8, TextEncoding encoding)
{
    QByteArray bytes;
    for (const QChar unit : QString::fromUtf8(utf8.constData(), static_cast<int>(utf8.size()))) {
        const char high = static_cast<char>(unit.row());
        const char low = static_cast<char>(unit.cell());
        const bool isHighFirst = encoding == TextEncoding::Utf16BigEndian;
        bytes += isHighFirst ? high : low;
        bytes += isHighFirst ? low : high;
    }
    return bytes;
}

bool failAt(int column, const QString& fault, QString* error)
{
    *error = Text::tr("column %1: %2; save the file as UTF-8").arg(column).arg(fault);
    return false;
}

} // namespace

bool decodeText(const QByteArray& bytes, QByteArray* utf8, TextEncoding* encoding, QString* error)
{
    *encoding = bytes.startsWith(UTF8_MARK)                  ? TextEncoding::MarkedUtf8
                : bytes.startsWith(UTF16_LITTLE_ENDIAN_MARK) ? TextEncoding::Utf16LittleEndian
                : bytes.startsWith(UTF16_BIG_ENDIAN_MARK)    ? TextEncoding::Utf16BigEndian
                                                             : TextEncoding::Utf8;
    switch (*encoding) {
    case TextEncoding::Utf8:
        *utf8 = bytes;
        return true;
    case TextEncoding::MarkedUtf8:
        *utf8 = bytes.mid(static_cast<int>(qstrlen(UTF8_MARK)));
        return true;
    default:
        return decodeUtf16(bytes.mid(UNIT_BYTES), *encoding, utf8, error);
    }
}

QByteArray encodeText(const QByteArray& utf8, TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::MarkedUtf8:
        return UTF8_MARK + utf8;
    case TextEncoding::Utf16LittleEndian:
        return UTF16_LITTLE_ENDIAN_MARK + encodeUtf16(utf8, encoding);
    case TextEncoding::Utf16BigEndian:
        return UTF16_BIG_ENDIAN_MARK + encodeUtf16(utf8, encoding);
    default:
        return utf8;
    }
}

bool checkUtf8(const QByteArray& line, QString* error)
{
    if (line.startsWith(UTF8_MARK)) // two files in one
        return failAt(1, Text::tr("a second byte-order mark"), error);
    const QString text = QString::fromUtf8(line.constData(), static_cast<int>(line.size()));
    int column = 0;
    int offset = 0;
    for (const uint character : text.toUcs4()) {
        ++column;
        if (character == 0)
            return failAt(column, Text::tr("a byte that is 0"), error);
        if (character == REPLACEMENT && line.mid(offset, 3) != REPLACEMENT_IN_UTF8)
            return failAt(column,
                          Text::tr("byte 0x%1 is not UTF-8")
                              .arg(static_cast<uchar>(line.at(offset)), 2, 16, QLatin1Char('0')),
                          error);
        offset += bytesInUtf8(character);
    }
    return true;
}

} // namespace kx
