#ifndef KX_PANEL_DUMP_CONTROLLER_VALUES_H
#define KX_PANEL_DUMP_CONTROLLER_VALUES_H

#include "addresses/address_text.h"

#include <map>
#include <optional>
#include <tuple>

namespace kx
{

/// Values by station, register type and address, whatever order they came in.
class ControllerValues
{
public:
    /// Of all of the range's addresses, in their order; a value that was there is replaced.
    /// @param range must name its station
    void take(const AddressRange& range, const QList<qint64>& values);

    /// None when nothing is known of that address.
    std::optional<qint64> at(const AddressRange& address) const;
    int size() const { return static_cast<int>(m_values.size()); }

    /// The longest runs of consecutive addresses, rising by station, type in the catalogue's
    /// order, and address.
    QList<Assignment> runs() const;

private:
    using Place = std::tuple<int, int, int>; ///< station, row of the type, address

    static Place placeOf(const AddressRange& range, int index = 0);

    std::map<Place, qint64> m_values;
};

/// The ranges of assignments, without the values.
QList<AddressRange> rangesOf(const QList<Assignment>& assignments);

/// How many values they have.
int valuesOf(const QList<Assignment>& assignments);

/// The same addresses, each once, as ControllerValues::runs().
QList<AddressRange> joinedRanges(const QList<AddressRange>& ranges);

} // namespace kx

#endif
