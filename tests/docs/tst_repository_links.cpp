// Links between the Markdown files of the sources, as someone follows them there.

#include "page.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace
{

const QString SOURCES = QStringLiteral(KX_SOURCES);

QStringList markdownFiles()
{
    return QStringList({"README.md", "CONTRIBUTING.md", "CHANGELOG.md", "RELEASING.md",
                        "SECURITY.md", "bench/README.md", "fuzz/README.md"})
           + sourceFiles("docs", "*.md");
}

// The files that a page links to, seen from the page; other sites and headings of the
// same page left out.
QStringList linkedFiles(const QString& page)
{
    static const QRegularExpression link(R"(\]\(([^)#:\s]+)(#[^)]*)?\))");
    QStringList files;
    for (auto found = link.globalMatch(page); found.hasNext();)
        files << found.next().captured(1);
    return files;
}

// Paths in backticks that begin with a folder of the sources; what a build makes left out.
QStringList namedFiles(const QString& page)
{
    static const QRegularExpression path("`([A-Za-z0-9_.]+)(/[A-Za-z0-9_./-]*)`");
    QStringList files;
    for (auto found = path.globalMatch(page); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        if (match.captured(1) != "build" && QDir(SOURCES).exists(match.captured(1)))
            files << match.captured(1) + match.captured(2);
    }
    return files;
}

// Sources are named without their extension where header and source are meant.
bool isThere(const QString& path)
{
    const QDir sources(SOURCES);
    return sources.exists(path) || sources.exists(path + ".h") || sources.exists(path + ".cpp");
}

} // namespace

class RepositoryLinksTest : public QObject
{
    Q_OBJECT

private slots:
    void linksLeadToFiles()
    {
        int links = 0;
        for (const QString& file : markdownFiles()) {
            const QDir folder = QFileInfo(SOURCES + "/" + file).dir();
            for (const QString& linked : linkedFiles(sourceText(file))) {
                ++links;
                QVERIFY2(folder.exists(linked), qPrintable(file + " links to " + linked));
            }
        }
        QVERIFY(links > 120); // of which most are in the reference
    }

    // The changelog tells of what has been.
    void namedFilesAreThere()
    {
        int named = 0;
        for (const QString& file : markdownFiles()) {
            if (file == "CHANGELOG.md")
                continue;
            for (const QString& path : namedFiles(sourceText(file))) {
                ++named;
                QVERIFY2(isThere(path), qPrintable(file + " names " + path));
            }
        }
        QVERIFY(named > 60);
    }

    // What only the site's builder understands would stand there as raw text.
    void pagesReadWellAsTheyAre()
    {
        for (const QString& file : markdownFiles())
            QVERIFY2(!sourceText(file).contains("```{"), qPrintable(file));
    }
};

QTEST_APPLESS_MAIN(RepositoryLinksTest)
#include "tst_repository_links.moc"
