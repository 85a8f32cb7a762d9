#include "kxpanel/shell/message_bar.h"

#include "kxpanel/connect/line_text.h"

#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolButton>

namespace kxpanel
{

MessageBar::MessageBar(QWidget* parent) : QFrame(parent), m_text(new QLabel(this))
{
    setFrameShape(QFrame::StyledPanel);
    m_text->setAccessibleName(tr("What went wrong"));
    m_text->setWordWrap(true);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
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
    m_text->setText(text);
    setVisible(!text.isEmpty());
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
        say(text());
}

} // namespace kxpanel
