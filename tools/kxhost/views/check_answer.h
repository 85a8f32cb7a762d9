/// What the driver says of an address that a user typed. Pure but for the calls
/// of the driver's checks, which are.
#ifndef KX_KXHOST_VIEWS_CHECK_ANSWER_H
#define KX_KXHOST_VIEWS_CHECK_ANSWER_H

#include "addresses/address_text.h"
#include "exchange/driver_library.h"
#include "panel/values/value_format.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>

namespace kx
{

enum class TagKind {
    AsRegister, ///< a bit tag on a bit type, else a word tag
    Bit,
    Word
};

/// The tag that the address is meant for.
struct CheckedTag {
    TagKind kind = TagKind::AsRegister;
    bool typed = false; ///< ask with data type and access code, too
    int dataType = 1;   ///< the runtime's code; -1 is a bit tag
    int access = 0;     ///< the runtime's code
};

struct CheckAnswer {
    QString typed;
    int code = -1; ///< the driver's, see AddressCheck; -1: it sees no fault, the parser does
    bool isValid() const { return code == 0; }
    AddressRange range; ///< when valid; all addresses of its values
    ValueFormat format; ///< when valid
    QString fault;      ///< when not
};

CheckAnswer checkAddress(const DriverEntryPoints& entryPoints, const QString& typed,
                         const CheckedTag& tag);

/// "X377: valid; number 255, coil 1455, read with function 1".
QString answerRow(const CheckAnswer& answer);
QJsonObject answerJson(const CheckAnswer& answer);

} // namespace kx

#endif
