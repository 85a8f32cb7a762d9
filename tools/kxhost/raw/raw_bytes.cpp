#include "kxhost/raw/raw_bytes.h"

#include "addresses/digits.h"

namespace kx
{

namespace
{

QString withoutPrefix(const QString& word)
{
    return word.startsWith(QLatin1String("0x"), Qt::CaseInsensitive) ? word.mid(2) : word;
}

bool takeWord(const QString& word, QByteArray* bytes)
{
    const QString digits = withoutPrefix(word);
    const bool isWhole = digits.size() == 1 || digits.size() % 2 == 0;
    if (!isWhole || !hasOnlyDigits(digits, 16))
        return false;
    *bytes += QByteArray::fromHex(digits.toLatin1());
    return true;
}

} // namespace

bool parseRawBytes(const QStringList& words, QByteArray* bytes, QString* error)
{
    QString text = words.join(QLatin1Char(' '));
    text.replace(QLatin1Char(','), QLatin1Char(' '));
    const QStringList parts = text.simplified().split(QLatin1Char(' '));
    if (parts.first().isEmpty()) {
        *error = QStringLiteral("nothing to send; name bytes such as 01 03 00 00 00 01");
        return false;
    }
    for (const QString& part : parts) {
        if (takeWord(part, bytes))
            continue;
        *error =
            QStringLiteral("%1: must be bytes in hexadecimal, such as 01 03 00 00 00 01").arg(part);
        return false;
    }
    return true;
}

} // namespace kx
