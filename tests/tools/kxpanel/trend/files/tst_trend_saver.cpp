#include "kxpanel/trend/files/trend_saver.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using kxpanel::TrendExport;
using kxpanel::TrendSaver;

namespace
{

const qint64 TEN = 1795428000000; // 2026-11-23T10:00:00Z, in milliseconds since 1970
const int PATIENCE = 20000;       // milliseconds; a disk may take its time

TrendExport exportTo(const QString& path, int rows)
{
    TrendExport recording;
    recording.path = path;
    recording.tags << kx::RecordedTag{QStringLiteral("Level"), 1, QStringLiteral("D1"), QString()};
    recording.places << 0;
    for (int row = 0; row < rows; ++row)
        recording.rows << kxpanel::TrendRow{{TEN + row, static_cast<double>(row)}, 0};
    return recording;
}

int linesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? static_cast<int>(file.readAll().count('\n')) : -1;
}

} // namespace

class TrendSaverTest : public QObject
{
    Q_OBJECT

private slots:
    void theCallerGoesOnMeanwhile_data();
    void theCallerGoesOnMeanwhile();
    void tellsWhatWentWrong();
    void whatIsBeingSavedIsWholeAtTheEnd();
    void whatGoesWrongAtTheEndIsSaid();
};

void TrendSaverTest::theCallerGoesOnMeanwhile_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("csv") << "day.csv";
    QTest::newRow("sqlite") << "day.sqlite";
}

void TrendSaverTest::theCallerGoesOnMeanwhile()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    TrendSaver saver;
    QSignalSpy ended(&saver, &TrendSaver::ended);
    saver.save(exportTo(folder.filePath(name), 1000));
    QVERIFY(saver.isSaving());
    QCOMPARE(ended.count(), 0); // never from within
    QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 1, PATIENCE);
    QCOMPARE(ended.last().at(0).toString(), QString());
    QVERIFY(!saver.isSaving());
    QVERIFY(QFile::exists(folder.filePath(name)));
    saver.save(exportTo(folder.filePath(name), 1)); // and once more
    QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 2, PATIENCE);
}

void TrendSaverTest::tellsWhatWentWrong()
{
    const QTemporaryDir folder;
    TrendSaver saver;
    QSignalSpy ended(&saver, &TrendSaver::ended);
    saver.save(exportTo(folder.filePath("no/where.csv"), 1));
    QTRY_COMPARE_WITH_TIMEOUT(ended.count(), 1, PATIENCE);
    QVERIFY(ended.last().at(0).toString().startsWith(folder.filePath("no/where.csv") + ": "));
}

void TrendSaverTest::whatIsBeingSavedIsWholeAtTheEnd()
{
    const QTemporaryDir folder;
    {
        TrendSaver saver;
        saver.save(exportTo(folder.filePath("day.csv"), 20000));
    }
    QCOMPARE(linesOf(folder.filePath("day.csv")), 20001); // with the heading
}

void TrendSaverTest::whatGoesWrongAtTheEndIsSaid()
{
    const QTemporaryDir folder;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("/no/where\\.csv: "));
    TrendSaver saver;
    saver.save(exportTo(folder.filePath("no/where.csv"), 1));
}

QTEST_GUILESS_MAIN(TrendSaverTest)

#include "tst_trend_saver.moc"
