#include "kxhost/terminal/cell_width.h"

#include <algorithm>
#include <clocale>
#include <cwchar>
#include <limits>

namespace kx
{

namespace
{

const QChar ELLIPSIS(0x2026);

/// The C library knows widths by locale only, and in the one a program starts with, those of
/// ASCII. Its own UTF-8 locale is there whatever is installed.
locale_t utf8Locale()
{
    static const locale_t locale =
        newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
    return locale;
}

/// Takes that locale for the thread while it lives.
class Utf8Scope
{
public:
    Utf8Scope() : m_before(uselocale(utf8Locale())) {}
    ~Utf8Scope() { uselocale(m_before); }
    Utf8Scope(const Utf8Scope&) = delete;
    Utf8Scope& operator=(const Utf8Scope&) = delete;

private:
    locale_t m_before;
};

int cellsOfCharacter(uint code)
{
    const int cells = wcwidth(static_cast<wchar_t>(code));
    return cells < 0 ? 1 : cells; // unknown to the C library
}

/// Length of the beginning that fits; `*taken` is how many cells it takes.
int fittingLength(const QString& text, int cells, int* taken)
{
    const Utf8Scope scope;
    const int size = static_cast<int>(text.size());
    int used = 0;
    int index = 0;
    while (index < size) {
        const QChar character = text.at(index);
        const bool isPair =
            character.isHighSurrogate() && index + 1 < size && text.at(index + 1).isLowSurrogate();
        const uint code =
            isPair ? QChar::surrogateToUcs4(character, text.at(index + 1)) : character.unicode();
        const int width = cellsOfCharacter(code);
        if (width > cells - used)
            break;
        used += width;
        index += isPair ? 2 : 1;
    }
    *taken = used;
    return index;
}

} // namespace

int cellsOf(const QString& text)
{
    int taken = 0;
    fittingLength(text, std::numeric_limits<int>::max(), &taken);
    return taken;
}

QString leftCells(const QString& text, int cells)
{
    int taken = 0;
    return text.left(fittingLength(text, std::max(0, cells), &taken));
}

QString fittedCells(const QString& text, int cells)
{
    int taken = 0;
    if (fittingLength(text, std::max(0, cells), &taken) == static_cast<int>(text.size()))
        return text + QString(std::max(0, cells - taken), QLatin1Char(' '));
    if (cells < 1)
        return QString();
    const QString cut = text.left(fittingLength(text, cells - 1, &taken)) + ELLIPSIS;
    return cut + QString(cells - 1 - taken, QLatin1Char(' '));
}

} // namespace kx
