#ifndef KX_PANEL_SEQUENCE_LINE_READER_H
#define KX_PANEL_SEQUENCE_LINE_READER_H

#include <QtCore/QString>

namespace kx
{

/// A part of a line, and where it stands.
struct LinePart {
    QString text; ///< of a quoted part, without its quotes
    bool isQuoted = false;
    int column = 1; ///< characters, from 1
};

/// Walks along one line of a sequence, from part to part, over blanks. A # that follows a blank, or
/// begins the line, begins a comment, which counts as the line's end.
class LineReader
{
public:
    explicit LineReader(const QString& line) : m_line(line) {}

    bool atEnd();
    /// Of what comes next.
    int column();

    /// Up to the next blank.
    LinePart takeWord();
    /// The name of a tag, or an address: up to a blank or a comparison. Or all between double
    /// quotes, in which "" is one quote; false when they are not closed.
    bool takeName(LinePart* part, QString* fault);
    /// A value: up to a blank, a comma, ".." or "+-", or quoted as a name.
    bool takeValue(LinePart* part, QString* fault);
    /// One of = != < <= > >=, or empty.
    QString takeComparison();
    /// Whether this comes next, which is then taken.
    bool takes(const char* text);
    /// All up to the line's end, without blanks at its end.
    LinePart takeRest();

private:
    bool isBlank(int position) const;
    void skipBlanks();
    bool begins(int position, const char* text) const;
    bool endsValue(int position) const;
    bool takeQuoted(LinePart* part, QString* fault);

    QString m_line;
    int m_position = 0;
};

} // namespace kx

#endif
