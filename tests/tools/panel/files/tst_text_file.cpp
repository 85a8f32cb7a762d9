// Files that people write, and what else a path may lead to.

#include "panel/files/text_file.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <memory>
#include <sys/stat.h>

using namespace kx;

class TextFileTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void aFileIsReadWhole();
    void theLargestFileIsRead();
    void aLargerFileIsRefused();
    void whatNeverEndsIsRefusedAtTheLimit();
    void whatIsNoFileIsNamed_data();
    void whatIsNoFileIsNamed();

private:
    /// A sparse file of that length.
    QString fileOf(qint64 length);

    std::unique_ptr<QTemporaryDir> m_folder;
    QByteArray m_content;
    QString m_error;
};

void TextFileTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_content.clear();
    m_error.clear();
}

QString TextFileTest::fileOf(qint64 length)
{
    QFile file(m_folder->filePath("file"));
    const bool isMade = file.open(QIODevice::WriteOnly) && file.resize(length);
    return isMade ? file.fileName() : QString();
}

void TextFileTest::aFileIsReadWhole()
{
    QFile file(m_folder->filePath("tags.csv"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("a\r\nb\0c", 6));
    file.close();
    QVERIFY2(readTextFile(file.fileName(), &m_content, &m_error), qPrintable(m_error));
    QCOMPARE(m_content, QByteArray("a\r\nb\0c", 6));
    QVERIFY(readTextFile(QStringLiteral("/dev/null"), &m_content, &m_error));
    QCOMPARE(m_content, QByteArray());
}

void TextFileTest::theLargestFileIsRead()
{
    QVERIFY2(readTextFile(fileOf(16777216), &m_content, &m_error), qPrintable(m_error));
    QCOMPARE(static_cast<int>(m_content.size()), 16777216);
}

void TextFileTest::aLargerFileIsRefused()
{
    const QString path = fileOf(16777217);
    QVERIFY(!readTextFile(path, &m_content, &m_error));
    QCOMPARE(m_error, path + ": larger than 16 MiB, the most that such a file may have");
}

void TextFileTest::whatNeverEndsIsRefusedAtTheLimit()
{
    QVERIFY(!readTextFile(QStringLiteral("/dev/zero"), &m_content, &m_error));
    QCOMPARE(m_error, QString("/dev/zero: larger than 16 MiB, the most that such a file may have"));
}

void TextFileTest::whatIsNoFileIsNamed_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("fault");
    QTest::newRow("nothing there") << "none"
                                   << "No such file or directory";
    QTest::newRow("a folder") << "."
                              << "is a folder, not a file";
    QTest::newRow("a pipe that nobody writes to") << "pipe"
                                                  << "is a pipe; write its text into a file first";
}

void TextFileTest::whatIsNoFileIsNamed()
{
    QFETCH(QString, name);
    QFETCH(QString, fault);
    QCOMPARE(mkfifo(QFile::encodeName(m_folder->filePath("pipe")).constData(), 0600), 0);
    const QString path = m_folder->filePath(name);
    QVERIFY(!readTextFile(path, &m_content, &m_error));
    QCOMPARE(m_error, path + ": " + fault);
}

QTEST_APPLESS_MAIN(TextFileTest)
#include "tst_text_file.moc"
