#include "exchange/driver_lease.h"

#include "system/translated_text.h"

#include <atomic>

namespace kx
{

namespace
{

std::atomic<bool> isTaken(false);

} // namespace

DriverLease::DriverLease() : m_isHeld(!isTaken.exchange(true)) {}

DriverLease::~DriverLease()
{
    if (m_isHeld)
        isTaken = false;
}

QString DriverLease::refusal()
{
    return Text::tr("the driver is in use in this process; end its session first");
}

} // namespace kx
