#ifndef KX_KXPANEL_TREND_HISTORY_RING_H
#define KX_KXPANEL_TREND_HISTORY_RING_H

#include <QtCore/QtGlobal>

#include <cstddef>
#include <vector>

namespace kxpanel
{

/// The last items of a sequence, by their number in it. Takes no more memory than it has items.
template <typename T>
class Ring
{
public:
    /// @param most items that are kept; a power of two
    explicit Ring(int most) : m_most(most) {}

    void append(const T& item)
    {
        if (m_end < m_most)
            m_items.push_back(item);
        else
            m_items[placeOf(m_end)] = item;
        ++m_end;
    }

    template <typename Change>
    void changeAll(const Change& change)
    {
        for (T& item : m_items)
            change(&item);
    }

    void clear()
    {
        m_items.clear();
        m_end = 0;
    }

    /// Number of the oldest that is kept.
    qint64 first() const { return m_end - static_cast<qint64>(m_items.size()); }
    /// One more than the number of the newest.
    qint64 end() const { return m_end; }
    bool isEmpty() const { return m_end == 0; }
    bool keeps(qint64 number) const { return number >= first() && number < m_end; }
    const T& at(qint64 number) const { return m_items[placeOf(number)]; }
    qint64 bytes() const
    {
        return static_cast<qint64>(m_items.capacity()) * static_cast<qint64>(sizeof(T));
    }

private:
    /// Without a division, which a picture of a curve would do a hundred thousand times.
    std::size_t placeOf(qint64 number) const
    {
        return static_cast<std::size_t>(number & (m_most - 1));
    }

    qint64 m_most;
    std::vector<T> m_items;
    qint64 m_end = 0;
};

} // namespace kxpanel

#endif
