/// What a register type is. This table is the only place that knows: names,
/// address syntax, ranges, classes and Modbus numbers all come from here.
#ifndef TARVELAN_REGISTERS_REGISTER_TYPES_H
#define TARVELAN_REGISTERS_REGISTER_TYPES_H

#include <QtCore/QString>

enum RegisterClass {
    BIT_CLASS,         ///< coils, one byte per value
    WORD_CLASS,        ///< one holding register per value
    DOUBLE_WORD_CLASS, ///< two holding registers per value, high word first
    UNKNOWN_CLASS      ///< no register type of this controller
};

struct RegisterType {
    const char* name;
    const char* format;  ///< one letter per digit as typed: O octal, d decimal
    const char* lowest;  ///< as typed, in the type's own radix
    const char* highest; ///< as typed, in the type's own radix
    const char* dataType;
    const char* last; ///< handed to the runtime unchanged
    RegisterClass registerClass;
    int radix;
    int lowestAddress;
    int limit; ///< address + length of a tag must not exceed it
    int split; ///< address from which the second Modbus range begins
    int baseBelow;
    int baseFrom;
    bool splitKeepsApart; ///< a request never joins addresses of both ranges
    bool writable;        ///< the runtime's writes reach the device
};

const int REGISTER_TYPE_COUNT = 13;

/// Row order is fixed: row r here is row r of every table of the catalogue. Each
/// source file has a copy of this constant; pointers to rows come from
/// findRegisterType() alone.
constexpr RegisterType REGISTER_TYPES[REGISTER_TYPE_COUNT] = {
    // X and Y are addressed in octal: X377 is number 255.
    {"X", "OOO", "0", "377", "0", "1", BIT_CLASS, 8, 0, 256, 256, 1200, 0, false, false},
    {"Y", "OOO", "0", "377", "0", "1", BIT_CLASS, 8, 0, 256, 256, 0, 0, false, true},
    // The controller's second M range starts at coil 12000, the second SM range at coil 30000.
    {"M", "ddddd", "0", "10239", "0", "1", BIT_CLASS, 10, 0, 10240, 2048, 2000, 9952, true, true},
    {"SM", "dddd", "0", "511", "0", "1", BIT_CLASS, 10, 0, 512, 256, 4400, 29744, false, true},
    {"S", "dddd", "0", "1023", "0", "1", BIT_CLASS, 10, 0, 1024, 1024, 6000, 6000, false, true},
    {"T", "ddd", "0", "255", "0", "1", BIT_CLASS, 10, 0, 256, 256, 8000, 8000, false, true},
    {"C", "ddd", "0", "255", "0", "1", BIT_CLASS, 10, 0, 256, 256, 9200, 9200, false, true},
    {"D", "dddd", "0", "7999", "1", "1", WORD_CLASS, 10, 0, 8000, 8000, 0, 0, false, true},
    // The second SD range starts at register 12000.
    {"SD", "ddd", "0", "511", "1", "1", WORD_CLASS, 10, 0, 512, 256, 8000, 11744, true, true},
    {"CV", "ddd", "0", "199", "1", "1", WORD_CLASS, 10, 0, 200, 200, 9500, 9500, false, true},
    // 32CV continues the numbering of CV. Its limit is one more than its highest
    // address plus one, so that a value of two registers may start at 32CV255.
    {"32CV", "ddd", "200", "255", "2", "1", DOUBLE_WORD_CLASS, 10, 200, 257, 256, 9500, 9500, false,
     true},
    {"TV", "ddd", "0", "255", "1", "1", WORD_CLASS, 10, 0, 256, 4096, 9000, 9000, false, true},
    {"Z", "ddd", "0", "15", "1", "1", WORD_CLASS, 10, 0, 16, 15, 8500, 8500, false, true},
};

/// The type of that exact, case-sensitive name, or null.
const RegisterType* findRegisterType(const QString& name);

/// The row in REGISTER_TYPES of a type that findRegisterType() gave.
int registerTypeRow(const RegisterType* type);

/// The class of that name; UNKNOWN_CLASS when no register type has it.
RegisterClass registerClassOf(const QString& name);

/// Modbus coil or holding-register number, zero-based, of a device address. An
/// unknown type has base 0. May exceed 16 bits; frames carry the low 16.
int modbusNumber(const RegisterType* type, int address);

/// Holding registers per device address: 2 for 32CV, else 1.
int registersPerAddress(const RegisterType* type);

/// True when the two addresses lie in different Modbus ranges of a type whose
/// ranges are never read together, `first` below the split.
bool liesPastSplit(const RegisterType* type, int first, int address);

#endif
