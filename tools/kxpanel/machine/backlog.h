#ifndef KX_KXPANEL_MACHINE_BACKLOG_H
#define KX_KXPANEL_MACHINE_BACKLOG_H

#include <atomic>

namespace kxpanel
{

/// How much a machine has told that its listeners, in another thread, have not taken yet. While
/// they stand still it must not grow: whoever tells waits while it is full.
class Backlog
{
public:
    /// In readings, of each some hundred bytes: many lists of 10,000 values, or minutes of a line.
    static constexpr int USUAL_MOST = 50000;

    explicit Backlog(int most = USUAL_MOST) : m_most(most) {}

    /// The machine's thread, before it tells them.
    void add(int told) { m_waiting += told; }
    /// The listeners' thread, when all of them have had them.
    void take(int told) { m_waiting -= told; }
    /// Any thread.
    bool isFull() const { return m_waiting >= m_most; }

private:
    const int m_most;
    std::atomic<int> m_waiting{0};
};

} // namespace kxpanel

#endif
