/// What a value in a recipe file may be besides its formats: bit, uint16, int16, hex16, uint32,
/// int32, float.
///
///     bit                    X Y M SM S T C      0 or 1
///     uint16, int16, hex16   D SD CV TV Z        one register
///     uint32, int32          32CV                one counter
///     uint32, int32, float   D SD CV TV Z        two registers, low word first
#ifndef KX_PANEL_RECIPE_RECIPE_VALUE_H
#define KX_PANEL_RECIPE_RECIPE_VALUE_H

#include "addresses/export.h"
#include "panel/values/value_format.h"

#include <QtCore/QString>

struct RegisterType; // a row of the driver's table of types

namespace kx
{

struct RecipeValueType {
    const char* name;
    int bits; ///< 1, 16 or 32
    qint64 lowest;
    qint64 highest;
    ValueKind kind; ///< of Float, IEEE 754, lowest and highest say nothing
};

/// The type of that exact name, or null.
KXRUNTIME_EXPORT const RecipeValueType* findRecipeValueType(const QString& name);

/// All names, separated by commas.
KXRUNTIME_EXPORT QString recipeValueTypeNames();

/// Whether values of that type live in registers of that type.
KXRUNTIME_EXPORT bool suits(const RecipeValueType* type, const RegisterType* registers);

/// Addresses that one value takes: 2 for 32 bits in 16-bit registers, else 1.
KXRUNTIME_EXPORT int addressesPerValue(const RecipeValueType* type, const RegisterType* registers);

/// Parses a decimal or 0x hexadecimal number, or a float's text as of parseValue(), into the bits
/// that travel. Returns
/// false and one line in `*error` when it is no number or does not fit.
KXRUNTIME_EXPORT bool parseRecipeValue(const RecipeValueType* type, const QString& text,
                                       quint32* bits, QString* error);

/// The value as an upload writes it: -5, 0x04d2, 100000, 12.5.
KXRUNTIME_EXPORT QString recipeValueText(const RecipeValueType* type, quint32 bits);

} // namespace kx

#endif
