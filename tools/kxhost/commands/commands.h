/// What each command of kxhost does with the arguments behind its name; all return an
/// ExitCode.
#ifndef KX_KXHOST_COMMANDS_COMMANDS_H
#define KX_KXHOST_COMMANDS_COMMANDS_H

#include <QtCore/QStringList>

namespace kx
{

/// Asks the driver whether addresses are valid.
int runCheck(const QStringList& arguments);
/// Says where controllers hold other values than a dump.
int runCompare(const QStringList& arguments);
/// Keeps the values of controllers in a file.
int runDump(const QStringList& arguments);
/// Hears what others say on a line.
int runListen(const QStringList& arguments);
/// Shows what the driver would ask for a watch list, and how long that takes.
int runPlan(const QStringList& arguments);
/// Shows the serial ports and who has them open.
int runPorts(const QStringList& arguments);
/// Sends one frame as it stands and shows what comes back.
int runRaw(const QStringList& arguments);
/// Reads values once.
int runRead(const QStringList& arguments);
/// Records values in a file.
int runRecord(const QStringList& arguments);
/// Transfers a file of values.
int runRecipe(const QStringList& arguments);
/// Shows the driver's register types.
int runRegisters(const QStringList& arguments);
/// Prints a recording.
int runReplay(const QStringList& arguments);
/// Finds the stations that answer on a line.
int runScan(const QStringList& arguments);
/// Gives controllers the values of a dump.
int runRestore(const QStringList& arguments);
/// Does the steps of a sequence.
int runSequence(const QStringList& arguments);
/// Generates the addresses of copies of a tag.
int runSeries(const QStringList& arguments);
/// Checks tags files.
int runTags(const QStringList& arguments);
/// Reads values in cycles and shows their changes.
int runWatch(const QStringList& arguments);
/// Writes values.
int runWrite(const QStringList& arguments);

} // namespace kx

#endif
