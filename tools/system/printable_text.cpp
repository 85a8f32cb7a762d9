#include "system/printable_text.h"

namespace kx
{

namespace
{

const int ESCAPE_DIGITS = 4; // hexadecimal

bool isObeyed(QChar character)
{
    const ushort code = character.unicode();
    return code < 0x20 || (code >= 0x7F && code <= 0x9F) // C0, DEL and C1
           || (code >= 0x2028 && code <= 0x202E)         // separators, embeddings and overrides
           || (code >= 0x2066 && code <= 0x2069);        // isolates
}

} // namespace

QString printableText(const QString& text)
{
    QString printable = text;
    for (QChar& character : printable) {
        if (isObeyed(character))
            character = QChar::ReplacementCharacter;
    }
    return printable;
}

QString printableJson(const QString& json)
{
    QString printable;
    printable.reserve(json.size());
    for (const QChar character : json) {
        if (isObeyed(character))
            printable += QStringLiteral("\\u%1").arg(character.unicode(), ESCAPE_DIGITS, 16,
                                                     QLatin1Char('0'));
        else
            printable += character;
    }
    return printable;
}

} // namespace kx
