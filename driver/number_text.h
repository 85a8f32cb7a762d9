/// Numbers written as text, the same with every Qt.
#ifndef TARVELAN_DRIVER_NUMBER_TEXT_H
#define TARVELAN_DRIVER_NUMBER_TEXT_H

#include <QtCore/QString>

/// A text with a zero character is no number, whatever stands before it: Qt 6's
/// conversions end there and call what they have read the whole.
inline bool holdsZeroCharacter(const QString& text)
{
    return text.contains(QChar(0));
}

/// The number that QString's conversion finds in the whole text, spaces around it and a
/// sign included; 0 when the text is no number or does not fit an int.
/// @param radix    2 to 36; no prefix is taken
/// @param isNumber set when not null
inline int numberIn(const QString& text, int radix, bool* isNumber = nullptr)
{
    if (!holdsZeroCharacter(text))
        return text.toInt(isNumber, radix);
    if (isNumber)
        *isNumber = false;
    return 0;
}

#endif
