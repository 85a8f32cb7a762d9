#include "support/process_signal.h"

#include <limits>
#include <signal.h>
#include <sys/types.h>

bool signalProcess(qint64 processId, int signal)
{
    if (processId <= 0 || processId > std::numeric_limits<pid_t>::max())
        return false;
    return ::kill(static_cast<pid_t>(processId), signal) == 0;
}
