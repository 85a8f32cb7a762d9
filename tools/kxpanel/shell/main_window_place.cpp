// Where the window stands, from one run to the next, and how it closes.

#include "kxpanel/machine/machine.h"
#include "kxpanel/shell/closing_question.h"
#include "kxpanel/shell/main_window.h"
#include "kxpanel/shell/project_keeper.h"

#include <QtCore/QSettings>
#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTabWidget>

namespace kxpanel
{

namespace
{

QString geometrySetting()
{
    return QStringLiteral("window/geometry");
}

QString pageSetting()
{
    return QStringLiteral("window/page");
}

QString placeSetting(const Page* page)
{
    return QStringLiteral("window/places/%1").arg(page->key());
}

} // namespace

void MainWindow::restorePlace()
{
    const QSize usual(130, 46); // characters and rows
    const QSize wanted(usual.width() * fontMetrics().horizontalAdvance(QLatin1Char('0')),
                       usual.height() * fontMetrics().lineSpacing());
    resize(wanted.boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    if (restoreGeometry(m_settings->value(geometrySetting()).toByteArray()))
        fitIntoScreen(); // else the desktop finds a place
    for (Page* const page : m_pages)
        page->setPlace(m_settings->value(placeSetting(page)).toByteArray());
    if (Page* const last = page(m_settings->value(pageSetting()).toString()))
        m_tabs->setCurrentIndex(static_cast<int>(m_pages.indexOf(last)));
}

/// The place may be of a screen that was larger, or is gone.
void MainWindow::fitIntoScreen()
{
    if (isMaximized() || isFullScreen())
        return;
    const QScreen* const there = QGuiApplication::screenAt(geometry().center());
    const QRect all = (there ? there : QGuiApplication::primaryScreen())->availableGeometry();
    const int title = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QRect room = all.adjusted(0, title, 0, 0); // of what is within the frame
    resize(size().boundedTo(room.size().expandedTo(minimumSizeHint())));
    QRect place = geometry();
    place.moveRight(qMin(place.right(), room.right()));
    place.moveBottom(qMin(place.bottom(), room.bottom()));
    place.moveLeft(qMax(place.left(), room.left()));
    place.moveTop(qMax(place.top(), room.top()));
    setGeometry(place);
}

/// Each question comes when the one before is answered; whoever stays answers none of the rest.
void MainWindow::askToClose()
{
    m_project->leave([this] {
        if (m_machine->isAtWork())
            askToEndWork(this, [this] { closeUnasked(); });
        else // not inside of another close()
            QMetaObject::invokeMethod(this, &MainWindow::closeUnasked, Qt::QueuedConnection);
    });
}

void MainWindow::closeUnasked()
{
    m_mayClose = true;
    close();
    m_mayClose = false;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!m_mayClose && (m_project->isChanged() || m_machine->isAtWork())) {
        event->ignore();
        askToClose();
        return;
    }
    m_settings->setValue(geometrySetting(), saveGeometry());
    for (const Page* const page : m_pages)
        m_settings->setValue(placeSetting(page), page->place());
    if (const Page* const current = currentPage())
        m_settings->setValue(pageSetting(), current->key());
    event->accept();
}

} // namespace kxpanel
