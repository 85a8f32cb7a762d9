#ifndef KX_KXHOST_DUMP_WHOLE_READ_H
#define KX_KXHOST_DUMP_WHOLE_READ_H

#include "kxhost/options/connection_options.h"
#include "panel/dump/controller_values.h"
#include "panel/dump/unread_ranges.h"

namespace kx
{

/// What the reading of ranges brings, and what it does not.
class WholeRead
{
public:
    /// Takes what the job brings from now on. The job must not outlive this.
    void listenTo(const ReadJob* job);

    const ControllerValues& values() const { return m_values; }
    QList<UnreadRange> unread() const { return unreadRanges(m_failed); }

private:
    ControllerValues m_values;
    QList<ReadOutcome> m_failed;
};

/// Opens the line and reads the ranges, until all are tried or the user interrupts. Complains and
/// returns an ExitCode other than 0 when nothing could be opened; `*whole` tells all else.
int readWhole(const ConnectionOptions& options, const QList<AddressRange>& ranges,
              WholeRead* whole);

} // namespace kx

#endif
