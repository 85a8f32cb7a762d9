#ifndef KX_KXPANEL_CONNECT_LINE_FIELDS_H
#define KX_KXPANEL_CONNECT_LINE_FIELDS_H

#include "kxhost/options/connection_options.h"
#include "kxhost/ports/port_list.h"

#include <QtWidgets/QWidget>

class QComboBox;
class QLineEdit;

namespace kxpanel
{

/// In which a person says which line it is: a serial port, a gateway or simulated controllers.
class LineFields : public QWidget
{
    Q_OBJECT

public:
    explicit LineFields(QWidget* parent = nullptr);

    /// Shows them. What the fields do not show is kept for options().
    void setOptions(const kx::ConnectionOptions& options);
    /// What the fields say. False and one line in `*fault` when a field is wrong, which then has
    /// the keyboard.
    bool takeOptions(kx::ConnectionOptions* options, QString* fault);
    /// The same for a project: of wrong fields what was there before.
    kx::ConnectionOptions shownOptions() const;
    /// As Machine::setLimits(); no field shows them.
    void setLimits(int maxWords, int maxBits);
    /// What can be chosen; what is typed stays.
    void setPorts(const QList<kx::PortEntry>& ports);
    /// Of an open line nothing can be changed.
    void setLineEnabled(bool isEnabled);

signals:
    /// A person has changed a field.
    void edited();

private:
    enum Kind { Serial, Gateway, Simulated };

    void makeFields();
    void layOut();
    void connectFields();
    void showKind();
    Kind kind() const;
    /// Each takes what is right. The field that is wrong, null: none is, with one line in `*fault`.
    QWidget* readFields(kx::ConnectionOptions* options, QString* fault) const;
    QWidget* readSerial(kx::ConnectionOptions* options, QString* fault) const;
    QWidget* readBaud(kx::ConnectionOptions* options, QString* fault) const;
    QWidget* readGateway(kx::ConnectionOptions* options, QString* fault) const;

    kx::ConnectionOptions m_options; ///< with what no field shows
    QComboBox* m_kind;
    QComboBox* m_port;
    QComboBox* m_baud;
    QComboBox* m_parity;
    QComboBox* m_stopBits;
    QLineEdit* m_gateway;
    QComboBox* m_protocol;
};

} // namespace kxpanel

#endif
