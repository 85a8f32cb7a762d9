// scripts/screenshots: the pictures that it makes are those that the documentation shows.

#include "script_sandbox.h"

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtTest/QTest>

namespace
{

const QString SOURCES = QStringLiteral(KX_SOURCES "/");

QString sourceText(const QString& path)
{
    QFile file(SOURCES + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList pictures(const QString& folder)
{
    return QDir(folder).entryList({"*.png"}, QDir::Files, QDir::Name);
}

/// In the sandbox, with programs in place of those that show windows and take pictures of them.
ScriptResult takePictures(ScriptSandbox* sandbox)
{
    sandbox->addProgram("Xvfb", "echo 7 >&\"$2\"");
    // As the real one, which without --all finds what has the process or the name.
    sandbox->addProgram("xdotool",
                        "[ \"$1\" = search ] || exit 0\n"
                        "case $* in *' --all '*) echo \"$6\" ;; *) echo 4194311 ;; esac");
    sandbox->addProgram("maim", "for last; do :; done; echo picture >\"$last\"");
    sandbox->addProgram("pngquant", "cp \"$5\" \"$4\"");
    sandbox->addProgram("optipng");
    sandbox->addProgram("sleep");
    sandbox->addFile("build/window/bin/kxpanel");
    sandbox->addText("tools/kxpanel/demo/filling.kxpanel",
                     sourceText("tools/kxpanel/demo/filling.kxpanel"));
    return sandbox->run("scripts/screenshots", {});
}

} // namespace

class ScreenshotsTest : public QObject
{
    Q_OBJECT

private slots:
    void picturesAreThoseOfTheDocumentation();
    void eachPictureIsShown();
    void aWindowForEachLook();
    void withoutADisplay();
    void withoutAWindow();
};

void ScreenshotsTest::picturesAreThoseOfTheDocumentation()
{
    ScriptSandbox sandbox;
    const ScriptResult result = takePictures(&sandbox);
    QCOMPARE(result.errors, QStringList());
    QCOMPARE(result.exitCode, 0);
    const QStringList kept = pictures(SOURCES + "docs/images");
    QVERIFY(kept.size() >= 6);
    QCOMPARE(pictures(sandbox.path("docs/images")), kept);
}

void ScreenshotsTest::eachPictureIsShown()
{
    const QString pages =
        sourceText("docs/tools/kxpanel.md") + sourceText("docs/guide/commissioning.md");
    for (const QString& picture : pictures(SOURCES + "docs/images"))
        QVERIFY2(pages.contains("](../images/" + picture + ')'), qPrintable(picture));
}

void ScreenshotsTest::aWindowForEachLook()
{
    ScriptSandbox sandbox;
    takePictures(&sandbox);
    const QStringList calls = sandbox.calls();
    const QStringList windows = calls.filter(QRegularExpression("^kxpanel "));
    QCOMPARE(windows.size(), 4);
    for (const QString& window : windows) {
        QVERIFY2(window.startsWith("kxpanel --simulate "), qPrintable(window));
        QVERIFY2(window.endsWith("/filling.kxpanel"), qPrintable(window));
    }
    QCOMPARE(windows.filter(" --fault ").size(), 1);
    QSet<QString> shown;
    for (const QString& picture : calls.filter(QRegularExpression("^maim ")))
        shown << picture.section("--window ", 1).section(' ', 0, 0);
    QCOMPARE(shown.size(), 4);
}

void ScreenshotsTest::withoutADisplay()
{
    ScriptSandbox sandbox;
    sandbox.addProgram("Xvfb", "echo no room for a screen; exit 1");
    const ScriptResult result = sandbox.run("scripts/screenshots", {});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors,
             (QStringList{"scripts/screenshots: Xvfb does not start", "no room for a screen"}));
}

void ScreenshotsTest::withoutAWindow()
{
    ScriptSandbox sandbox;
    sandbox.addProgram("Xvfb", "echo 7 >&\"$2\"");
    sandbox.addProgram("xdotool", "exit 1");
    sandbox.addFile("build/window/bin/kxpanel", "echo kxpanel: a screen is missing >&2; exit 3");
    sandbox.addText("tools/kxpanel/demo/filling.kxpanel", "{}");
    const ScriptResult result = sandbox.run("scripts/screenshots", {});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.errors.value(0), QString("scripts/screenshots: kxpanel shows no window"));
    QVERIFY(!QDir(sandbox.path("docs/images")).exists());
}

QTEST_GUILESS_MAIN(ScreenshotsTest)
#include "tst_screenshots.moc"
