// What the page says below its table.

#include "kxpanel/grid/edit/watch_delegate.h"
#include "kxpanel/grid/watch_page.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>

namespace kxpanel
{

void WatchPage::explain(const QString& text, bool isFault)
{
    if (text.isEmpty() && !m_isExplained)
        return; // the message is another
    say(text, isFault);
    m_isExplained = !text.isEmpty();
}

void WatchPage::say(const QString& text, bool isFault)
{
    m_isExplained = false;
    QPalette colors = palette();
    if (isFault)
        colors.setColor(QPalette::WindowText, stateColor(CellState::NotWritten, colors));
    m_message->setPalette(colors);
    m_message->setText(text.isEmpty() || !isFault
                           ? text
                           : stateSymbol(CellState::NotWritten) + QLatin1Char(' ') + text);
}

void WatchPage::showFaults(const QStringList& faults)
{
    m_faults->setPlainText(faults.join(QLatin1Char('\n')));
    m_faults->setVisible(!faults.isEmpty());
}

} // namespace kxpanel
