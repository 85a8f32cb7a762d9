// What libkxruntime gives to programs, and what it takes from others.

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace
{

QStringList linesOf(const char* program, const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromLocal8Bit(program), arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s: %s", program, qPrintable(process.errorString()));
    QStringList lines = QString::fromLatin1(process.readAllStandardOutput()).split('\n');
    lines.removeAll(QString());
    return lines;
}

// Lines of `nm -D -C` read "VALUE TYPE NAME", of undefined names without a value.
QStringList namesOf(const QStringList& options)
{
    static const QRegularExpression line("^ *[0-9a-f]* [A-Za-z] (.*)$");
    QStringList names;
    for (const QString& symbol :
         linesOf(KX_NM, QStringList("-D") + options + QStringList(KX_RUNTIME_LIBRARY)))
        names << line.match(symbol).captured(1);
    return names;
}

QStringList exportedNames()
{
    return namesOf({"-C", "--defined-only"});
}

QString sourceText(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
    return QString::fromUtf8(file.readAll());
}

QStringList driverNames()
{
    return sourceText(KX_EXPORTED_NAMES).split('\n').filter(QRegularExpression("^[^#]"));
}

// Lines of `readelf -d` read "0x... (NEEDED)  Shared library: [libc.so.6]".
QStringList dynamicEntries(const char* tag)
{
    QStringList values;
    for (const QString& line : linesOf(KX_READELF, {"-d", "-W", KX_RUNTIME_LIBRARY})) {
        if (line.contains(QString("(%1)").arg(tag)))
            values << line.section('[', 1).section(']', 0, 0);
    }
    return values;
}

} // namespace

class RuntimeExportsTest : public QObject
{
    Q_OBJECT

private slots:
    void everyNameIsInItsNamespace()
    {
        static const QRegularExpression ours(
            "^((typeinfo|typeinfo name|vtable) for |non-virtual thunk to )?kx::");
        const QStringList names = exportedNames();
        QVERIFY(names.size() > 100);
        for (const QString& name : names)
            QVERIFY2(ours.match(name).hasMatch(), qPrintable(name));
    }

    void whatARuntimeCallsIsExported_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name :
             {"kx::loadDriver(", "kx::parseAddressRange(", "kx::loadTags(", "kx::layOutRecipe(",
              "kx::RecipeFile::parse(QByteArray const&, int,", "vtable for kx::Line",
              "kx::Session::create(", "vtable for kx::Connection"})
            QTest::newRow(name) << QString(name);
    }

    void whatARuntimeCallsIsExported()
    {
        QFETCH(QString, name);
        const QStringList found =
            exportedNames().filter(QRegularExpression("^" + QRegularExpression::escape(name)));
        QCOMPARE(int(found.size()), 1);
    }

    void whatAHeaderDeclaresIsMarked_data()
    {
        QTest::addColumn<QString>("header");
        for (const QString& header : QString(KX_RUNTIME_HEADERS).split(' '))
            QTest::newRow(qPrintable(header)) << header;
    }

    // A program that calls what is not exported compiles, and cannot be linked.
    void whatAHeaderDeclaresIsMarked()
    {
        static const QRegularExpression unmarked(
            "^(class (?!KXRUNTIME_EXPORT )\\w+[^;{}]*\\{"
            // A member function that is not defined inside.
            "|struct (?!KXRUNTIME_EXPORT )\\w+ \\{(?:[^}]|\\}(?!;))*?\\n    \\w[^;{}=\n]*\\)( "
            "const)?;"
            "|(?!KXRUNTIME_EXPORT |inline |using |public|private|protected|signals|Q_)"
            "\\w[^;{}=/#]*\\([^;{}]*\\);)",
            QRegularExpression::MultilineOption);
        QFETCH(QString, header);
        const QString text = sourceText(KX_TOOLS "/" + header);
        QCOMPARE(unmarked.match(text).captured(), QString());
    }

    void whatIsInsideStaysHidden_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name :
             {"ExchangeLoop", "DriverPort", "ReplyCollector", "OwedReplies", "StrayBytes",
              "BoundedReader", "RecipeLayoutBuilder", "hasOnlyDigits", "modbusCrc",
              "findRegisterType", "REGISTER_TYPES"})
            QTest::newRow(name) << QString(name);
    }

    void whatIsInsideStaysHidden()
    {
        QFETCH(QString, name);
        const QStringList found = exportedNames().filter(QRegularExpression("\\b" + name + "\\b"));
        QCOMPARE(found, QStringList());
    }

    // A panel loads the driver of its controller, and may load others of the same names.
    void itTakesNothingFromTheDriver()
    {
        const QStringList driver = driverNames();
        QCOMPARE(int(driver.size()), 42);
        const QStringList taken = namesOf({"--undefined-only"});
        QVERIFY(taken.size() > 100);
        const QStringList given = namesOf({"--defined-only"});
        for (const QString& name : driver) {
            QVERIFY2(!taken.contains(name), qPrintable(name));
            QVERIFY2(!given.contains(name), qPrintable(name));
        }
    }

    void itIsLoadedByItsVersionedName()
    {
        QCOMPARE(dynamicEntries("SONAME"), QStringList("libkxruntime.so.1"));
    }

    void itNeedsThreeModulesOfQtAndTheRuntimeOfTheLanguage()
    {
        static const QRegularExpression allowed("^(libQt[56](Core|SerialPort|Network)\\.so\\.[56]|"
                                                "libstdc\\+\\+\\.so\\.6|libgcc_s\\.so\\.1|"
                                                "libc\\.so\\.6|libm\\.so\\.6|ld-linux.*)$");
        const QStringList needed = dynamicEntries("NEEDED");
        QVERIFY(needed.size() >= 3);
        for (const QString& library : needed)
            QVERIFY2(allowed.match(library).hasMatch(), qPrintable(library));
    }
};

QTEST_GUILESS_MAIN(RuntimeExportsTest)
#include "tst_runtime_exports.moc"
