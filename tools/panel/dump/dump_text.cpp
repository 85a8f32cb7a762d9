#include "panel/dump/dump_file.h"

#include "panel/dump/controller_values.h"
#include "panel/dump/dump_words.h"
#include "panel/text/json_time.h"

#include <QtCore/QCryptographicHash>

namespace kx
{

namespace
{

const char* const REMARK =
    "# Values of controllers; X and Y are octal. Any change of a value is found.\n";

QByteArray numbered(const char* word, int number)
{
    return word + QByteArray(" ") + QByteArray::number(number);
}

} // namespace

QByteArray dumpText(const Dump& dump)
{
    const QByteArray head = numbered(DUMP_WORD, DUMP_VERSION) + '\n';
    QByteArray body = READ_WORD + QByteArray(" ") + jsonTime(dump.begun).toLatin1() + ' ' + TO_WORD
                      + ' ' + jsonTime(dump.ended).toLatin1() + '\n';
    int station = 0;
    for (const Assignment& run : dump.runs) {
        if (run.range.station != station)
            body += numbered(STATION_WORD, station = run.range.station) + '\n';
        for (int i = 0; i < run.range.values; ++i)
            body += addressText(run.range.type, run.range.address + i).toLatin1() + ' '
                    + QByteArray::number(run.values.at(i)) + '\n';
    }
    const QByteArray sum = QCryptographicHash::hash(head + body, QCryptographicHash::Sha256);
    return head + REMARK + body + numbered(END_WORD, valuesOf(dump.runs)) + ' ' + sum.toHex()
           + '\n';
}

} // namespace kx
