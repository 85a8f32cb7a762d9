#ifndef KX_KXPANEL_TAGS_CELL_NOTES_H
#define KX_KXPANEL_TAGS_CELL_NOTES_H

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <functional>
#include <optional>

namespace kxpanel
{

/// What a spreadsheet says of its cells beside their text, in the HTML of the same copy: which of
/// them are numbers, and which numbers, and which are texts.
///
///     <td sdval="16125" sdnum="1031;0;#.##0">16.125</td>     a number: sixteen thousand
///     <td sdval="16,125" sdnum="1031;0;0.000">16.125</td>    a number: sixteen
///     <td sdnum="1031;0;@">16.125</td>                       a text, as kxpanel's rows become
class CellNotes
{
public:
    /// @param markup gives the HTML; called once, when something is asked
    explicit CellNotes(std::function<QString()> markup);
    /// Nothing is said.
    CellNotes() = default;

    /// A number with one point of which thousandsFault() does not know what it is: with a decimal
    /// point, or without any. A text is as kxpanel wrote it, unless others have a decimal comma or
    /// more points than one, or it ends with a 0: then somebody has typed it, who may mean
    /// thousands.
    /// @param row from 0, of all rows of the copy
    /// @param cells of that row
    /// @return nothing where the HTML does not say it
    std::optional<QString> numberIn(int row, const QStringList& cells, int column);

private:
    struct Note {
        QString text;   ///< that is shown
        QString number; ///< empty: not said
        bool isText = false;
    };

    void read();

    std::function<QString()> m_markup;
    QList<QList<Note>> m_rows;
    bool m_areTyped = false; ///< some texts, with a decimal comma or points between thousands
};

} // namespace kxpanel

#endif
