#ifndef KX_KXHOST_VIEWS_WATCH_TABLE_WINDOW_H
#define KX_KXHOST_VIEWS_WATCH_TABLE_WINDOW_H

#include "panel/watch/watch_list.h"

#include <vector>

namespace kx
{

/// Which entries of a watch list are seen: those that match a filter, and of these as many as
/// there is room for. What it costs to look at them does not grow with the list.
class TableWindow
{
public:
    /// Looks through the whole list; to be called again when the list is another.
    /// @param text what an entry's name or address (D100) contains, in either case; empty: all
    void setFilter(const QString& text, const QVector<WatchEntry>& entries);

    /// Lines that there is room for; one of them tells the position where not all is seen.
    void setRoom(int lines);

    void scrollRows(int rows);   ///< down; negative: up
    void scrollPages(int pages); ///< of as many rows as are seen
    void scrollToBegin() { m_first = 0; }
    void scrollToEnd() { m_first = lastFirst(); }

    /// The entries that are seen.
    QVector<WatchEntry> visible(const QVector<WatchEntry>& entries) const;

    /// "rows 21 to 40 of 300", "rows 1 to 2 of 2 that contain pump", "no row contains pump";
    /// empty when all entries of the list are seen.
    QString position() const;

private:
    int matching() const;
    int room() const;
    bool showsAll() const { return m_filter.isEmpty() && m_total <= m_lines; }
    int lastFirst() const;

    QString m_filter;
    std::vector<int> m_matches; ///< indexes; of no use without a filter
    int m_total = 0;            ///< entries
    int m_first = 0;            ///< of the entries that match
    int m_lines = 0;
};

} // namespace kx

#endif
