#include "kxpanel/project/seen_file.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace kxpanel;

class SeenFileTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void asItWasSeenItMayBeReplaced();
    void aChangedOneIsToldOnce();
    void byAnotherNameItIsTheSame();
    void othersMayBeReplaced();
    void oneThatIsGoneMayBeMadeAgain();

private:
    void store(const QByteArray& text);

    QTemporaryDir m_folder;
    QString m_path;
    QString m_error;
    SeenFile m_seen;
};

void SeenFileTest::init()
{
    m_path = m_folder.filePath("a.csv");
    m_error.clear();
    store("one");
    m_seen.see(m_path, "one");
}

void SeenFileTest::store(const QByteArray& text)
{
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("%s", qPrintable(m_path));
}

void SeenFileTest::asItWasSeenItMayBeReplaced()
{
    QVERIFY(m_seen.mayReplace(m_path, &m_error));
    QCOMPARE(m_error, QString());
}

void SeenFileTest::aChangedOneIsToldOnce()
{
    store("two");
    QVERIFY(!m_seen.mayReplace(m_path, &m_error));
    QCOMPARE(m_error, m_path
                          + ": another program has changed it since; save once more to replace "
                            "it, or save as another file");
    QVERIFY(m_seen.mayReplace(m_path, &m_error));
    store("three"); // again
    QVERIFY(!m_seen.mayReplace(m_path, &m_error));
}

void SeenFileTest::byAnotherNameItIsTheSame()
{
    store("two");
    QVERIFY(!m_seen.mayReplace(m_folder.filePath("./a.csv"), &m_error));
}

void SeenFileTest::othersMayBeReplaced()
{
    store("two");
    QVERIFY(m_seen.mayReplace(m_folder.filePath("b.csv"), &m_error));
    QVERIFY(SeenFile().mayReplace(m_path, &m_error)); // nothing is open
}

void SeenFileTest::oneThatIsGoneMayBeMadeAgain()
{
    QVERIFY(QFile::remove(m_path));
    QVERIFY(m_seen.mayReplace(m_path, &m_error));
    QCOMPARE(m_error, QString());
}

QTEST_GUILESS_MAIN(SeenFileTest)
#include "tst_seen_file.moc"
