#ifndef KX_KXPANEL_SHELL_MENU_LETTERS_H
#define KX_KXPANEL_SHELL_MENU_LETTERS_H

#include <QtCore/QStringList>

namespace kxpanel
{

/// Texts of a menu, each with a letter of its own behind "&" where it has one that is free: the
/// first keep theirs. Of two with one letter a menu would choose neither.
QStringList withOwnLetters(const QStringList& texts);

} // namespace kxpanel

#endif
