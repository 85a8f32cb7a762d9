#include "kxsim/service/commands.h"

#include <QtCore/QStringList>

namespace kxsim
{

namespace
{

QString errorLine(const QString& message)
{
    return QStringLiteral("error: ") + message;
}

QString getValues(const QString& address, Stations* stations)
{
    kx::AddressRange range;
    QList<quint32> values;
    QString error;
    if (!kx::parseAddressRange(address, &range, &error)
        || !stations->values(range, &values, &error))
        return errorLine(error);
    QStringList texts;
    for (const quint32 value : values)
        texts << QString::number(value);
    QString name = kx::addressText(range.type, range.address);
    if (range.station >= 0)
        name += QStringLiteral("@%1").arg(range.station);
    return name + QLatin1Char('=') + texts.join(QLatin1Char(','));
}

QString setValues(const QString& text, Stations* stations)
{
    kx::Assignment assignment;
    QString error;
    if (!kx::parseAssignment(text, &assignment, &error) || !stations->preset(assignment, &error))
        return errorLine(error);
    return QString();
}

} // namespace

QString runCommand(const QString& command, Stations* stations)
{
    const QString line = command.simplified();
    const QString verb = line.section(QLatin1Char(' '), 0, 0);
    const QString argument = line.section(QLatin1Char(' '), 1);
    if (line.isEmpty())
        return QString();
    if (verb == QLatin1String("get"))
        return getValues(argument, stations);
    if (verb == QLatin1String("set"))
        return setValues(argument, stations);
    return errorLine(
        QStringLiteral("'%1' is not a command; write get D100:4, set D100=5 or faults").arg(verb));
}

} // namespace kxsim
