// Every frame of the page on the wire format is one that the driver sends or takes.

#include "page.h"
#include "support/driver_fixture.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

#include <cstring>

namespace
{

struct Frame {
    QString name; // request or reply
    QByteArray bytes;
    QByteArray explained; // the bytes of the table behind it
};

// The frames of one section: a line of a name and hex text, then a table whose second
// column explains the same bytes.
QList<Frame> framesOf(const QString& section)
{
    static const QRegularExpression frameLine("^(request|reply) +([0-9A-F ]+)$");
    static const QRegularExpression tableRow("^\\| [0-9-]+ \\| ([0-9A-F ]+) \\|");
    QList<Frame> frames;
    for (const QString& line : section.split('\n')) {
        const QRegularExpressionMatch frame = frameLine.match(line);
        const QRegularExpressionMatch row = tableRow.match(line);
        if (frame.hasMatch())
            frames << Frame{frame.captured(1), QByteArray::fromHex(frame.captured(2).toLatin1()),
                            QByteArray()};
        else if (row.hasMatch() && !frames.isEmpty())
            frames.last().explained += QByteArray::fromHex(row.captured(1).toLatin1());
    }
    return frames;
}

QList<Frame> framesUnder(const QString& title)
{
    return framesOf(between(sourceText("docs/wire-format.md"), "\n## " + title + "\n", "\n## "));
}

VARIABLE write(const char* type, int address, int count, const char* hex)
{
    VARIABLE write = job(1, type, address, count, hex);
    write.kind = WRITE_JOB;
    return write;
}

VARIABLE read(const char* type, int address, int count)
{
    VARIABLE read = job(1, type, address, count);
    read.kind = CYCLIC_READ_JOB;
    return read;
}

} // namespace

Q_DECLARE_METATYPE(VARIABLE)

class WireFormatTest : public QObject
{
    Q_OBJECT

private slots:
    void eachByteOfAFrameIsExplained();
    void theDriverSpeaksLikeThis_data();
    void theDriverSpeaksLikeThis();
};

void WireFormatTest::eachByteOfAFrameIsExplained()
{
    const QList<Frame> frames = framesOf(sourceText("docs/wire-format.md"));
    QCOMPARE(int(frames.size()), 18);
    for (const Frame& frame : frames) {
        QCOMPARE(frame.explained.toHex(' '), frame.bytes.toHex(' '));
        QCOMPARE(frame.bytes, withCrc(frame.bytes.left(frame.bytes.size() - 2).toHex()));
    }
}

void WireFormatTest::theDriverSpeaksLikeThis_data()
{
    QTest::addColumn<VARIABLE>("job");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("values"); // of the job's addresses, once answered

    QTest::newRow("Function 1: read coils")
        << read("X", 8, 10) << 1 << bytes("01 00 01 01 00 00 01 01 01 00");
    QTest::newRow("Function 3: read holding registers")
        << read("D", 100, 2) << 1 << bytes("D204 FFFF");
    QTest::newRow("Function 3 with 32CV") << read("32CV", 200, 2) << 1 << bytes("A0860100");
    QTest::newRow("Function 5: write single coil") << write("Y", 8, 1, "01") << 1 << bytes("01");
    QTest::newRow("Function 6: write single register")
        << write("D", 100, 1, "D204") << 1 << bytes("D204");
    QTest::newRow("Function 15: write multiple coils")
        << write("M", 0, 10, "01 00 01 01 00 00 00 00 01 01") << 1
        << bytes("01 00 01 01 00 00 00 00 01 01");
    QTest::newRow("Function 16: write multiple registers")
        << write("D", 100, 2, "3412 7856") << 1 << bytes("3412 7856");
    QTest::newRow("Function 16 with 32CV")
        << write("32CV", 200, 2, "A0860100") << 1 << bytes("A0860100");
    QTest::newRow("Exception replies") << read("D", 100, 2) << 8 << bytes("0000 0000");
}

void WireFormatTest::theDriverSpeaksLikeThis()
{
    QFETCH(VARIABLE, job);
    QFETCH(int, result);
    QFETCH(QByteArray, values);
    const QList<Frame> frames = framesUnder(QTest::currentDataTag());
    QCOMPARE(int(frames.size()), 2);
    QCOMPARE(frames.at(0).name, QString("request"));
    QCOMPARE(frames.at(1).name, QString("reply"));

    DriverFixture runtime("1#0#0#3#32");
    if (job.kind == WRITE_JOB)
        intf_setData(job.station, job.regType, job.address, job.count, job.data, WRITE_JOB);
    else
        driver.readList << job;
    QCOMPARE(runtime.poll().toHex(' '), frames.at(0).bytes.toHex(' '));
    QCOMPARE(runtime.polled().recvLen == frames.at(1).bytes.size(), result == 1);
    QCOMPARE(runtime.deal(frames.at(1).bytes), result);
    QCOMPARE(DriverFixture::data(job.station, qPrintable(job.regType), job.address, job.count,
                                 int(values.size())),
             values);
}

QTEST_APPLESS_MAIN(WireFormatTest)
#include "tst_wire_format.moc"
