#include "panel/dump/controller_values.h"
#include "panel/dump/dump_file.h"
#include "support/require.h"
#include "tool_texts/texts.h"

#include <QtCore/QCryptographicHash>

using namespace kx;

namespace
{

// Few bytes become a header by chance.
const char* const HEADERS[] = {
    "", "kx-dump 1\n", "kx-dump 1\nread 2026-11-22T20:31:34.123Z to 2026-11-22T20:31:36.456Z\n",
    "kx-dump 1\nread 2026-11-22T20:31:34.123Z to 2026-11-22T20:31:36.456Z\nstation 1\n"};

/// With the last line that its lines ask for, as none has by chance.
QByteArray ended(const QByteArray& text)
{
    int values = 0;
    QCryptographicHash sum(QCryptographicHash::Sha256);
    for (QByteArray line : text.split('\n')) {
        while (line.endsWith(' ') || line.endsWith('\t') || line.endsWith('\r'))
            line.chop(1);
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        sum.addData(line + '\n');
        values += line.startsWith("station ") ? 0 : 1;
    }
    const int headLines = 2;
    return text + "\nend " + QByteArray::number(values - headLines) + ' ' + sum.result().toHex()
           + '\n';
}

void checkDump(const Dump& dump)
{
    require(valuesOf(dump.runs) >= 1, "a dump has a value");
    for (const Assignment& run : dump.runs) {
        checkRange(run.range);
        require(run.range.station != -1, "each value has a station");
        require(run.values.size() == run.range.values, "each address has a value");
        for (const qint64 value : run.values)
            require(value >= 0 && value <= highestValue(run.range.type), "a value fits");
    }
    Dump again;
    QString error;
    const QByteArray text = dumpText(dump);
    require(parseDump(text, QString(), &again, &error) && dumpText(again) == text,
            "a dump that is written out is the same dump");
}

} // namespace

void readDump(InputReader* input)
{
    Dump dump;
    const auto parse = [&](const QByteArray& text, QString* error) {
        return parseDump(text, QStringLiteral("memory.kxd"), &dump, error);
    };
    const QByteArray text = HEADERS[input->below(4)] + input->rest();
    if (takes(parse, text) || takes(parse, ended(text)))
        checkDump(dump);
    else
        require(dump.runs.isEmpty(), "a refused file leaves the dump alone");
}
