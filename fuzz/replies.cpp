// Hostile replies: good ones with any values, right ones in wrong places, bits
// turned over, bytes missing or too many, or anything, to requests of every kind,
// some of which the runtime has tampered with.

#include "support/steps.h"

namespace
{

const char* const PARAMETERS[] = {"1#0#0#3#32",   "1#0#0#1#125", "0#0#0#2#1",
                                  "-1#0#0#0#512", "7#1#0#3#32",  "1#0#0#3#0"};
const int PARAMETER_CHOICES = 6;

void transferRecipe(InputReader* input, Panel* panel)
{
    planRecipe(input);
    requestRecipe(input, panel);
}

void exchange(InputReader* input, Panel* panel)
{
    if (!panel->poll())
        return;
    if (input->below(8) == 0)
        tamperWithRequest(input);
    panel->deal(hostileReply(input, *panel));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    InputReader input(bytes, size);
    Panel panel(PARAMETERS[input.below(PARAMETER_CHOICES)]);
    while (!input.isEmpty()) {
        const int step = input.below(16);
        if (step == 0)
            watch(&input);
        else if (step == 1)
            askOnce(&input);
        else if (step == 2)
            write(&input);
        else if (step == 3)
            transferRecipe(&input, &panel);
        else
            exchange(&input, &panel);
        panel.check();
    }
    return 0;
}
