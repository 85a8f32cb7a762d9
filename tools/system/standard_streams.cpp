#include "system/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

namespace kx
{

void occupyClosedStreams()
{
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        // Opening takes the lowest free number.
        if (fcntl(stream, F_GETFD) < 0)
            open("/dev/null", O_RDONLY);
    }
}

} // namespace kx
