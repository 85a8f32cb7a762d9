#include "panel/files/replaced_file.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace kx;

namespace
{

const char OLD_TEXT[] = "what was there before\n";

/// Lets no file of this process grow beyond so many bytes, as on a full disk, while it lives.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    void (*m_handler)(int);
    rlimit m_before = {};
};

struct stat statusOf(const QString& path)
{
    struct stat status = {};
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        qFatal("%s has no status", qPrintable(path));
    return status;
}

} // namespace

class ReplacedFileTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void fileIsReplaced();
    void fullDiskLeavesTheFile_data();
    void fullDiskLeavesTheFile();
    void modeStays_data();
    void modeStays();
    void ownerStays();
    void linkStays();
    void missingFolderIsNamed();
    void aNewFileIsMade();
    void tryingMakesNoFile();

private:
    QString path(const char* name = "filling.csv") const
    {
        return m_folder->filePath(QLatin1String(name));
    }
    QByteArray stored() const
    {
        QFile file(path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : file.errorString().toUtf8();
    }
    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files, QDir::Name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_error;
};

void ReplacedFileTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_error.clear();
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write(OLD_TEXT) > 0);
}

void ReplacedFileTest::fileIsReplaced()
{
    const QByteArray text(100000, 'x');
    QVERIFY2(replaceFile(path(), text, &m_error), qPrintable(m_error));
    QCOMPARE(stored(), text);
    QCOMPARE(files(), QStringList{"filling.csv"});
}

void ReplacedFileTest::fullDiskLeavesTheFile_data()
{
    QTest::addColumn<int>("room"); ///< bytes
    QTest::addColumn<int>("size"); ///< of the new text, bytes

    QTest::newRow("no room at all") << 0 << 100;
    QTest::newRow("room for half") << 50 << 100;
    QTest::newRow("room for all but the last byte") << 99 << 100;
    QTest::newRow("text longer than a buffer of 16 KiB") << 20000 << 40000;
}

void ReplacedFileTest::fullDiskLeavesTheFile()
{
    QFETCH(int, room);
    QFETCH(int, size);
    {
        const FileSizeLimit limit(static_cast<rlim_t>(room));
        QVERIFY(!replaceFile(path(), QByteArray(size, 'x'), &m_error));
    }
    QCOMPARE(m_error, path() + QStringLiteral(": File too large"));
    QCOMPARE(stored(), QByteArray(OLD_TEXT));
    QCOMPARE(files(), QStringList{"filling.csv"});
    QVERIFY2(replaceFile(path(), QByteArray(size, 'x'), &m_error), qPrintable(m_error));
    QCOMPARE(stored(), QByteArray(size, 'x'));
}

void ReplacedFileTest::modeStays_data()
{
    QTest::addColumn<int>("mode");

    QTest::newRow("private") << 0600;
    QTest::newRow("read by the group") << 0640;
    QTest::newRow("written by all") << 0666;
    QTest::newRow("executed, for what that is worth") << 0751;
}

void ReplacedFileTest::modeStays()
{
    QFETCH(int, mode);
    QCOMPARE(::chmod(QFile::encodeName(path()).constData(), static_cast<mode_t>(mode)), 0);
    QVERIFY2(replaceFile(path(), "new", &m_error), qPrintable(m_error));
    QCOMPARE(static_cast<int>(statusOf(path()).st_mode & 07777), mode);
}

// Only root may give a file away; for everyone else the owner is the same all along.
void ReplacedFileTest::ownerStays()
{
    const uid_t owner = ::geteuid() == 0 ? 12345 : ::geteuid();
    const gid_t group = ::geteuid() == 0 ? 23456 : ::getegid();
    QCOMPARE(::chown(QFile::encodeName(path()).constData(), owner, group), 0);
    QCOMPARE(::chmod(QFile::encodeName(path()).constData(), 0664), 0);
    QVERIFY2(replaceFile(path(), "new", &m_error), qPrintable(m_error));
    QCOMPARE(stored(), QByteArray("new"));
    QCOMPARE(statusOf(path()).st_uid, owner);
    QCOMPARE(statusOf(path()).st_gid, group);
    QCOMPARE(static_cast<int>(statusOf(path()).st_mode & 07777), 0664);
}

void ReplacedFileTest::linkStays()
{
    const QString link = path("link.csv");
    QVERIFY(QFile::link(QStringLiteral("filling.csv"), link));
    QVERIFY2(replaceFile(link, "new", &m_error), qPrintable(m_error));
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(stored(), QByteArray("new"));
    QCOMPARE(files(), (QStringList{"filling.csv", "link.csv"}));
}

void ReplacedFileTest::missingFolderIsNamed()
{
    const QString lost = path("no/filling.csv");
    QVERIFY(!replaceFile(lost, "new", &m_error));
    QCOMPARE(m_error, lost + QStringLiteral(": No such file or directory"));
    QVERIFY(!canReplaceFile(lost, &m_error));
}

void ReplacedFileTest::aNewFileIsMade()
{
    QVERIFY2(replaceFile(path("new.csv"), "new", &m_error), qPrintable(m_error));
    QCOMPARE(files(), (QStringList{"filling.csv", "new.csv"}));
}

void ReplacedFileTest::tryingMakesNoFile()
{
    QVERIFY2(canReplaceFile(path("new.csv"), &m_error), qPrintable(m_error));
    QVERIFY2(canReplaceFile(path(), &m_error), qPrintable(m_error));
    QCOMPARE(files(), QStringList{"filling.csv"});
    QCOMPARE(stored(), QByteArray(OLD_TEXT));
}

QTEST_APPLESS_MAIN(ReplacedFileTest)
#include "tst_replaced_file.moc"
