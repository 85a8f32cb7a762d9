/// Controllers whose every value says where it belongs and when it was held, so that a
/// value shown at the wrong address, or from an earlier reply, is found out.
#ifndef KX_TESTS_TOOLS_FAULTS_IDENTIFYING_MEMORY_H
#define KX_TESTS_TOOLS_FAULTS_IDENTIFYING_MEMORY_H

#include "kxsim/memory/stations.h"

#include <QtCore/QByteArray>

namespace kx
{

class IdentifyingMemory
{
public:
    /// `stations` must outlive the memory.
    explicit IdentifyingMemory(kxsim::Stations* stations) : m_stations(stations) {}

    /// Counts the request and renews what it is about to read. Others leave the
    /// memory alone.
    void prepareFor(const QByteArray& request);

    /// Requests counted so far.
    int count() const { return m_count; }

    /// Whether the value is one that this address has held since the count was
    /// `since`; of coils, which do not change, ever.
    bool hasHeld(const RegisterType* type, int station, int address, qint64 value, int since) const;
    /// The same, whenever it was.
    bool belongsTo(const RegisterType* type, int station, int address, qint64 value) const;

private:
    kxsim::Stations* m_stations;
    int m_count = 0;
};

/// Whether no two registers among these share their mark: 11 bits do not do for all.
bool haveMarksOfTheirOwn(const QList<AddressRange>& ranges);

} // namespace kx

#endif
