#include "kxpanel/connect/line_text.h"

#include <QtCore/QCoreApplication>

namespace kxpanel
{

namespace
{

enum class Mood { Resting, Waiting, Good, Bad };

QString lineWords(const char* text)
{
    return QCoreApplication::translate("LineText", text);
}

Mood moodOf(const LineStatus& status)
{
    switch (status.state) {
    case LineState::Closed:
        return status.fault.isEmpty() ? Mood::Resting : Mood::Bad;
    case LineState::Opening:
        return Mood::Waiting;
    case LineState::Open:
        return status.fault.isEmpty() ? Mood::Good : Mood::Waiting;
    case LineState::Interrupted:
        return Mood::Bad;
    }
    return Mood::Bad;
}

bool isDark(const QPalette& palette)
{
    const int middle = 128;
    return palette.color(QPalette::Window).lightness() < middle;
}

} // namespace

QString stateText(const LineStatus& status)
{
    switch (status.state) {
    case LineState::Closed:
        return lineWords(status.fault.isEmpty() ? QT_TRANSLATE_NOOP("LineText", "not connected")
                                                : QT_TRANSLATE_NOOP("LineText", "failed"));
    case LineState::Opening:
        return lineWords(QT_TRANSLATE_NOOP("LineText", "connecting"));
    case LineState::Open:
        return lineWords(status.fault.isEmpty() ? QT_TRANSLATE_NOOP("LineText", "connected")
                                                : QT_TRANSLATE_NOOP("LineText", "faulty"));
    case LineState::Interrupted:
        return lineWords(QT_TRANSLATE_NOOP("LineText", "lost, reopening"));
    }
    return QString();
}

QString stateSymbol(const LineStatus& status)
{
    switch (moodOf(status)) {
    case Mood::Resting:
        return QStringLiteral("\u25cb"); // a ring
    case Mood::Waiting:
        return QString(status.state == LineState::Opening ? QChar(0x25d4) : QChar(0x25b2));
    case Mood::Good:
        return QStringLiteral("\u25cf"); // a disc
    case Mood::Bad:
        return QStringLiteral("\u2716"); // a cross
    }
    return QString();
}

QColor stateColour(const LineStatus& status, const QPalette& palette)
{
    const bool dark = isDark(palette);
    switch (moodOf(status)) {
    case Mood::Resting:
        return palette.color(QPalette::WindowText);
    case Mood::Waiting:
        return dark ? QColor(0xe3b341) : QColor(0x8a5a00);
    case Mood::Good:
        return dark ? QColor(0x56d364) : QColor(0x116329);
    case Mood::Bad:
        return faultColour(palette);
    }
    return QColor();
}

QColor faultColour(const QPalette& palette)
{
    return isDark(palette) ? QColor(0xff7b72) : QColor(0xb31d28);
}

} // namespace kxpanel
