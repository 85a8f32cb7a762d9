// What the built site adds to the Markdown: an index, a tree, the programs' manuals,
// the text of source files and the version.

#include "exported_names.h"
#include "page.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

namespace
{

const QString SITE = QStringLiteral(KX_SITE "/");

QString siteText(const QString& page)
{
    QFile file(SITE + page);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
    return QString::fromUtf8(file.readAll());
}

/// What the reader sees between the columns at both sides.
QString article(const QString& page)
{
    return between(siteText(page), "<article", "</article>");
}

/// The text without its markup.
QString plainText(QString html)
{
    html.remove(QRegularExpression("<[^>]*>"));
    return html.replace("&lt;", "<").replace("&gt;", ">").replace("&amp;", "&");
}

} // namespace

class SiteTest : public QObject
{
    Q_OBJECT

private slots:
    void everyPageSaysTheVersion();
    void theFrontPageListsPages_data();
    void theFrontPageListsPages();
    void exportedNamesAreInTheIndex();
    void namesOfTheRuntimeAreInTheIndex_data();
    void namesOfTheRuntimeAreInTheIndex();
    void indexOfDeclarations_data();
    void indexOfDeclarations();
    void theIndexLeadsSomewhere();
    void manualPages_data();
    void manualPages();
    void sourcesAreShown_data();
    void sourcesAreShown();
};

void SiteTest::everyPageSaysTheVersion()
{
    int pages = 0;
    QDirIterator files(SITE, {"*.html"}, QDir::Files, QDirIterator::Subdirectories);
    for (; files.hasNext(); ++pages) {
        const QString page = files.next().mid(SITE.size());
        const QString sidebar =
            between(siteText(page), "<span class=\"sidebar-brand-text\">", "</");
        QVERIFY2(sidebar == "tarvelan KX series driver " KX_VERSION, qPrintable(page));
    }
    QVERIFY(pages > 40);
}

void SiteTest::theFrontPageListsPages_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<bool>("isListed");
    QTest::newRow("page of the guide") << "guide/loading.html" << true;
    QTest::newRow("entry point") << "reference/intf_getSendFrame.html" << true;
    QTest::newRow("records") << "reference/records.html" << true;
    QTest::newRow("libkxruntime") << "reference/runtime/index.html" << true;
    QTest::newRow("program") << "tools/kxsim.html" << true;
    QTest::newRow("index of names") << "genindex.html" << true;
    QTest::newRow("heading inside a page") << "wire-format.html#exception-replies" << false;
}

void SiteTest::theFrontPageListsPages()
{
    QFETCH(QString, link);
    QFETCH(bool, isListed);
    QCOMPARE(article("index.html").contains("href=\"" + link + "\""), isListed);
}

void SiteTest::exportedNamesAreInTheIndex()
{
    const QString index = siteText("genindex.html");
    for (const QString& name : exportedNames())
        QVERIFY2(index.contains(QRegularExpression(">(\\w+::)?" + plainName(name) + "</a>")),
                 qPrintable(name));
}

void SiteTest::namesOfTheRuntimeAreInTheIndex_data()
{
    QTest::addColumn<QString>("name");
    for (const char* const name : {"Session", "AddressRange", "FailureKind", "LOWEST_STATION",
                                   "parseAddressRange", "RecipeValueType", "findRecipeValueType"})
        QTest::newRow(name) << QString(name);
}

void SiteTest::namesOfTheRuntimeAreInTheIndex()
{
    QFETCH(QString, name);
    QCOMPARE(int(siteText("genindex.html").count(">kx::" + name + "</a>")), 1);
}

void SiteTest::indexOfDeclarations_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("names");
    QTest::newRow("records") << "(record)" << 6;
    QTest::newRow("fields of the object") << "(field of tarvelan)" << 31;
    QTest::newRow("fields of a range") << "(field of KEY_ADDRESS)" << 10;
    QTest::newRow("fields of a request") << "(field of FRAME_PRO)" << 7;
    QTest::newRow("fields of a job") << "(field of VARIABLE)" << 6;
    QTest::newRow("fields of a recipe variable") << "(field of _RCP_VAR_PRO)" << 7;
    QTest::newRow("fields of a cached value") << "(field of _DATA_)" << 10;
    QTest::newRow("job kinds") << "(constant of JobKind)" << 6;
    QTest::newRow("results of a reply") << "(constant of ReplyResult)" << 4;
    QTest::newRow("results of an address check") << "(constant of AddressCheck)" << 7;
    QTest::newRow("single constants") << "(constant)" << 2;
}

