#include "kxpanel/shell/message_bar.h"

#include "kxpanel/actions/message_label.h"
#include "kxpanel/connect/line_text.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QToolButton>

namespace kxpanel
{

namespace
{

const int MOST_ROWS = 8; // the pages need the room

} // namespace

MessageBar::MessageBar(QWidget* parent) : QFrame(parent), m_text(new MessageLabel(this))
{
    setFrameShape(QFrame::StyledPanel);
    auto* const close = new QToolButton(this);
    close->setText(QStringLiteral("\u2715")); // a cross
    close->setAutoRaise(true);
    close->setAccessibleName(tr("Close the message"));
    close->setToolTip(close->accessibleName());
    connect(close, &QToolButton::clicked, this, [this] { say(QString()); });
    auto* const row = new QHBoxLayout(this);
    row->addWidget(m_text, 1);
    row->addWidget(close, 0, Qt::AlignTop);
    say(QString());
}

void MessageBar::say(const QString& text)
{
    QStringList rows = text.split(QLatin1Char('\n'));
    const int more = static_cast<int>(rows.size()) - MOST_ROWS;
    if (more > 0)
        rows = rows.mid(0, MOST_ROWS) << tr("and %n more", nullptr, more);
    m_text->say(rows.join(QLatin1Char('\n')));
    setVisible(!text.isEmpty());
    showColour();
}

void MessageBar::showColour()
{
    QPalette colours = m_text->palette();
    colours.setColor(QPalette::WindowText, faultColour(palette()));
    m_text->setPalette(colours);
}

QString MessageBar::text() const
{
    return m_text->text();
}

void MessageBar::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showColour();
}

} // namespace kxpanel
