// What the library takes from others: memory, strings and the runtime's mutex. So it can
// neither print, throw, start a thread, set a timer, open a file nor ask the environment.

#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace
{

// As the linker sees them.
const char* const ALLOWED[] = {
    // C library: bytes.
    "mem(cmp|cpy|move|set|chr)|bcmp|strlen|__mem(cpy|move|set)_chk|__stack_chk_fail",
    // Run-time of the language. Containers of Qt pass on what others throw; nothing is thrown.
    "_ITM_(de)?registerTMCloneTable|__gmon_start__|__cxa_(atexit|finalize)|__gxx_personality_v0",
    "__cxa_(begin_catch|end_catch|rethrow)|_Unwind_Resume|_ZSt9terminatev",
    // What classes with virtual functions are.
    "_ZTVN10__cxxabiv1(17__class|20__si_class)_type_infoE",
    // Memory, and what happens when there is none.
    "_Zn[wa][jm].*|_Zd[la]Pv.*|_ZSt7nothrow|_Z(5qFreePv|7qMalloc[jm]|8qReallocPv[jm])",
    "_Z9qBadAllocv|_ZSt\\d+__throw_(length_errorPKc|bad_allocv|bad_array_new_lengthv)",
    // Values of Qt, and its version.
    "_ZNK?(7QString|9QListData|10QArrayData|10QByteArray|11QVectorData|9QtPrivate).*",
    "_Z(eq|ne|pl)RK7QStringS1_|qt_version_tag",
    // The runtime's mutex, taken and given back.
    "_ZN6QMutex(4lock|6unlock)Ev|_ZN11QBasicMutex(12lockInternal|14unlockInternal)Ev"};

bool isAllowed(const QString& name)
{
    for (const char* pattern : ALLOWED) {
        if (QRegularExpression("^(" + QString(pattern) + ")$").match(name).hasMatch())
            return true;
    }
    return false;
}

// Lines of `nm -P` read "NAME@VERSION TYPE".
QStringList importedNames()
{
    QProcess nm;
    nm.start(KX_NM, {"-D", "-P", "--undefined-only", KX_DRIVER_LIBRARY});
    if (!nm.waitForFinished() || nm.exitCode() != 0)
        qFatal("%s: %s", KX_NM, qPrintable(nm.errorString()));
    QStringList names;
    for (const QString& line : QString::fromLatin1(nm.readAllStandardOutput()).split("\n")) {
        if (!line.isEmpty())
            names << line.section(' ', 0, 0).section('@', 0, 0);
    }
    return names;
}

} // namespace

class ImportedNamesTest : public QObject
{
    Q_OBJECT

private slots:
    void takesMemoryStringsAndTheMutexAlone();
    void allElseIsRefused_data();
    void allElseIsRefused();
};

void ImportedNamesTest::takesMemoryStringsAndTheMutexAlone()
{
    const QStringList names = importedNames();
    QVERIFY(names.contains("memcpy")); // the list was read
    for (const QString& name : names)
        QVERIFY2(isAllowed(name), qPrintable(name));
}

void ImportedNamesTest::allElseIsRefused_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name :
         {"printf",
          "__printf_chk",
          "fprintf",
          "vfprintf",
          "puts",
          "putchar",
          "fputs",
          "write",
          "fwrite",
          "stdout",
          "stderr",
          "syslog",
          "perror",
          "_ZSt4cout",
          "_ZSt4cerr",
          "_ZNK14QMessageLogger7warningEPKcz",
          "_ZNK14QMessageLogger5debugEv",
          "_Z6qDebugPKcz",
          "_ZN6QDebugD1Ev",
          "open",
          "open64",
          "openat",
          "fopen",
          "fopen64",
          "socket",
          "mmap",
          "_ZN5QFile4openE6QFlagsIN9QIODevice12OpenModeFlagEE",
          "_ZN9QSettingsC1EP7QObject",
          "pthread_create",
          "thrd_create",
          "clone",
          "fork",
          "execve",
          "system",
          "_ZN7QThread5startENS_8PriorityE",
          "_ZN11QThreadPool14globalInstanceEv",
          "_ZNSt6thread15_M_start_threadESt10unique_ptrINS_6_StateESt14default_deleteIS1_EEPFvvE",
          "timer_create",
          "timerfd_create",
          "setitimer",
          "alarm",
          "sleep",
          "nanosleep",
          "_ZN7QObject10startTimerEiN2Qt9TimerTypeE",
          "_ZN6QTimerC1EP7QObject",
          "_ZN6QTimer10singleShotEiPK7QObjectPKc",
          "__cxa_throw",
          "__cxa_allocate_exception",
          "_ZSt20__throw_out_of_rangePKc",
          "abort",
          "exit",
          "getenv",
          "setlocale",
          "_Z7qgetenvPKc",
          "_ZN6QMutex7tryLockEi",
          "pthread_mutex_lock",
          "dlopen",
          "signal"})
        QTest::newRow(name) << QString(name);
}

// The patterns above let none of these through.
void ImportedNamesTest::allElseIsRefused()
{
    QFETCH(QString, name);
    QVERIFY(!isAllowed(name));
}

QTEST_GUILESS_MAIN(ImportedNamesTest)
#include "tst_imported_names.moc"
