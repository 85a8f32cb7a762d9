/// Acts at the very moment when the driver has looked at a recipe request byte and lets
/// go of the runtime's mutex.
#ifndef KX_TESTS_MODBUS_REQUEST_TRAP_H
#define KX_TESTS_MODBUS_REQUEST_TRAP_H

#include <QtCore/QMutex>

#include <csignal>
#include <cstddef>
#include <functional>

/// A shared block and a mutex in pages of their own. The two request bytes lie on both
/// sides of a page border. While armed, a request byte cannot be read without a signal,
/// and once one was read, neither can the mutex be touched. One at a time.
class RequestTrap
{
public:
    RequestTrap();
    ~RequestTrap();

    unsigned char* shared() const { return m_shared; }
    QMutex* mutex() const { return m_mutex; }
    unsigned char& writeRequest() const { return m_shared[60115]; }
    unsigned char& readRequest() const { return m_shared[60116]; }

    /// Calls `action` once, in the thread of the driver, when it next lets go.
    void onNextRelease(const std::function<void()>& action);

private:
    RequestTrap(const RequestTrap&);
    RequestTrap& operator=(const RequestTrap&);

    static void caught(int, siginfo_t* info, void*);
    bool handle(const unsigned char* address);
    void protect(unsigned char* page, bool isClosed) const;

    size_t m_pageSize;
    size_t m_size;
    unsigned char* m_pages;
    unsigned char* m_shared;
    unsigned char* m_mutexPage; ///< the last one
    QMutex* m_mutex;
    std::function<void()> m_action;
    struct sigaction m_before;
};

#endif
