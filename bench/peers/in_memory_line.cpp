#include "peers/in_memory_line.h"

#include <sys/select.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace
{

std::string answer;
size_t unread = 0; // bytes of the answer

} // namespace

void answerWith(const std::string& reply)
{
    answer = reply;
    unread = 0;
}

// The dynamic linker finds these before the C library's.
extern "C" {

ssize_t write(int descriptor, const void* bytes, size_t size)
{
    if (descriptor != IN_MEMORY_LINE)
        return syscall(SYS_write, descriptor, bytes, size);
    unread = answer.size();
    return static_cast<ssize_t>(size);
}

ssize_t read(int descriptor, void* bytes, size_t size)
{
    if (descriptor != IN_MEMORY_LINE)
        return syscall(SYS_read, descriptor, bytes, size);
    const size_t given = std::min(size, unread);
    std::memcpy(bytes, answer.data() + answer.size() - unread, given);
    unread -= given;
    return static_cast<ssize_t>(given);
}

int select(int count, fd_set* readable, fd_set* writable, fd_set* exceptions, timeval* timeout)
{
    if (count != IN_MEMORY_LINE + 1)
        return static_cast<int>(
            syscall(SYS_select, count, readable, writable, exceptions, timeout));
    return unread > 0 ? 1 : 0;
}
}
