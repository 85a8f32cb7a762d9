/// How the registers of a value are to be understood: its kind, the order of its words, its scale.
#ifndef KX_PANEL_VALUES_VALUE_FORMAT_H
#define KX_PANEL_VALUES_VALUE_FORMAT_H

#include "addresses/export.h"
#include "panel/values/decimal.h"

#include <QtCore/QString>

#include <optional>

struct RegisterType; // a row of the driver's table of types

namespace kx
{

struct AddressRange;

enum class ValueKind {
    Plain,  ///< as the type is: a coil 0 or 1, a word or a 32CV without sign
    Bit,    ///< a coil, or ValueFormat::bit of a word
    U16,    ///< a word without sign
    S16,    ///< a word with sign
    Hex,    ///< a word as 0x04D2
    Bin,    ///< a word as 0b0000010011010010
    Bcd,    ///< a word with a decimal digit in each four bits
    U32,    ///< two words, or a 32CV
    S32,    ///< two words, or a 32CV
    Float,  ///< two words, IEEE 754
    U64,    ///< four words
    S64,    ///< four words
    Double, ///< four words, IEEE 754
    Ascii   ///< text, two characters a word, the first in the high byte
};

enum class WordOrder {
    Unset, ///< left to the command line; low first without it
    LowFirst,
    HighFirst
};

struct KXRUNTIME_EXPORT ValueFormat {
    ValueKind kind = ValueKind::Plain;
    bool isCounter = false; ///< of a 32CV, which is one address and has the driver's own order
    int words = 1;          ///< of Ascii
    int bit = -1;           ///< 0 (lowest) to 15 of a word; -1: all of it
    WordOrder order = WordOrder::Unset;
    bool swapsBytes = false; ///< the two bytes of each word change places
    Decimal scale = Decimal(1);
    Decimal offset;
    int decimals = -1; ///< digits behind the point; -1: as many as the scale and offset have
    QString unit;
    std::optional<Decimal> lowest;  ///< that may be written, scaled
    std::optional<Decimal> highest; ///< that may be written, scaled

    /// Whether numbers are shown otherwise than the registers hold them.
    bool isScaled() const;
};

/// Consecutive addresses that one value covers: 1, 2 or 4, or the words of a text.
KXRUNTIME_EXPORT int registersOf(const ValueFormat& format);

/// Whether the kind is one of Float and Double.
KXRUNTIME_EXPORT bool isFloating(const ValueFormat& format);

/// Whether values are numbers that a scale, decimals and bounds suit: not of Hex, Bin, Bit, Ascii.
KXRUNTIME_EXPORT bool isNumeric(const ValueFormat& format);

/// Digits behind the point that values show, scale and offset considered; 0 of whole numbers.
KXRUNTIME_EXPORT int shownDecimals(const ValueFormat& format);

/// Fits a format to a register type: sets ValueFormat::isCounter.
/// @return false and in `*fault` why the type or the parts of the format do not go together
KXRUNTIME_EXPORT bool fitFormat(const RegisterType* type, ValueFormat* format, QString* fault);

/// Gives a number of several registers that names neither order nor swapped bytes those of `order`.
/// All others, and a 32CV, stay as they are.
KXRUNTIME_EXPORT void takeOrder(const ValueFormat& order, ValueFormat* format);

/// Whether each value of the range lies in one run of the controller's registers, so that one
/// request can read it. `*fault` names the first that does not.
KXRUNTIME_EXPORT bool liesInOneRun(const AddressRange& range, const ValueFormat& format,
                                   QString* fault);

/// Whether single bits of the type's words may be written: others change by themselves between
/// the read and the write of the word. True of D and Z.
KXRUNTIME_EXPORT bool keepsItsWords(const RegisterType* type);

} // namespace kx

#endif
