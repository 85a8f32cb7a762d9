// Without a Qt 4.8 at hand, the names that it does not know are kept out of the
// driver by looking for them.
#include <QtCore/QDirIterator>
#include <QtCore/QRegularExpression>

#include <QtTest/QTest>

namespace
{

QStringList linesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split('\n');
}

QStringList newerNames()
{
    return linesOf(KX_NEWER_NAMES).filter(QRegularExpression("^[^#]"));
}

bool isLetter(QChar c)
{
    return c.isLetter() || c == '_';
}

/// One expression for all names, each taken as a whole word.
QRegularExpression anyNewerName()
{
    QStringList words;
    for (const QString& name : newerNames()) {
        const QString before = isLetter(name.at(0)) ? "\\b" : "";
        const QString after = isLetter(name.at(name.size() - 1)) ? "\\b" : "";
        words << before + name + after;
    }
    return QRegularExpression(words.join('|'));
}

/// The driver's sources and headers, without the tests' and the tools'.
QStringList driverSources()
{
    QStringList paths = {QString(KX_SOURCE_DIR) + "/tarvelan_kx_series.cpp",
                         QString(KX_SOURCE_DIR) + "/tarvelan_kx_series.h"};
    for (const char* folder : {"driver", "registers", "planning", "modbus", "data"}) {
        QDirIterator files(QString(KX_SOURCE_DIR) + '/' + folder, {"*.cpp", "*.h"}, QDir::Files);
        while (files.hasNext())
            paths << files.next();
    }
    return paths;
}

} // namespace

class Qt48DialectTest : public QObject
{
    Q_OBJECT

private slots:
    void theListIsRead()
    {
        QVERIFY(newerNames().size() > 40);
        for (const QString& name : newerNames())
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
        QTest::newRow("name of which it is a part") << "int myQStringViewer;" << false;
        QTest::newRow("old ways") << "QString::fromLatin1(\"D\") list.first() 'a' nullptr" << false;
    }

    void newerNamesAreFound()
    {
        QFETCH(QString, line);
        const bool found = anyNewerName().match(line).hasMatch();
        QTEST(found, "isNewer");
    }

    void theDriverUsesNone()
    {
        const QRegularExpression newer = anyNewerName();
        const QStringList paths = driverSources();
        QVERIFY(paths.size() > 50);
        for (const QString& path : paths) {
            for (const QString& line : linesOf(path))
                QVERIFY2(!newer.match(line).hasMatch(), qPrintable(path + ": " + line));
        }
    }
};

QTEST_APPLESS_MAIN(Qt48DialectTest)
#include "tst_qt48_dialect.moc"
