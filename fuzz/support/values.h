/// Arguments made of a fuzzer's bytes, with a liking for the edges.
#ifndef KX_FUZZ_SUPPORT_VALUES_H
#define KX_FUZZ_SUPPORT_VALUES_H

#include "driver/records.h"
#include "support/input_reader.h"

/// The most elements of a call whose work grows with its count: one step past the
/// largest array, so that each run stays quick.
const int MOST_ELEMENTS = 1025;

/// An int at an edge, a small one or any.
int anyNumber(InputReader* input);

/// The same, but at most MOST_ELEMENTS; below 1 is any.
int affordableCount(InputReader* input);

/// One of the 13 names, or another text.
QString anyType(InputReader* input);

/// True for the 13 names.
bool isKnown(const QString& regType);

int anyStation(InputReader* input);

/// A count of that type: any where an unknown name makes no work.
int countFor(InputReader* input, const QString& regType);

KEY_ADDRESS anyKey(InputReader* input);
VARIABLE anyJob(InputReader* input);

#endif
