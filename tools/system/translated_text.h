/// What a person reads, in the language of the program that shows it; English where it has none.
/// Files and JSON, which programs read, hold the words of the sources. Usable from any thread.
#ifndef KX_SYSTEM_TRANSLATED_TEXT_H
#define KX_SYSTEM_TRANSLATED_TEXT_H

#include <QtCore/QCoreApplication>

#include <limits>

namespace kx
{

/// Text::tr("a whole sentence with %1") looks up what the program's translators have in context
/// "kx". A text that was made stays when another translator is installed.
struct Text {
    Q_DECLARE_TR_FUNCTIONS(kx)
};

/// How a text of the sources, marked by QT_TRANSLATE_NOOP("kx", ...), is put.
using Wording = QString (*)(const char* text);

inline QString forPeople(const char* text)
{
    return Text::tr(text);
}

/// As it stands.
inline QString forPrograms(const char* text)
{
    return QString::fromLatin1(text);
}

/// "1 register", "62 registers".
/// @param one "%1 register", for where no translator has the text
/// @param many QT_TRANSLATE_N_NOOP("kx", "%1 registers"), of which a language has as many forms as
///        it needs
inline QString countedText(qint64 count, const char* one, const char* many)
{
    const qint64 most = std::numeric_limits<int>::max();
    QString text = Text::tr(many, nullptr, static_cast<int>(qBound<qint64>(0, count, most)));
    if (count == 1 && text == QLatin1String(many))
        text = QLatin1String(one);
    return text.arg(count);
}

} // namespace kx

#endif
