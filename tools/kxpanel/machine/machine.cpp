#include "kxpanel/machine/machine.h"

#include <atomic>

namespace kxpanel
{

struct Machine::Parts {
};

Machine::Machine(QObject* parent) : QObject(parent), m_parts(new Parts)
{
    registerMachineTypes();
}

Machine::~Machine() = default;

int Machine::newTicket()
{
    static std::atomic<int> last{0};
    return ++last;
}

} // namespace kxpanel
