#include "kxhost/views/watch/table_window.h"

#include "kxhost/views/entry_text.h"
#include "panel/text/counted.h"

#include <algorithm>

namespace kx
{

namespace
{

bool contains(const WatchEntry& entry, const QString& text)
{
    return entry.name.contains(text, Qt::CaseInsensitive)
           || shownAddress(entry).contains(text, Qt::CaseInsensitive);
}

} // namespace

void TableWindow::setFilter(const QString& text, const QVector<WatchEntry>& entries)
{
    if (text != m_filter)
        m_first = 0;
    m_filter = text;
    m_total = static_cast<int>(entries.size());
    m_matches.clear();
    for (int i = 0; !text.isEmpty() && i < m_total; ++i) {
        if (contains(entries.at(i), text))
            m_matches.push_back(i);
    }
    scrollRows(0);
}

void TableWindow::setRoom(int lines)
{
    m_lines = lines;
    scrollRows(0);
}

/// Rows that are seen at most.
int TableWindow::room() const
{
    return std::max(0, showsAll() ? m_lines : m_lines - 1);
}

int TableWindow::matching() const
{
    return m_filter.isEmpty() ? m_total : static_cast<int>(m_matches.size());
}

/// The first row when the last one is seen.
int TableWindow::lastFirst() const
{
    return std::max(0, matching() - room());
}

void TableWindow::scrollRows(int rows)
{
    m_first = std::clamp(m_first + rows, 0, lastFirst());
}

void TableWindow::scrollPages(int pages)
{
    scrollRows(pages * std::max(1, room()));
}

QVector<WatchEntry> TableWindow::visible(const QVector<WatchEntry>& entries) const
{
    const int end = std::min(m_first + room(), matching());
    QVector<WatchEntry> seen;
    for (int i = m_first; i < end; ++i)
        seen << entries.at(m_filter.isEmpty() ? i : m_matches[static_cast<size_t>(i)]);
    return seen;
}

QString TableWindow::position() const
{
    if (showsAll())
        return QString();
    if (matching() == 0)
        return QStringLiteral("no row contains %1").arg(m_filter);
    if (room() == 0)
        return counted(matching(), "row", "rows");
    const QString rows = QStringLiteral("rows %1 to %2 of %3")
                             .arg(QString::number(m_first + 1),
                                  QString::number(std::min(m_first + room(), matching())),
                                  QString::number(matching()));
    return m_filter.isEmpty() ? rows : rows + QLatin1String(" that contain ") + m_filter;
}

} // namespace kx
