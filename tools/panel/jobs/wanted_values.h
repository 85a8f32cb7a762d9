#ifndef KX_PANEL_JOBS_WANTED_VALUES_H
#define KX_PANEL_JOBS_WANTED_VALUES_H

#include "panel/jobs/read_job.h"

#include <map>
#include <optional>

namespace kx
{

/// What is known of tags while they are read in an order that is not theirs.
class WantedValues
{
public:
    explicit WantedValues(const QList<Tag>& tags);

    /// The ranges of tags that exist.
    QList<AddressRange> existing() const;
    /// Of all of the range's addresses.
    void take(const AddressRange& range, const QList<qint64>& values);
    /// None of the range's addresses can be read.
    void fail(const AddressRange& range, const Failure& failure);

    /// Of the first tag, which is taken out, when all of it is known or some of it has failed.
    std::optional<ReadOutcome> takeFirst();
    /// Of all tags that are left.
    QList<ReadOutcome> takeAll(const Failure& failure);
    int size() const { return static_cast<int>(m_tags.size()); }

private:
    using Place = std::pair<int, int>; ///< station and row of the type
    struct Known {
        qint64 value = 0;
        Failure failure;
    };

    std::map<int, Known>& at(const AddressRange& range);

    QList<Tag> m_tags;
    std::map<Place, std::map<int, Known>> m_known; ///< by address
};

} // namespace kx

#endif
