#include "kxhost/listen/capture_file.h"

#include "listen/capture_format.h"
#include "tools/listen/heard_pieces.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>
#include <sys/resource.h>

using namespace kx;

class CaptureFileTest : public QObject
{
    Q_OBJECT

private slots:
    void growsAsItIsHeard();
    void replacesWhatWasThere();
    void cannotBeOpened();
    void aFullDiskIsTold();
    void aDiskThatFillsUpIsTold();
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

// It takes a part of the last packet.
void CaptureFileTest::aDiskThatFillsUpIsTold()
{
    const QString name = m_folder.filePath(QString::fromLatin1("full.pcap"));
    CaptureFile capture;
    QString error;
    QVERIFY(capture.open(name, &error));
    rlimit before;
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit full = {static_cast<rlim_t>(captureHeader().size() + 10), before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &full), 0);
    capture.add(frameOf("01 83 02"), 0);
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    QCOMPARE(capture.failure(),
             name + QString::fromLatin1(": cannot write the capture: File too large"));
}

void CaptureFileTest::nothingIsWrittenUnasked()
{
    CaptureFile capture;
    capture.add(frameOf("01 83 02"), 0);
    QCOMPARE(capture.failure(), QString());
}

QTEST_APPLESS_MAIN(CaptureFileTest)
#include "tst_capture_file.moc"
