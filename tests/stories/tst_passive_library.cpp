// Every call leaves the process as it was: nothing printed, no thread, open file or timer
// more, no file written, and no exception.

#include "stories/every_call.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <atomic>
#include <cstdio>
#include <sys/time.h>
#include <thread>
#include <unistd.h>

namespace
{

QStringList entries(const QString& directory)
{
    return QDir(directory).entryList(QDir::AllEntries | QDir::Hidden | QDir::System
                                     | QDir::NoDotAndDotDot);
}

/// Open files as "NUMBER TARGET". The one that lists the directory is gone by now.
QStringList openFiles()
{
    QStringList files;
    for (const QString& number : entries("/proc/self/fd")) {
        char target[1024];
        const QByteArray link = "/proc/self/fd/" + number.toLatin1();
        const ssize_t length = readlink(link.constData(), target, sizeof target);
        if (length > 0)
            files << number + " " + QString::fromLocal8Bit(target, static_cast<int>(length));
    }
    return files;
}

/// Timers of this process that run, by signal.
QStringList runningTimers()
{
    QStringList timers;
    for (const int kind : {ITIMER_REAL, ITIMER_VIRTUAL, ITIMER_PROF}) {
        itimerval value = {};
        getitimer(static_cast<__itimer_which>(kind), &value);
        if (value.it_value.tv_sec != 0 || value.it_value.tv_usec != 0)
            timers << QString::number(kind);
    }
    // Lists what was made with timer_create().
    std::FILE* const created = std::fopen("/proc/self/timers", "r");
    char line[256];
    while (created && std::fgets(line, sizeof line, created))
        timers << QString::fromLatin1(line);
    if (created)
        std::fclose(created);
    return timers;
}

void setTimer(int seconds)
{
    itimerval value = {};
    value.it_value.tv_sec = seconds;
    setitimer(ITIMER_REAL, &value, nullptr);
}

struct ProcessState {
    QStringList threads;
    QStringList files;
    QStringList timers;
    QStringList written; ///< in the working directory

    static ProcessState now()
    {
        return {entries("/proc/self/task"), openFiles(), runningTimers(), entries(".")};
    }

    bool operator==(const ProcessState& other) const
    {
        return threads == other.threads && files == other.files && timers == other.timers
               && written == other.written;
    }
};

/// Sends what is printed into a file for as long as it lives.
class Printed
{
public:
    Printed() : m_file(std::tmpfile())
    {
        std::fflush(nullptr);
        for (int stream = 0; stream < 2; ++stream) {
            m_streams[stream] = dup(stream + 1);
            dup2(fileno(m_file), stream + 1);
        }
    }

    ~Printed()
    {
        std::fflush(nullptr);
        for (int stream = 0; stream < 2; ++stream) {
            dup2(m_streams[stream], stream + 1);
            close(m_streams[stream]);
        }
        std::fclose(m_file);
    }

    QByteArray text() const
    {
        std::fflush(nullptr);
        QByteArray read(4096, '\0');
        const ssize_t length = pread(fileno(m_file), read.data(), 4096, 0);
        return read.left(static_cast<int>(length));
    }

private:
    Printed(const Printed&);
    Printed& operator=(const Printed&);

    std::FILE* m_file;
    int m_streams[2];
};

std::vector<Call> everyCall()
{
    std::vector<Call> calls = callsWithoutTheMutex();
    const std::vector<Call> more = callsWithTheMutex();
    calls.insert(calls.end(), more.begin(), more.end());
    return calls;
}

/// What the call and those before it changed; empty when they left all as it was.
QByteArray traceOf(const Call& call)
{
    const Printed printed;
    const ProcessState before = ProcessState::now();
    ProcessState inside = before;
    DriverFixture runtime("1#0#0#1#32");
    runtime.onReport = [&](const Report&) {
        if (inside == before)
            inside = ProcessState::now();
    };
    try {
        call.before(runtime);
        call.step(runtime);
    } catch (...) {
        return "an exception";
    }
    if (!(inside == before) || !(ProcessState::now() == before))
        return "a thread, file or timer";
    return printed.text();
}

} // namespace

class PassiveLibraryTest : public QObject
{
    Q_OBJECT

private slots:
    void everyCallLeavesNoTrace_data();
    void everyCallLeavesNoTrace();
    void tracesAreSeen_data();
    void tracesAreSeen();
};

void PassiveLibraryTest::everyCallLeavesNoTrace_data()
{
    QTest::addColumn<int>("number");
    int number = 0;
    for (const Call& call : everyCall())
        QTest::newRow(nameOf(call).constData()) << number++;
}

void PassiveLibraryTest::everyCallLeavesNoTrace()
{
    QFETCH(int, number);
    const QString here = QDir::currentPath();
    const QTemporaryDir directory;
    QVERIFY(QDir::setCurrent(directory.path()));
    const QByteArray trace = traceOf(everyCall().at(static_cast<size_t>(number)));
    QDir::setCurrent(here);
    QCOMPARE(trace, QByteArray());
}

void PassiveLibraryTest::tracesAreSeen_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("trace");
    const QByteArray resource = "a thread, file or timer";
    QTest::newRow("printed") << 0 << QByteArray("printed");
    QTest::newRow("printed as an error") << 1 << QByteArray("printed");
    QTest::newRow("exception") << 2 << QByteArray("an exception");
    QTest::newRow("open file") << 3 << resource;
    QTest::newRow("timer") << 4 << resource;
    QTest::newRow("thread") << 5 << resource;
}

// So that the rows above can fail.
void PassiveLibraryTest::tracesAreSeen()
{
    static std::FILE* file = nullptr;
    static std::atomic<bool> ends(false);
    static std::thread thread;
    const Step rest = [](DriverFixture&) {};
    const Call calls[] = {
        {"", "", rest, [](DriverFixture&) { std::fputs("printed", stdout); }},
        {"", "", rest, [](DriverFixture&) { std::fputs("printed", stderr); }},
        {"", "", rest, [](DriverFixture&) { throw 1; }},
        {"", "", rest, [](DriverFixture&) { file = std::tmpfile(); }},
        {"", "", rest, [](DriverFixture&) { setTimer(1000); }},
        {"", "", rest,
         [](DriverFixture&) {
             thread = std::thread([] {
                 while (!ends)
                     QTest::qSleep(1);
             });
         }},
    };
    QFETCH(int, number);
    ends = false;
    QTEST(traceOf(calls[number]), "trace");
    setTimer(0);
    if (number == 3)
        std::fclose(file);
    ends = true;
    if (thread.joinable())
        thread.join();
}

QTEST_APPLESS_MAIN(PassiveLibraryTest)
#include "tst_passive_library.moc"
