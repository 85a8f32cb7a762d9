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

    // What only the site's builder understands would stand there as raw text.
    void pagesReadWellAsTheyAre()
    {
        for (const QString& file : markdownFiles())
            QVERIFY2(!sourceText(file).contains("```{"), qPrintable(file));
    }
};

QTEST_APPLESS_MAIN(RepositoryLinksTest)
#include "tst_repository_links.moc"
