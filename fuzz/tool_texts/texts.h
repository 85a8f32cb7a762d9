/// What users write, read by the tools' parsers.
#ifndef KX_FUZZ_TOOL_TEXTS_TEXTS_H
#define KX_FUZZ_TOOL_TEXTS_TEXTS_H

#include "addresses/address_text.h"
#include "support/input_reader.h"

#include <functional>

/// Fills `*error` and returns false when the text is refused.
typedef std::function<bool(const QByteArray& text, QString* error)> Parser;

/// Whether `parse` takes the text. A refusal must say why in one line, and say it of
/// the text as it stands: a percent sign in it is no place for another argument.
bool takes(const Parser& parse, const QByteArray& text);

/// Checks a range that was accepted.
void checkRange(const kx::AddressRange& range);

/// One argument per line. None names a file.
QStringList argumentsOf(QByteArray lines);

void readTags(InputReader* input);
void readDump(InputReader* input);
void readRecipe(InputReader* input);
/// A recording in a table, its header and its rows.
void readRecording(InputReader* input);
void readAddresses(InputReader* input);
void readSequence(InputReader* input);
void readArguments(InputReader* input);
/// A command of kxhost with its arguments, as far as it goes without a line.
void readCommand(InputReader* input);

#endif
