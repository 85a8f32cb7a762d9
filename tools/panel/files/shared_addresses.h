#ifndef KX_PANEL_FILES_SHARED_ADDRESSES_H
#define KX_PANEL_FILES_SHARED_ADDRESSES_H

#include "panel/files/tags_file.h"

#include <map>
#include <tuple>

namespace kx
{

/// Which addresses a list has in several formats: rows that show them name the format.
class SharedAddresses
{
public:
    /// @param tags with their stations
    explicit SharedAddresses(const QList<Tag>& tags);

    /// Of one value of a tag.
    bool hold(const Tag& tag, int value) const;

private:
    struct Formats {
        QString first;
        bool differ = false;
    };
    /// Station, type and first address of a value.
    using Place = std::tuple<int, const RegisterType*, int>;

    std::map<Place, Formats> m_places; ///< none when all tags have one format
};

/// "D100/float", "D100": the address of one value with its format, whose unit is left out.
QString nameWithFormat(const AddressRange& range, ValueFormat format, int value);

} // namespace kx

#endif
