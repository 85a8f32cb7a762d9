#include "kxpanel/frames/frame_saver.h"

#include "../sample_exchanges.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace kxpanel;

class FrameSaverTest : public QObject
{
    Q_OBJECT

private slots:
    void tellsOfEachInItsOrder();
    void whatGoesWrongAtTheEndIsSaid();
    void whatWasToldIsNotSaidAgain();
};

void FrameSaverTest::tellsOfEachInItsOrder()
{
    const QTemporaryDir folder;
    FrameSaver saver;
    QSignalSpy ended(&saver, &FrameSaver::ended);
    saver.save(folder.filePath("one.txt"), answeredPolls(3));
    saver.save(folder.filePath("no/where.txt"), answeredPolls(2));
    saver.save(folder.filePath("two.txt"), answeredPolls(1));
    QCOMPARE(ended.count(), 0); // never from within
    QTRY_COMPARE(ended.count(), 3);
    QCOMPARE(ended.at(0), QVariantList({folder.filePath("one.txt"), 3, QString()}));
    QCOMPARE(ended.at(1).at(0).toString(), folder.filePath("no/where.txt"));
    QVERIFY(ended.at(1).at(2).toString().startsWith(folder.filePath("no/where.txt") + ": "));
    QCOMPARE(ended.at(2), QVariantList({folder.filePath("two.txt"), 1, QString()}));
}

void FrameSaverTest::whatGoesWrongAtTheEndIsSaid()
{
    const QTemporaryDir folder;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("/no/where\\.txt: "));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("/no/there\\.txt: "));
    FrameSaver saver;
    saver.save(folder.filePath("no/where.txt"), answeredPolls(1));
    saver.save(folder.filePath("saved.txt"), answeredPolls(1));
    saver.save(folder.filePath("no/there.txt"), answeredPolls(1));
}

void FrameSaverTest::whatWasToldIsNotSaidAgain()
{
    static QStringList warnings;
    const QtMessageHandler before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& text) { warnings << text; });
    {
        const QTemporaryDir folder;
        FrameSaver saver;
        QSignalSpy ended(&saver, &FrameSaver::ended);
        saver.save(folder.filePath("no/where.txt"), answeredPolls(1));
        ended.wait();
        saver.save(folder.filePath("saved.txt"), answeredPolls(1));
    }
    qInstallMessageHandler(before);
    QCOMPARE(warnings, QStringList());
}

QTEST_GUILESS_MAIN(FrameSaverTest)

#include "tst_frame_saver.moc"
