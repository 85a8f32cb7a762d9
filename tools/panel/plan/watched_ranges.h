#ifndef KX_PANEL_PLAN_WATCHED_RANGES_H
#define KX_PANEL_PLAN_WATCHED_RANGES_H

#include "addresses/address_text.h"
#include "addresses/export.h"

#include <QtCore/QList>

#include <vector>

namespace kx
{

/// Watched addresses in order, so that what a request covers of them is found without
/// walking all.
class KXRUNTIME_EXPORT WatchedRanges
{
public:
    /// @param ranges in any order; they may overlap, and must name their station
    explicit WatchedRanges(const QList<AddressRange>& ranges);

    /// What is watched of `covered`, and nothing else: in rising order, disjoint and not
    /// touching. The time it takes grows with that, not with all that is watched.
    std::vector<AddressRange> within(const AddressRange& covered) const;

    /// All of it, rising by station, type and address; disjoint, not touching.
    const std::vector<AddressRange>& runs() const { return m_runs; }

private:
    std::vector<AddressRange> m_runs;
};

} // namespace kx

#endif
