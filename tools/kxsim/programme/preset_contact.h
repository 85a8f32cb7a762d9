/// Timers and counters as people write them: a contact, the value that closes it, and the
/// bit that drives it.
#ifndef KX_KXSIM_PROGRAMME_PRESET_CONTACT_H
#define KX_KXSIM_PROGRAMME_PRESET_CONTACT_H

#include "addresses/address_text.h"

#include <QtCore/QString>

namespace kxsim
{

struct PresetContact {
    kx::AddressRange contact; ///< one T or C; of all stations unless it names one
    quint32 preset = 0;       ///< 1 to the highest signed value of TV, CV or 32CV
    kx::AddressRange input;   ///< one bit of the same station; no type: none

    /// The type of its value, which has the contact's address: TV, CV or, from C200 on, 32CV.
    const RegisterType* valueType() const;
};

/// Reads T5=50, or T5=50/M5 with the bit that lets it run. False and one line in `*error`
/// for anything else; `*timer` is then untouched.
bool parseTimer(const QString& text, PresetContact* timer, QString* error);

/// Reads C3=10/X3, where C3 counts X3. False and one line in `*error` for anything else;
/// `*counter` is then untouched.
bool parseCounter(const QString& text, PresetContact* counter, QString* error);

} // namespace kxsim

#endif
