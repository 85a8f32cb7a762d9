#include "kxpanel/shell/file_drop.h"

#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtGui/QDropEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QDialog>

using namespace kxpanel;

class FileDropTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void takesOneFile_data();
    void takesOneFile();
    void itIsTakenAfterTheDrag();
    void whileSomethingIsAskedNothingIsTaken();

private:
    bool drag(const QList<QUrl>& urls);

    std::unique_ptr<QWidget> m_window;
    QStringList m_dropped;
};

void FileDropTest::init()
{
    m_dropped.clear();
    m_window = std::make_unique<QWidget>();
    connect(new FileDrop(m_window.get()), &FileDrop::dropped, this,
            [this](const QString& path) { m_dropped << path; });
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void FileDropTest::cleanup()
{
    m_window.reset();
}

/// Whether the window takes it; it is dropped then.
bool FileDropTest::drag(const QList<QUrl>& urls)
{
    QMimeData data;
    data.setUrls(urls);
    const QPoint place(5, 5);
    QDragEnterEvent enter(place, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton,
                          Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &enter);
    if (!enter.isAccepted())
        return false;
    QDragMoveEvent move(place, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton,
                        Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &move);
    QDropEvent drop(place, Qt::MoveAction | Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_window.get(), &drop);
    return move.isAccepted() && drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

void FileDropTest::takesOneFile_data()
{
    QTest::addColumn<QList<QUrl>>("urls");
    QTest::addColumn<QStringList>("dropped");
    const QUrl project("file:///home/me/line%203.kxpanel");
    QTest::newRow("a file") << QList<QUrl>{project} << QStringList{"/home/me/line 3.kxpanel"};
    QTest::newRow("two files") << QList<QUrl>{project, project} << QStringList();
    QTest::newRow("a page of the web")
        << QList<QUrl>{QUrl("https://example.com/a.kxpanel")} << QStringList();
    QTest::newRow("a text") << QList<QUrl>() << QStringList();
}

void FileDropTest::takesOneFile()
{
    QFETCH(QList<QUrl>, urls);
    QFETCH(QStringList, dropped);
    QCOMPARE(drag(urls), !dropped.isEmpty());
    QCoreApplication::processEvents();
    QCOMPARE(m_dropped, dropped);
}

// A question that follows would keep the other program waiting.
void FileDropTest::itIsTakenAfterTheDrag()
{
    QVERIFY(drag({QUrl("file:///a.csv")}));
    QCOMPARE(m_dropped, QStringList());
    QTRY_COMPARE(m_dropped, QStringList{"/a.csv"});
}

void FileDropTest::whileSomethingIsAskedNothingIsTaken()
{
    QDialog question(m_window.get());
    question.open();
    QVERIFY(!drag({QUrl("file:///a.csv")}));
    question.close();
    QVERIFY(drag({QUrl("file:///a.csv")}));
}

QTEST_MAIN(FileDropTest)
#include "tst_file_drop.moc"
