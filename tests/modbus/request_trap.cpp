#include "modbus/request_trap.h"

#include <QtCore/QtGlobal>

#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace
{

const size_t READ_REQUEST_BYTE = 60116;

RequestTrap* current = nullptr;

} // namespace

RequestTrap::RequestTrap() : m_pageSize(static_cast<size_t>(sysconf(_SC_PAGESIZE)))
{
    // The block ends with the page that begins with its last byte.
    const size_t before = (READ_REQUEST_BYTE + m_pageSize - 1) / m_pageSize * m_pageSize;
    m_size = before + 2 * m_pageSize;
    void* const pages =
        mmap(nullptr, m_size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED)
        qFatal("no memory for the shared block");
    m_pages = static_cast<unsigned char*>(pages);
    m_shared = m_pages + before - READ_REQUEST_BYTE;
    m_mutexPage = m_pages + before + m_pageSize;
    m_mutex = new (m_mutexPage) QMutex;

    struct sigaction action = {};
    action.sa_sigaction = caught;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGSEGV, &action, &m_before);
    current = this;
}

RequestTrap::~RequestTrap()
{
    mprotect(m_pages, m_size, PROT_READ | PROT_WRITE);
    current = nullptr;
    sigaction(SIGSEGV, &m_before, nullptr);
    m_mutex->~QMutex();
    munmap(m_pages, m_size);
}

void RequestTrap::onNextRelease(const std::function<void()>& action)
{
    m_action = action;
    protect(&writeRequest(), true);
    protect(&readRequest(), true);
}

void RequestTrap::protect(unsigned char* page, bool isClosed) const
{
    unsigned char* const start = page - static_cast<size_t>(page - m_pages) % m_pageSize;
    mprotect(start, m_pageSize, isClosed ? PROT_NONE : PROT_READ | PROT_WRITE);
}

// What was touched is tried again once this returns.
bool RequestTrap::handle(const unsigned char* address)
{
    if (address < m_pages || address >= m_pages + m_size)
        return false;
    const bool isMutex = address >= m_mutexPage;
    if (!isMutex) {
        protect(address < &readRequest() ? &writeRequest() : &readRequest(), false);
        protect(m_mutexPage, static_cast<bool>(m_action));
        return true;
    }
    protect(m_mutexPage, false);
    protect(&writeRequest(), false);
    protect(&readRequest(), false);
    std::function<void()> action;
    action.swap(m_action);
    action();
    return true;
}

void RequestTrap::caught(int, siginfo_t* info, void*)
{
    if (!current || !current->handle(static_cast<unsigned char*>(info->si_addr)))
        signal(SIGSEGV, SIG_DFL); // not the trap's: ends the test
}
