// Without a Qt 4.8 at hand, the names that it does not know are kept out of the driver
// and of its tests by looking for them.
#include <QtCore/QDirIterator>
#include <QtCore/QRegularExpression>

#include <QtTest/QTest>

namespace
{

/// Tests that a build for Qt 4 leaves out, as their CMakeLists.txt says.
const char* const NOT_FOR_QT4[] = {"driver/tst_imported_names.cpp", "driver/tst_qt48_dialect.cpp",
                                   "stories/tst_passive_library.cpp",
                                   "support/tst_process_signal.cpp"};

QStringList linesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split('\n');
}

QStringList namesIn(const char* list)
{
    return linesOf(list).filter(QRegularExpression("^[^#]"));
}

bool isLetter(QChar c)
{
    return c.isLetter() || c == '_';
}

/// One expression for all names, each taken as a whole word.
QRegularExpression anyOf(const QStringList& names)
{
    QStringList words;
    for (const QString& name : names) {
        const QString before = isLetter(name.at(0)) ? "\\b" : "";
        const QString after = isLetter(name.at(name.size() - 1)) ? "\\b" : "";
        words << before + name + after;
    }
    return QRegularExpression(words.join('|'));
}

QRegularExpression newerThanQt48()
{
    return anyOf(namesIn(KX_NEWER_THAN_QT48));
}

QRegularExpression newerThanQt48OrCxx11()
{
    return anyOf(namesIn(KX_NEWER_THAN_QT48) + namesIn(KX_NEWER_THAN_CXX11));
}

QStringList sourcesIn(const QString& folder)
{
    QStringList paths;
    QDirIterator files(folder, {"*.cpp", "*.h"}, QDir::Files);
    while (files.hasNext())
        paths << files.next();
    return paths;
}

/// The driver's sources and headers, without the tests' and the tools'.
QStringList driverSources()
{
    QStringList paths = {QString(KX_SOURCE_DIR) + "/tarvelan_kx_series.cpp",
                         QString(KX_SOURCE_DIR) + "/tarvelan_kx_series.h"};
    for (const char* folder : {"driver", "registers", "planning", "modbus", "data"})
        paths << sourcesIn(QString(KX_SOURCE_DIR) + '/' + folder);
    return paths;
}

/// What a build for Qt 4 compiles of the tests.
QStringList testSources()
{
    QStringList paths;
    for (const char* folder :
         {"driver", "registers", "planning", "modbus", "data", "stories", "model", "support"})
        paths << sourcesIn(QString(KX_SOURCE_DIR) + "/tests/" + folder);
    for (const char* path : NOT_FOR_QT4)
        paths.removeOne(QString(KX_SOURCE_DIR) + "/tests/" + path);
    return paths;
}

void verifyWithout(const QRegularExpression& newer, const QStringList& paths)
{
    QVERIFY(paths.size() > 50);
    for (const QString& path : paths) {
        for (const QString& line : linesOf(path))
            QVERIFY2(!newer.match(line).hasMatch(), qPrintable(path + ": " + line));
    }
}

} // namespace

class Qt48DialectTest : public QObject
{
    Q_OBJECT

private slots:
    void theListsAreRead()
    {
        QVERIFY(namesIn(KX_NEWER_THAN_QT48).size() > 40);
        QVERIFY(namesIn(KX_NEWER_THAN_CXX11).size() > 10);
        for (const QString& name : namesIn(KX_NEWER_THAN_QT48) + namesIn(KX_NEWER_THAN_CXX11))
            QVERIFY2(QRegularExpression(name).isValid(), qPrintable(name));
    }

    void newerNamesAreFound_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<bool>("isNewer");
        QTest::newRow("literal") << "    name = QStringLiteral(\"D\");" << true;
        QTest::newRow("view") << "void check(QStringView text);" << true;
        QTest::newRow("first of a constant list") << "list.constFirst()" << true;
        QTest::newRow("constant iterator") << "list.cbegin()" << true;
        QTest::newRow("signal as pointer") << "connect(a, &A::changed, b, &B::update);" << true;
        QTest::newRow("digit separator") << "const int LIMIT = 10'000;" << true;
        QTest::newRow("attribute") << "[[nodiscard]] int count();" << true;
        QTest::newRow("number of the version") << "#if QT_VERSION_MAJOR < 5" << true;
        QTest::newRow("stream without quotes") << "qDebug().noquote() << text;" << true;
        QTest::newRow("is shared") << "return data.isShared();" << true;
        QTest::newRow("is shared with another") << "return list.isSharedWith(copy);" << false;
        QTest::newRow("exchange") << "old = qExchange(value, 0);" << true;
        QTest::newRow("environment") << "qunsetenv(\"NAME\");" << true;
        QTest::newRow("split without copies") << "text.splitRef(QLatin1Char(','))" << true;
        QTest::newRow("Latin-1 of a length") << "QLatin1String(bytes.constData(), 4)" << true;
        QTest::newRow("Latin-1 literal of a length") << "QLatin1String(\"a,b\", 3)" << true;
        QTest::newRow("Latin-1") << "f(QLatin1String(\"a,b\"), QLatin1String(name()), 1)" << false;
        QTest::newRow("unused result") << "int count() Q_REQUIRED_RESULT;" << false;
        QTest::newRow("join by a character") << "words.join(' ')" << true;
        QTest::newRow("join by a Latin-1 character") << "words.join(QLatin1Char(' '))" << true;
        QTest::newRow("join by a text") << "words.join(\" \")" << false;
        QTest::newRow("hex with separators") << "bytes.toHex(' ')" << true;
        QTest::newRow("hex") << "bytes.toHex().constData()" << false;
        QTest::newRow("formatted row") << "QTest::addRow(\"%d\", i) << i;" << true;
        QTest::newRow("row") << "QTest::newRow(\"one\") << 1;" << false;
        QTest::newRow("retried comparison") << "QTRY_COMPARE(spy.count(), 1);" << true;
        QTest::newRow("skipped for one reason") << "QSKIP(\"no memory\");" << true;
        QTest::newRow("column of a hash") << "QTest::addColumn<QHash<int, int>>(\"h\");" << true;
        QTest::newRow("column of a vector of the language")
            << "QTest::addColumn<std::vector<int>>(\"v\");" << true;
        QTest::newRow("column of a list") << "QTest::addColumn<QList<int>>(\"l\");" << false;
        QTest::newRow("name of which it is a part") << "int myQStringViewer;" << false;
        QTest::newRow("old ways") << "QString::fromLatin1(\"D\") list.first() 'a' nullptr" << false;
    }

    void newerNamesAreFound()
    {
        QFETCH(QString, line);
        const bool found = newerThanQt48OrCxx11().match(line).hasMatch();
        QTEST(found, "isNewer");
    }

    void theDriverUsesNone() { verifyWithout(newerThanQt48OrCxx11(), driverSources()); }

    /// They may be C++17.
    void itsTestsUseNoneOfQt() { verifyWithout(newerThanQt48(), testSources()); }
};

QTEST_APPLESS_MAIN(Qt48DialectTest)
#include "tst_qt48_dialect.moc"