void SiteTest::indexOfDeclarations()
{
    QFETCH(QString, kind);
    QFETCH(int, names);
    QCOMPARE(int(siteText("genindex.html").count(kind + "</a>")), names);
}

void SiteTest::theIndexLeadsSomewhere()
{
    static const QRegularExpression entry("href=\"(reference/[\\w-]+\\.html)#([^\"]+)\">[^<]+</a>");
    int entries = 0;
    for (auto found = entry.globalMatch(siteText("genindex.html")); found.hasNext(); ++entries) {
        const QRegularExpressionMatch match = found.next();
        QVERIFY2(siteText(match.captured(1)).contains("id=\"" + match.captured(2) + "\""),
                 qPrintable(match.captured()));
    }
    QVERIFY(entries > 130);
}

void SiteTest::manualPages_data()
{
    QTest::addColumn<QString>("program");
    QTest::newRow("kxhost") << "kxhost";
    QTest::newRow("kxpanel") << "kxpanel";
    QTest::newRow("kxsim") << "kxsim";
}

// Every section and every option of the manual page is on the site, of the same version.
void SiteTest::manualPages()
{
    QFETCH(QString, program);
    const QString manual = sourceText("docs/man/" + program + ".1");
    QVERIFY(manual.section('\n', 0, 0).contains("\"tarvelan KX series " KX_VERSION "\""));
    const QString page = plainText(article("tools/" + program + ".html")).simplified();
    static const QRegularExpression option(R"(\\-\\-([a-z\\-]+))");
    int options = 0;
    for (auto found = option.globalMatch(manual); found.hasNext(); ++options) {
        const QString name = "--" + found.next().captured(1).remove('\\');
        QVERIFY2(page.contains(name), qPrintable(name));
    }
    QVERIFY(options > 10);
    for (const char* section : {"Synopsis", "Options", "Commands", "Exit status", "Examples"}) {
        const bool isThere = manual.contains(".SH " + QString(section).toUpper());
        QVERIFY2(isThere || section == QString("Commands"), section); // a window has none
        QVERIFY2(!isThere || page.contains(section + QString('#')), section);
    }
}

void SiteTest::sourcesAreShown_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("whole file") << "reference/intf_setData.html"
                                << "#include <tarvelan_kx_series.h>" << true;
    QTest::newRow("part of a file") << "guide/exchange-loop.html"
                                    << "getSendFrame(&request) == 1" << true;
    QTest::newRow("not the rest of it") << "guide/exchange-loop.html"
                                        << "#include <QtCore/QLibrary>" << false;
    QTest::newRow("not its markers") << "examples/README.html"
                                     << "[loop]" << false;
    QTest::newRow("what a program prints") << "reference/intf_multiCopy.html"
                                           << sourceText("docs/examples/reference/"
                                                         "intf_multiCopy.expected")
                                           << true;
    QTest::newRow("declaration") << "reference/records.html"
                                 << "int bitIndex; " << true;
    QTest::newRow("its comment") << "reference/records.html"
                                 << "One address range that the runtime asks to have read." << true;
    QTest::newRow("class") << "reference/runtime/session.html"
                           << "static std::unique_ptr<Session> create(" << true;
    QTest::newRow("not its private part") << "reference/runtime/session.html"
                                          << "m_lastHandle" << false;
    QTest::newRow("function, its lines aligned without the mark of what is exported")
        << "reference/runtime/recipes.html"
        << "bool layOutRecipe(const QList<RecipeRow>& rows, int maxWords, RecipeLayout* layout,\n"
           "                  QString* error);"
        << true;
    QTest::newRow("the second of two overloads")
        << "reference/runtime/addresses.html"
        << "QList<Assignment> writePieces(const Assignment& assignment, int most);" << true;
}

void SiteTest::sourcesAreShown()
{
    QFETCH(QString, page);
    QFETCH(QString, text);
    QFETCH(bool, isShown);
    QCOMPARE(plainText(article(page)).contains(text), isShown);
}

QTEST_APPLESS_MAIN(SiteTest)
#include "tst_site.moc"
