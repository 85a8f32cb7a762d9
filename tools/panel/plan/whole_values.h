#ifndef KX_PANEL_PLAN_WHOLE_VALUES_H
#define KX_PANEL_PLAN_WHOLE_VALUES_H

#include "addresses/address_text.h"

#include <QtCore/QList>

#include <vector>

namespace kx
{

/// The values of ranges, each of which one request must read as a whole: of its registers, some
/// from one reply and some from the next are no value that the controller ever had.
class WholeValues
{
public:
    /// @param ranges in any order; they may overlap, and must name their station
    explicit WholeValues(const QList<AddressRange>& ranges);

    /// Each a range of AddressRange::width addresses, rising by station, type and address. They
    /// may overlap, but none lies within another: so their ends rise with them.
    const std::vector<AddressRange>& all() const { return m_values; }
    /// Those of which all addresses are in `covered`.
    std::vector<AddressRange> within(const AddressRange& covered) const;

private:
    std::vector<AddressRange> m_values;
};

} // namespace kx

#endif
