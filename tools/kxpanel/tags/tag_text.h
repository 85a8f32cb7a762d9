/// Tags as people type them, and as they go to files and spreadsheets and back. Pure functions.
#ifndef KX_KXPANEL_TAGS_TAG_TEXT_H
#define KX_KXPANEL_TAGS_TAG_TEXT_H

#include "kxpanel/tags/cell_notes.h"
#include "panel/files/tags_file.h"

#include <QtCore/QLocale>

class QMimeData;

namespace kxpanel
{

/// Goes with rows that the program copies: their numbers have a decimal point in each language.
const char TAGS_MIME_TYPE[] = "application/x-kxpanel-tags";

/// Reads an address with its format, such as "D100:4@2/s16*0.1,unit=bar".
/// @param station of an address that names none
/// @return false and the parser's reason in `*fault`, in one line without the address in front;
///         `*tag` is then as constructed
bool parseTypedTag(const QString& typed, int station, kx::Tag* tag, QString* fault);

/// What parseTypedTag() takes: "D100@2/s16*0.1,unit=bar".
QString typedText(const kx::Tag& tag);

/// Rows of a tags file with its header for the clipboard and for a drag, as cells of a spreadsheet,
/// also as HTML, in which spreadsheets leave each cell as it is, and marked with TAGS_MIME_TYPE.
/// What has no name has its address as one, with the station where that is taken: a tags file takes
/// no name twice. The caller's.
QMimeData* tagsData(const QList<kx::Tag>& tags);

/// The same as the bytes of a tags file, separated by commas.
QByteArray tagsFileText(const QList<kx::Tag>& tags);

/// Tags out of rows with a tags file's header, or of rows without any, in which each has one cell
/// with an address: what stands before it is the name, what stands behind it the comment. Where
/// more cells could be an address, it is the one of the column that has addresses in all rows.
/// @param locale of the spreadsheet: numbers below a header may have its decimal comma, and are
///        refused where they may have points between thousands and `notes` do not tell;
///        QLocale::c() where the rows are the program's own
/// @return false and one line in `*fault` that names the row
bool parseTagsText(const QString& text, int station, QList<kx::Tag>* tags, QString* fault,
                   const QLocale& locale = QLocale::c(), CellNotes notes = CellNotes());

} // namespace kxpanel

#endif
