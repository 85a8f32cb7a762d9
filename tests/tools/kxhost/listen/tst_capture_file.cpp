#include "kxhost/listen/capture_file.h"

#include "listen/capture_format.h"
#include "tools/listen/heard_pieces.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace kx;

class CaptureFileTest : public QObject
{
    Q_OBJECT

private slots:
    void growsAsItIsHeard();
    void replacesWhatWasThere();
    void cannotBeOpened();
    void aFullDiskIsTold();
    void nothingIsWrittenUnasked();

private:
    static QByteArray contentOf(const QString& name);

    QTemporaryDir m_folder;
};

QByteArray CaptureFileTest::contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
}

void CaptureFileTest::growsAsItIsHeard()
{
    const QString name = m_folder.filePath(QString::fromLatin1("a.pcap"));
    CaptureFile capture;
    QString error;
    QVERIFY(capture.open(name, &error));
    QCOMPARE(contentOf(name), captureHeader());
    const HeardPiece piece = frameOf("01 83 02");
    capture.add(piece, 1700000000123456);
    QCOMPARE(contentOf(name), captureHeader() + capturePacket(piece, 1700000000123456));
    QCOMPARE(capture.failure(), QString());
}

void CaptureFileTest::replacesWhatWasThere()
{
    const QString name = m_folder.filePath(QString::fromLatin1("b.pcap"));
    QFile before(name);
    QVERIFY(before.open(QIODevice::WriteOnly));
    before.write(QByteArray(1000, 'x'));
    before.close();
    CaptureFile capture;
    QString error;
    QVERIFY(capture.open(name, &error));
    QCOMPARE(contentOf(name), captureHeader());
}

void CaptureFileTest::cannotBeOpened()
{
    const QString name = m_folder.filePath(QString::fromLatin1("none/a.pcap"));
    CaptureFile capture;
    QString error;
    QVERIFY(!capture.open(name, &error));
    QCOMPARE(error, name
                        + QString::fromLatin1(": cannot write the capture: No such file or "
                                              "directory"));
}

void CaptureFileTest::aFullDiskIsTold()
{
    CaptureFile capture;
    QString error;
    QVERIFY(!capture.open(QString::fromLatin1("/dev/full"), &error));
    QCOMPARE(error, QString::fromLatin1("/dev/full: cannot write the capture: No space left on "
                                        "device"));
}

void CaptureFileTest::nothingIsWrittenUnasked()
{
    CaptureFile capture;
    capture.add(frameOf("01 83 02"), 0);
    QCOMPARE(capture.failure(), QString());
}

QTEST_APPLESS_MAIN(CaptureFileTest)
#include "tst_capture_file.moc"
