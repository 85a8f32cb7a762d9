// The ports that can be chosen in the fields of a line.

#include "kxpanel/connect/line_fields.h"
#include "kxpanel/connect/port_watch.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>

namespace kxpanel
{

void LineFields::setPorts(const QList<kx::PortEntry>& ports)
{
    const QSignalBlocker quiet(m_port);
    QLineEdit* const edit = m_port->lineEdit();
    const QString typed = edit->text();
    const int cursor = edit->cursorPosition(); // somebody may be typing
    m_port->clear();
    for (const kx::PortEntry& port : ports) {
        const QString description = portDescription(port);
        m_port->addItem(description.isEmpty() ? port.port
                                              : port.port + QStringLiteral("  ") + description,
                        port.port);
    }
    m_port->setCurrentIndex(m_port->findData(typed));
    m_port->setEditText(typed);
    edit->setCursorPosition(cursor);
}

} // namespace kxpanel
