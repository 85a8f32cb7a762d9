#include "kxpanel/connect/connection_bar.h"

#include "kxpanel/actions/message_label.h"
#include "kxpanel/actions/plain_tool_tip.h"
#include "kxpanel/connect/line_fields.h"
#include "kxpanel/connect/line_text.h"
#include "kxpanel/connect/scan_panel.h"

#include <QAction> // of QtWidgets in Qt 5, of QtGui in Qt 6
#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolButton>

#include <algorithm>

namespace kxpanel
{

namespace
{

void setColour(QWidget* widget, const QColor& colour)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, colour);
    widget->setPalette(palette);
}

QToolButton* makeButton(QAction* action, QWidget* parent)
{
    auto* const button = new QToolButton(parent);
    button->setDefaultAction(action);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

} // namespace

ConnectionBar::ConnectionBar(Machine* machine, QWidget* parent)
    : QWidget(parent),
      m_machine(machine),
      m_fields(new LineFields(this)),
      m_state(new QLabel(this)),
      m_message(new MessageLabel(this))
{
    makeActions();
    layOut();
    connect(&m_ports, &PortWatch::portsChanged, m_fields,
            [this] { m_fields->setPorts(m_ports.ports()); });
    connect(m_fields, &LineFields::edited, this, [this] {
        say(QString());
        emit edited();
    });
    connect(m_scanPanel, &ScanPanel::stationChosen, this, &ConnectionBar::stationChosen);
    connect(m_scanPanel, &ScanPanel::fieldIsWrong, this, &ConnectionBar::say);
    connect(machine, &Machine::limitsSet, this, [this](int maxWords, int maxBits) {
        m_fields->setLimits(maxWords, maxBits);
        emit edited();
    });
    connect(machine, &Machine::lineChanged, this, &ConnectionBar::takeStatus);
    showStatus();
}

void ConnectionBar::makeActions()
{
    m_connect = new QAction(tr("&Connect"), this);
    m_connect->setShortcut(QKeySequence(QStringLiteral("Ctrl+K")));
    connect(m_connect, &QAction::triggered, this, &ConnectionBar::toggleLine);
    m_scan = new QAction(tr("&Find stations"), this);
    m_scan->setCheckable(true);
    m_scan->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+K")));
    m_scan->setToolTip(tr("Ask all stations of the line whether they are there (%1)")
                           .arg(m_scan->shortcut().toString(QKeySequence::NativeText)));
}

void ConnectionBar::layOut()
{
    m_button = makeButton(m_connect, this);
    m_state->setObjectName(QStringLiteral("lineState"));
    m_state->setTextFormat(Qt::PlainText);
    m_message->setObjectName(QStringLiteral("lineFault"));
    m_message->hide();
    keepMessageRow();
    m_row = new QHBoxLayout;
    m_row->addWidget(m_fields, 1);
    m_buttons = new QHBoxLayout;
    m_row->addLayout(m_buttons);
    m_buttons->addWidget(m_button);
    m_buttons->addWidget(m_state);
    m_buttons->addWidget(makeButton(m_scan, this));
    m_buttons->addStretch(1);
    m_scanPanel = new ScanPanel(m_machine, m_fields, this); // behind the buttons for the Tab key
    connect(m_scan, &QAction::toggled, m_scanPanel, &ScanPanel::setOpen);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(m_row);
    column->addWidget(m_message);
    column->addWidget(m_scanPanel);
    m_scanPanel->hide();
}

/// Faults come and go by themselves, and what stands below, such as switches, must not move.
void ConnectionBar::keepMessageRow()
{
    QSizePolicy policy = m_message->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_message->setSizePolicy(policy);
    const QString shown = m_message->text();
    m_message->say(QStringLiteral("-")); // without a text it is less high
    m_message->setMinimumHeight(m_message->sizeHint().height());
    m_message->say(shown);
}

void ConnectionBar::arrange()
{
    const QMargins margins = layout()->contentsMargins();
    const int room = width() - margins.left() - margins.right();
    const int oneRow =
        m_fields->minimumSizeHint().width() + m_row->spacing() + m_buttons->minimumSize().width();
    m_row->setDirection(oneRow <= room ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

QSize ConnectionBar::minimumSizeHint() const
{
    const QMargins margins = layout()->contentsMargins();
    const int widest =
        std::max({m_fields->minimumSizeHint().width(), m_buttons->minimumSize().width(),
                  m_scanPanel->isHidden() ? 0 : m_scanPanel->minimumSizeHint().width()});
    return {widest + margins.left() + margins.right(), QWidget::minimumSizeHint().height()};
}

bool ConnectionBar::event(QEvent* event)
{
    const bool isTaken = QWidget::event(event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)
        arrange();
    return isTaken;
}

void ConnectionBar::setOptions(const kx::ConnectionOptions& options)
{
    m_fields->setOptions(options);
}

kx::ConnectionOptions ConnectionBar::options() const
{
    return m_fields->shownOptions();
}

void ConnectionBar::connectLine()
{
    if (m_status.state != LineState::Closed)
        return;
    kx::ConnectionOptions options;
    QString fault;
    const bool isGood = m_fields->takeOptions(&options, &fault);
    say(fault);
    if (isGood)
        m_machine->openLine(options);
}

void ConnectionBar::disconnectLine()
{
    if (m_status.state != LineState::Closed)
        m_machine->closeLine();
}

void ConnectionBar::toggleLine()
{
    if (m_status.state == LineState::Closed)
        connectLine();
    else
        disconnectLine();
}

void ConnectionBar::takeStatus(const LineStatus& status)
{
    m_status = status;
    m_fields->setLineEnabled(status.state == LineState::Closed);
    say(status.fault);
    showStatus();
}

void ConnectionBar::showStatus()
{
    const QString words[] = {tr("&Connect"), tr("&Cancel"), tr("Dis&connect"), tr("Dis&connect")};
    m_connect->setText(words[static_cast<int>(m_status.state)]);
    m_connect->setToolTip(
        QStringLiteral("%1 (%2)").arg(QString(m_connect->text()).remove(QLatin1Char('&')),
                                      m_connect->shortcut().toString(QKeySequence::NativeText)));
    m_state->setText(stateSymbol(m_status) + QLatin1Char(' ') + stateText(m_status));
    m_state->setToolTip(plainToolTip(m_status.name));
    setColour(m_state, stateColour(m_status, palette()));
    setColour(m_message, faultColour(palette()));
}

void ConnectionBar::say(const QString& fault)
{
    m_message->say(fault);
    m_message->setVisible(!fault.isEmpty());
}

void ConnectionBar::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        showStatus();
    else if (event->type() == QEvent::FontChange)
        keepMessageRow();
}

} // namespace kxpanel
