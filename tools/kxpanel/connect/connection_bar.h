#ifndef KX_KXPANEL_CONNECT_CONNECTION_BAR_H
#define KX_KXPANEL_CONNECT_CONNECTION_BAR_H

#include "kxpanel/connect/port_watch.h"
#include "kxpanel/machine/machine.h"

#include <QtWidgets/QWidget>

class QAction;
class QBoxLayout;
class QLabel;
class QToolButton;

namespace kxpanel
{

class LineFields;
class MessageLabel;
class ScanPanel;

/// Which line it is, and how it is: connects, disconnects and scans for stations. What is wrong
/// stands below the fields.
class ConnectionBar : public QWidget
{
    Q_OBJECT

public:
    /// @param machine stays the caller's and must outlive the bar
    explicit ConnectionBar(Machine* machine, QWidget* parent = nullptr);

    /// Does not connect.
    void setOptions(const kx::ConnectionOptions& options);
    /// What the fields say: of wrong ones what was there before.
    kx::ConnectionOptions options() const;
    /// As the action; does nothing when the line is not closed.
    void connectLine();
    /// Does nothing when the line is closed.
    void disconnectLine();

    /// Connects, or disconnects and gives up.
    QAction* connectAction() const { return m_connect; }
    /// Shows and hides the scan.
    QAction* scanAction() const { return m_scan; }
    const LineStatus& status() const { return m_status; }
    /// As narrow as in two rows.
    QSize minimumSizeHint() const override;

signals:
    /// A person has changed what a project keeps.
    void edited();
    /// A station that was found.
    void stationChosen(int station);

private:
    void makeActions();
    void layOut();
    void keepMessageRow();
    /// Buttons beside the fields, or below them where they lack the room.
    void arrange();
    void toggleLine();
    void takeStatus(const LineStatus& status);
    void showStatus();
    /// Below the fields; empty takes it away.
    void say(const QString& fault);
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;

    Machine* m_machine;
    LineStatus m_status;
    PortWatch m_ports;
    LineFields* m_fields;
    ScanPanel* m_scanPanel = nullptr;
    QBoxLayout* m_row = nullptr;     ///< fields and buttons
    QBoxLayout* m_buttons = nullptr; ///< with the line's state
    QAction* m_connect;
    QAction* m_scan;
    QToolButton* m_button;
    QLabel* m_state;
    MessageLabel* m_message;
};

} // namespace kxpanel

#endif
