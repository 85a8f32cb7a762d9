/// What a runtime does in a step, with a fuzzer's arguments.
#ifndef KX_FUZZ_SUPPORT_STEPS_H
#define KX_FUZZ_SUPPORT_STEPS_H

#include "support/panel.h"
#include "support/values.h"

void watch(InputReader* input);
void askOnce(InputReader* input);
void write(InputReader* input);
void read(InputReader* input);
void planRecipe(InputReader* input);
void requestRecipe(InputReader* input, Panel* panel);

/// Changes fields of the request on the wire, as a runtime may that owns no copy.
void tamperWithRequest(InputReader* input);

/// A reply of any kind to the request polled last; half of them are well-formed.
QByteArray hostileReply(InputReader* input, const Panel& panel);

#endif
