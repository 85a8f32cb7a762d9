/// The memory around one timer or counter, for tests.
#ifndef KX_TESTS_TOOLS_KXSIM_PROGRAMME_CONTACT_FIXTURE_H
#define KX_TESTS_TOOLS_KXSIM_PROGRAMME_CONTACT_FIXTURE_H

#include "kxsim/memory/controller_memory.h"
#include "kxsim/programme/preset_contact.h"
#include "registers/register_types.h"

struct ContactFixture {
    kxsim::ControllerMemory memory;

    int value(const char* type, int address) const
    {
        return static_cast<int>(memory.value(findRegisterType(QString::fromLatin1(type)), address));
    }

    void set(const char* type, int address, quint32 value)
    {
        memory.setValue(findRegisterType(QString::fromLatin1(type)), address, value);
    }
};

/// Lets a part of the programme run for so many scans of 10 ms.
template <typename Part>
void run(Part* part, int scans)
{
    for (int scan = 0; scan < scans; ++scan)
        part->scan();
}

#endif
