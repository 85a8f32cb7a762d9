#include "kxsim/options/help_text.h"

namespace kxsim
{

namespace
{

const char* const USAGE =
    "Usage: kxsim [options]\n"
    "Simulated controllers: Modbus RTU slaves with the whole register map. Opens a\n"
    "pseudo-terminal and prints its name, or uses a serial port, until it is ended by\n"
    "Ctrl-C or a signal.\n";

const char* const EXAMPLES =
    "\n"
    "Addresses: TYPENUMBER[:COUNT][@STATION], such as D100:4, X17 or 32CV200@2.\n"
    "X and Y are octal (X10 follows X7), all other types decimal. Types: X Y M SM S T C D\n"
    "SD CV 32CV TV Z. Without @STATION values are set at all stations, and shown of the\n"
    "lowest.\n"
    "\n"
    "Without --still these values move: D0 and 32CV200 count up, D1 is a slow wave, M0 and\n"
    "Y0 toggle, TV0 and T0 are a timer. A preset value stays still.\n"
    "\n"
    "Waves are exact functions of the time since the start, --still or not. Shapes: ramp (all\n"
    "values for equally long, then the first again; also downwards), triangle (to the last value\n"
    "and back), sine (from the middle, first towards the last value), square (half the period\n"
    "each; bits are always squares). What a host writes there is gone at once; set stops a wave.\n"
    "\n"
    "Timers and counters work in scans of 10 ms, --still or not. TVn rises by 1 in 100 ms, while\n"
    "the bit is on if there is one, and CVn (32CVn from C200 on) by 1 when its bit goes on; at\n"
    "the preset the contact closes and the value stays. A timer's bit off, or 0 written to value\n"
    "or contact, resets both; any other value written goes on from there.\n"
    "\n"
    "Commands on standard input, one per line:\n"
    "  get D100:4       print the values as D100=1,2,3,4\n"
    "  set X17=1        set the sixteenth input; it stays still from then on\n"
    "  faults           print how many requests met which fault\n"
    "\n"
    "Faults, at most one per request; all:0.1 gives each kind an equal share of 10 %:\n"
    "  deaf             the request is not heard: not carried out, no reply\n"
    "  silence          carried out, no reply\n"
    "  delay            the reply comes late by --fault-delay\n"
    "  corrupt          one byte of the reply is another\n"
    "  truncate         the reply ends early\n"
    "  extra-before     1 to 8 bytes of noise, then the reply\n"
    "  extra-after      the reply, then 1 to 8 bytes of noise\n"
    "  duplicate        the reply twice\n"
    "  other-station    the same reply, from another station\n"
    "  exception        refused as busy (exception 6), not carried out\n"
    "  echo             the request comes back, then the reply\n"
    "  close            no reply; the line is closed and opened again\n"
    "The counts are printed at the end, too. The same seed and requests give the same\n"
    "faults.\n"
    "\n"
    "Examples:\n"
    "  kxsim\n"
    "  kxsim --set D100=1234 --set M0=1,0,1,1 --set X17=1\n"
    "  kxsim --station 1 --station 2 --set D100@2=5\n"
    "  kxsim --port /dev/ttyUSB0 --baud 19200 --parity even --log\n"
    "  kxsim --load memory.csv --save memory.csv\n"
    "  kxsim --wave D10=0..4095/20s --wave 32CV200=triangle:0..1000000/10min\n"
    "  kxsim --timer T5=50/M5 --counter C3=10/X3 --wave X3=0..1/1s\n"
    "  kxsim --pace 19200,8E1 --turnaround 5..20ms\n"
    "  kxsim --symlink /tmp/line --fault all:0.1 --fault-seed 7\n"
    "  kxsim --station 2 --station 3 --down 3@10s..30s/60s\n"
    "  kxsim --fault silence:0.01 --fault corrupt:0.02\n"
    "\n"
    "Writes of X are refused (exception 2), as are addresses outside the register map; other\n"
    "functions than 1, 3, 5, 6, 15 and 16 with exception 1, wrong counts with exception 3.\n"
    "\n"
    "Exit codes: 0 ended by Ctrl-C or a signal, 1 the memory could not be saved, 2 wrong usage,\n"
    "3 the port cannot be opened or was lost, or the link cannot be made.\n";

} // namespace

// The parser's own usage line names the program's path.
QString helpText(const QCommandLineParser& parser)
{
    const QString options = parser.helpText();
    return QString::fromLatin1(USAGE) + options.mid(options.indexOf(QLatin1Char('\n')) + 1)
           + QString::fromLatin1(EXAMPLES);
}

} // namespace kxsim
