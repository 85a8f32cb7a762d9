/// Sequences as people write them, a step a line:
///
///     tags pumps.csv                      names, from a file beside this one; before the steps
///     write pump = on                     until the station confirms it
///     wait pressure > 4.5 within 10s      reads again and again
///     expect level = 7 +- 0.5             reads once
///     expect D100/float in 1..5
///     pause 200ms
///     finally                             what follows is done in the end, whatever happened
///     write pump = off
///
/// A name with blanks stands in double quotes, as texts do. Times need their unit. # begins a
/// comment, at a line's beginning or behind a blank.
#ifndef KX_PANEL_SEQUENCE_SEQUENCE_TEXT_H
#define KX_PANEL_SEQUENCE_SEQUENCE_TEXT_H

#include "panel/sequence/sequence.h"

#include <functional>

namespace kx
{

struct SequenceFault {
    int line = 0;   ///< from 1; 0: the file as a whole
    int column = 0; ///< characters, from 1; 0: the line as a whole
    QString text;   ///< one line
};

/// What a sequence is read with.
struct SequenceContext {
    int station = 1;   ///< of addresses and tags that name none
    int maxWords = 32; ///< of the longest request
    ValueFormat order; ///< of the words of values that name none
    QList<Tag> tags;   ///< known from elsewhere
    /// Loads the file of a line such as `tags pumps.csv`; false and one line in `*error`.
    std::function<bool(const QString& file, QList<Tag>* tags, QString* error)> loadTags;
};

/// Reads all of a sequence.
/// @return all that is wrong, one fault a line at most; none: `*sequence` holds a step or more
QList<SequenceFault> parseSequence(const QByteArray& text, const SequenceContext& context,
                                   Sequence* sequence);

/// "filling.kxs:3:7: the fault".
QString faultText(const QString& path, const SequenceFault& fault);

} // namespace kx

#endif
