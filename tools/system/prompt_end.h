#ifndef KX_SYSTEM_PROMPT_END_H
#define KX_SYSTEM_PROMPT_END_H

namespace kx
{

/// Ends the program in two seconds if it has not ended by then: at its end Qt waits for a name
/// server that does not answer, for half a minute. To be called when nothing of the program's own
/// is left to do.
void endSoon(int exitCode);

} // namespace kx

#endif
