#include "kxsim/timing/pace.h"

#include <QtCore/QRegularExpression>

namespace kxsim
{

namespace
{

const int SLOWEST = 50; // bits per second
const int FASTEST = 4000000;
const int START_AND_DATA_BITS = 9;
const qint64 NANOSECONDS = 1000000000; // per second

} // namespace

Moment Pace::timeOf(qint64 characters) const
{
    return Moment(baud == 0 ? 0 : characters * bitsPerCharacter * NANOSECONDS / baud);
}

bool parsePace(const QString& text, Pace* pace, QString* error)
{
    static const QRegularExpression form(
        QStringLiteral("\\A([0-9]{1,7})(?:,8([NEOneo])([12]))?\\z"));
    const QRegularExpressionMatch parts = form.match(text);
    const int baud = parts.captured(1).toInt();
    if (baud < SLOWEST || baud > FASTEST) {
        *error = QStringLiteral("--pace %1: write bits per second, %2 to %3, and if need be the "
                                "format of a character: 9600 or 19200,8E1")
                     .arg(text, QString::number(SLOWEST), QString::number(FASTEST));
        return false;
    }
    const QString parity = parts.captured(2).toUpper();
    const bool hasParity = !parity.isEmpty() && parity != QLatin1String("N");
    const int stopBits = parts.captured(3) == QLatin1String("2") ? 2 : 1;
    *pace = {baud, START_AND_DATA_BITS + (hasParity ? 1 : 0) + stopBits};
    return true;
}

} // namespace kxsim
