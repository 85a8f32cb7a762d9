#include "exchange/lines/frame_crc.h"

#include <QtTest/QTest>

class FrameCrcTest : public QObject
{
    Q_OBJECT

private slots:
    void theLowByteComesFirst()
    {
        // Station 1, function 3, address 0, quantity 10: the CRC is CDC5.
        QCOMPARE(kx::withCrc(QByteArray::fromHex("01 03 0000 000A")),
                 QByteArray::fromHex("01 03 0000 000A C5CD"));
        QCOMPARE(kx::withCrc(QByteArray()), QByteArray::fromHex("FFFF"));
    }
};

QTEST_APPLESS_MAIN(FrameCrcTest)
#include "tst_frame_crc.moc"
