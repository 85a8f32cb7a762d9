#ifndef KX_KXPANEL_TRANSLATIONS_TRANSLATIONS_H
#define KX_KXPANEL_TRANSLATIONS_TRANSLATIONS_H

#include <QtCore/QLocale>

namespace kxpanel
{

/// Shows texts in the first language of the locale that the program has, and those of Qt's dialogs
/// and ports as well where Qt's translations are installed. Numbers are written alike in all
/// languages, with the point that can be typed back in and without separators of thousands. Before
/// any text is asked for; needs the application, which keeps what is loaded.
/// @return false: the texts are English
bool takeLanguage(const QLocale& locale);

} // namespace kxpanel

#endif
