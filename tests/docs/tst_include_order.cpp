// Includes point one way: each source against the table in docs/include-order.txt.

#include "page.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFileInfo>
#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtTest/QTest>

namespace
{

const QString SOURCES = QStringLiteral(KX_SOURCES);
const QString TABLE = QStringLiteral("docs/include-order.txt");

struct Include {
    QString file;   ///< that includes
    QString folder; ///< of that file
    QString target; ///< folder of the file included
};

struct Table {
    QStringList folders; ///< from the bottom up
    QMap<QString, QStringList> permitted;
    QMap<QString, QStringList> exceptions; ///< by file
};

QStringList words(const QString& text)
{
    QStringList result;
    for (const QString& word : text.split(' ')) {
        if (!word.isEmpty())
            result << word;
    }
    return result;
}

Table readTable()
{
    Table table;
    for (const QString& line : sourceText(TABLE).split('\n')) {
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        const QString name = line.section(':', 0, 0);
        const QStringList targets = words(line.section(':', 1));
        if (name.startsWith("! ")) {
            table.exceptions[name.mid(2)] = targets;
        } else {
            table.permitted[name] = targets.contains("*") ? table.folders : targets;
            table.folders << name;
        }
    }
    return table;
}

QString folderOf(const QString& file)
{
    return file.contains('/') ? file.section('/', 0, -2) : QStringLiteral(".");
}

QStringList sourceFiles()
{
    QStringList files;
    QDirIterator all(SOURCES, {"*.h", "*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString file = QDir(SOURCES).relativeFilePath(all.next());
        if (!file.startsWith("build"))
            files << file;
    }
    return files;
}

// Where the compiler finds it: beside the source, or below a folder that the build names.
QString includedFile(const QString& source, const QString& name)
{
    const QStringList roots = {folderOf(source),    ".",           "tools", "tests",
                               "tests/tools/kxsim", "tests/tools", "bench", "fuzz"};
    for (const QString& root : roots) {
        const QString file = QDir::cleanPath(root + "/" + name);
        if (QFileInfo(SOURCES + "/" + file).isFile())
            return file;
    }
    return QString();
}

QList<Include> includesOf(const QString& file)
{
    static const QRegularExpression line(R"(^\s*#\s*include\s*"([^"]+)\")",
                                         QRegularExpression::MultilineOption);
    QList<Include> includes;
    const QString text = sourceText(file);
    for (auto found = line.globalMatch(text); found.hasNext();) {
        const QString target = includedFile(file, found.next().captured(1));
        if (!target.isEmpty() && folderOf(target) != folderOf(file))
            includes << Include{file, folderOf(file), folderOf(target)};
    }
    return includes;
}

QList<Include> allIncludes()
{
    QList<Include> includes;
    for (const QString& file : sourceFiles())
        includes += includesOf(file);
    return includes;
}

} // namespace

class IncludeOrderTest : public QObject
{
    Q_OBJECT

private slots:
    void rowsNameOnlyEarlierRows()
    {
        const Table table = readTable();
        QVERIFY(table.folders.contains("driver"));
        for (int row = 0; row < table.folders.size(); ++row) {
            for (const QString& target : table.permitted[table.folders.at(row)])
                QVERIFY2(table.folders.mid(0, row).contains(target),
                         qPrintable(table.folders.at(row) + " names " + target));
        }
    }

    void sourcesKeepToTheTable()
    {
        const Table table = readTable();
        const QList<Include> includes = allIncludes();
        QVERIFY(includes.size() > 500);
        for (const Include& include : includes) {
            const bool permitted = table.permitted[include.folder].contains(include.target)
                                   || table.exceptions[include.file].contains(include.target);
            QVERIFY2(permitted, qPrintable(include.file + " looks up to " + include.target));
        }
    }

    // A row that nobody needs any more would let the next one look up unseen.
    void eachArrowIsNeeded()
    {
        const Table table = readTable();
        QSet<QString> arrows;
        for (const Include& include : allIncludes())
            arrows << include.folder + ">" + include.target << include.file + ">" + include.target;
        for (const QString& row : sourceText(TABLE).split('\n')) {
            if (row.startsWith('#') || row.contains('*'))
                continue;
            const QString name = row.section(':', 0, 0).remove("! ");
            for (const QString& target : words(row.section(':', 1)))
                QVERIFY2(arrows.contains(name + ">" + target),
                         qPrintable("nothing in " + name + " includes " + target));
        }
    }
};

QTEST_APPLESS_MAIN(IncludeOrderTest)
#include "tst_include_order.moc"
