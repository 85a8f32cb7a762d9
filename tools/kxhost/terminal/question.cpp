#include "kxhost/terminal/question.h"

#include "system/printable_text.h"

#include <cstdio>
#include <unistd.h>

namespace kx
{

namespace
{

const int LONGEST_ANSWER = 1024; // bytes; a terminal's line is no longer than four of these

bool isYes(const QByteArray& line)
{
    const QByteArray answer = line.trimmed().toLower();
    return answer == "y" || answer == "yes";
}

} // namespace

Question::Question(QObject* parent)
    : QObject(parent), m_notifier(STDIN_FILENO, QSocketNotifier::Read)
{
    m_notifier.setEnabled(false);
    connect(&m_notifier, &QSocketNotifier::activated, this, &Question::onInput);
}

bool Question::isPossible()
{
    return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0;
}

void Question::ask(const QString& text)
{
    std::fprintf(stderr, "%s [y/N] ", printableText(text).toUtf8().constData());
    m_notifier.setEnabled(true);
}

void Question::cancel()
{
    if (!m_notifier.isEnabled())
        return;
    m_notifier.setEnabled(false);
    std::fputc('\n', stderr);
}

void Question::onInput()
{
    char bytes[LONGEST_ANSWER];
    const ssize_t count = ::read(STDIN_FILENO, bytes, sizeof bytes);
    if (count > 0)
        m_typed.append(bytes, static_cast<int>(count));
    const bool isWhole = m_typed.contains('\n');
    if (count > 0 && !isWhole && m_typed.size() < LONGEST_ANSWER)
        return;
    if (!isWhole)
        std::fputc('\n', stderr);
    m_notifier.setEnabled(false);
    emit answered(isWhole && isYes(m_typed));
}

} // namespace kx
