#include "panel/values/ascii_text.h"

#include "addresses/digits.h"
#include "system/translated_text.h"

#include <QtCore/QVector>

namespace kx
{

namespace
{

struct Escape {
    char letter;
    char byte;
};

// The comma is read alone: it needs no backslash where no other value follows.
const Escape ESCAPES[] = {{'\\', '\\'}, {'"', '"'},  {'n', '\n'},
                          {'r', '\r'},  {'t', '\t'}, {',', ','}};

const char* const HEX_DIGITS = "0123456789ABCDEF";

/// The bytes that the first one of a character asks for.
int lengthOfCharacter(char first)
{
    const int byte = static_cast<uchar>(first);
    return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

bool isSeen(const QString& character)
{
    const QVector<uint> codes = character.toUcs4();
    if (codes.size() != 1 || !QChar::isPrint(codes.first()))
        return false;
    const QChar::Category category = QChar::category(codes.first());
    return category != QChar::Separator_Line && category != QChar::Separator_Paragraph;
}

QString escaped(char byte)
{
    for (const Escape& escape : ESCAPES) {
        if (byte == escape.byte && byte != ',')
            return QLatin1Char('\\') + QString(QLatin1Char(escape.letter));
    }
    return QLatin1String("\\x") + QLatin1Char(HEX_DIGITS[static_cast<uchar>(byte) >> 4])
           + QLatin1Char(HEX_DIGITS[static_cast<uchar>(byte) & 0xF]);
}

bool isEscaped(char byte)
{
    return byte == '\\' || byte == '"';
}

/// Appends what the backslash at `*position` begins, and moves behind it.
bool takeEscape(const QByteArray& text, int* position, QByteArray* bytes)
{
    const QByteArray digits = text.mid(*position + 2, 2);
    if (text.mid(*position + 1, 1) == "x" && digits.size() == 2
        && hasOnlyDigits(QString::fromLatin1(digits), 16)) {
        *bytes += static_cast<char>(digits.toInt(nullptr, 16));
        *position += 4;
        return true;
    }
    for (const Escape& escape : ESCAPES) {
        if (text.mid(*position + 1, 1) != QByteArray(1, escape.letter))
            continue;
        *bytes += escape.byte;
        *position += 2;
        return true;
    }
    return false;
}

} // namespace

QString escapedText(const QByteArray& bytes)
{
    int size = static_cast<int>(bytes.size());
    while (size > 0 && bytes.at(size - 1) == '\0')
        --size;
    QString text;
    for (int i = 0; i < size;) {
        const QByteArray piece = bytes.mid(i, lengthOfCharacter(bytes.at(i)));
        const QString character = QString::fromUtf8(piece);
        const bool isWhole = i + piece.size() <= size && character.toUtf8() == piece;
        if (isWhole && isSeen(character) && !isEscaped(bytes.at(i))) {
            text += character;
            i += piece.size();
        } else {
            text += escaped(bytes.at(i));
            ++i;
        }
    }
    return text;
}

bool parseEscapedText(const QString& text, QByteArray* bytes, QString* fault)
{
    const QByteArray utf8 = text.toUtf8();
    bytes->clear();
    for (int i = 0; i < utf8.size();) {
        if (utf8.at(i) != '\\') {
            *bytes += utf8.at(i);
            ++i;
        } else if (!takeEscape(utf8, &i, bytes)) {
            *fault = Text::tr("a backslash begins \\\\ \\\" \\n \\r \\t \\, or \\x and two "
                              "hexadecimal digits");
            return false;
        }
    }
    return true;
}

} // namespace kx
