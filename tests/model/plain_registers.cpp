#include "model/plain_driver.h"

#include <QtCore/QStringList>

namespace
{

struct Row {
    const char* name;
    const char* description[5];
    int split;
    int below;
    int from;
    int radix;
    int lowest;
    int limit;
};

const Row ROWS[13] = {
    {"X", {"OOO", "0", "377", "0", "1"}, 256, 1200, 0, 8, 0, 256},
    {"Y", {"OOO", "0", "377", "0", "1"}, 256, 0, 0, 8, 0, 256},
    {"M", {"ddddd", "0", "10239", "0", "1"}, 2048, 2000, 9952, 10, 0, 10240},
    {"SM", {"dddd", "0", "511", "0", "1"}, 256, 4400, 29744, 10, 0, 512},
    {"S", {"dddd", "0", "1023", "0", "1"}, 1024, 6000, 6000, 10, 0, 1024},
    {"T", {"ddd", "0", "255", "0", "1"}, 256, 8000, 8000, 10, 0, 256},
    {"C", {"ddd", "0", "255", "0", "1"}, 256, 9200, 9200, 10, 0, 256},
    {"D", {"dddd", "0", "7999", "1", "1"}, 8000, 0, 0, 10, 0, 8000},
    {"SD", {"ddd", "0", "511", "1", "1"}, 256, 8000, 11744, 10, 0, 512},
    {"CV", {"ddd", "0", "199", "1", "1"}, 200, 9500, 9500, 10, 0, 200},
    {"32CV", {"ddd", "200", "255", "2", "1"}, 256, 9500, 9500, 10, 200, 257},
    {"TV", {"ddd", "0", "255", "1", "1"}, 4096, 9000, 9000, 10, 0, 256},
    {"Z", {"ddd", "0", "15", "1", "1"}, 15, 8500, 8500, 10, 0, 16},
};

bool isOneOf(const QString& name, const char* list)
{
    return QString::fromLatin1(list).split(QLatin1Char(' ')).contains(name);
}

/// Steps that both checks share, from the unknown type on.
int checkRange(const QString& regType, const QString& text, int* addr, int length)
{
    const int row = catalogueRow(regType);
    if (row < 0)
        return 3;
    bool converted = false;
    *addr = text.contains(QChar(0)) ? 0 : text.toInt(&converted, ROWS[row].radix);
    if (!converted)
        return 4;
    const qint64 end = static_cast<qint64>(*addr) + length;
    if (*addr < ROWS[row].lowest || end > ROWS[row].limit)
        return 2;
    return 0;
}

} // namespace

bool isBitType(const QString& regType)
{
    return isOneOf(regType, "X Y M S SM T C");
}

bool isWordType(const QString& regType)
{
    return isOneOf(regType, "D SD TV CV Z");
}

bool is32Type(const QString& regType)
{
    return regType == QLatin1String("32CV");
}

int catalogueRow(const QString& regType)
{
    for (int row = 0; row < 13; ++row) {
        if (regType == QLatin1String(ROWS[row].name))
            return row;
    }
    return -1;
}

int modbusBase(const QString& regType, int address)
{
    const int row = catalogueRow(regType);
    if (row < 0)
        return 0;
    return address < ROWS[row].split ? ROWS[row].below : ROWS[row].from;
}

int PlainDriver::regListByType(int kind, QList<QString>& names)
{
    if (kind != 0 && kind != 1)
        return 0;
    const char* list = kind == 0 ? "X Y SM M S T C" : "D SD CV 32CV TV Z";
    const QStringList parts = QString::fromLatin1(list).split(QLatin1Char(' '));
    for (const QString& name : parts)
        names.append(name);
    return 1;
}

int PlainDriver::regDescription(const QString& regType, QList<QString>& description)
{
    const int row = catalogueRow(regType);
    if (row < 0)
        return 0;
    for (const char* column : ROWS[row].description)
        description.append(QString::fromLatin1(column));
    return 1;
}

int PlainDriver::checkAddrValidity(const QString& regType, const QString& text, int* addr,
                                   int length, int isWord)
{
    if (isBitType(regType) && isWord != 0)
        return 1;
    if ((isWordType(regType) || is32Type(regType)) && isWord == 0)
        return 1;
    return checkRange(regType, text, addr, length);
}

int PlainDriver::checkAddr(const QString& regType, const QString& text, int* addr, int dataType,
                           int length, int access)
{
    if (isBitType(regType) && dataType != -1)
        return 1;
    if ((isWordType(regType) || is32Type(regType)) && dataType == -1)
        return 1;
    if (regType == QLatin1String("X") && (access == 1 || access == 2))
        return 6;
    const bool fits32 =
        dataType == 1 || dataType == 3 || dataType == 5 || dataType == 6 || dataType == 9;
    if (is32Type(regType) && !fits32)
        return 5;
    return checkRange(regType, text, addr, length);
}

int PlainDriver::multiCopy(const QString& regType, int start, int count, int step,
                           QVector<QString>& texts, QVector<int>& addrs)
{
    const int row = catalogueRow(regType);
    if (row < 0)
        return 0;
    const int radix = ROWS[row].radix;
    const QString highest = QString::fromLatin1(ROWS[row].description[2]);
    const int max = highest.toInt(nullptr, radix);
    int result = 1;
    int address = start;
    for (int copy = 0; copy < count; ++copy) {
        if (address <= max) {
            addrs.append(address);
            texts.append(QString::number(static_cast<quint32>(address), radix));
        } else {
            addrs.append(max);
            texts.append(highest);
            result = 2;
        }
        address = wrapped(static_cast<qint64>(address) + step);
    }
    return result;
}

unsigned int PlainDriver::weight(int station, const QString& regType, int addr) const
{
    qint64 position = 0;
    for (int i = 0; i < regNames.size() && position == 0; ++i) {
        if (regNames.at(i) == regType)
            position = i + 1;
    }
    return static_cast<quint32>(65535 * (5 * static_cast<qint64>(station) + position) + addr);
}
