#include "kxpanel/connect/line_fields.h"

#include "addresses/digits.h"
#include "kxhost/options/command_parser.h"
#include "kxpanel/machine/machine.h"

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>

namespace kxpanel
{

namespace
{

const int USUAL_BAUDS[] = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};
const quint16 RTU_PORT = 8888;
const quint16 MODBUS_TCP_PORT = 502;

QComboBox* makeChoice(QWidget* parent, const QStringList& choices, const QString& name,
                      const QString& tip)
{
    auto* const box = new QComboBox(parent);
    box->addItems(choices);
    box->setAccessibleName(name);
    box->setToolTip(tip);
    return box;
}

/// With what goes with another protocol: transactions tell late replies apart.
void setProtocol(kx::GatewayProtocol protocol, kx::ConnectionOptions* options)
{
    if (protocol == options->protocol)
        return;
    options->protocol = protocol;
    options->session.exchange.settle =
        protocol == kx::GatewayProtocol::Tcp ? 0 : kx::ExchangeSettings().settle;
}

/// So wide that such a text can be read.
void setWidth(QWidget* field, const QString& text)
{
    const int frame = 4; // characters, for arrows and margins
    const QFontMetrics metrics = field->fontMetrics();
    field->setMinimumWidth(metrics.horizontalAdvance(text)
                           + frame * metrics.horizontalAdvance(QLatin1Char('0')));
}

} // namespace

LineFields::LineFields(QWidget* parent) : QWidget(parent)
{
    makeFields();
    layOut();
    connectFields();
    setOptions(kx::ConnectionOptions());
}

void LineFields::makeFields()
{
    m_kind = makeChoice(this, {tr("Serial port"), tr("Gateway"), tr("Simulated")}, tr("Line"),
                        tr("What the controllers are reached by; simulated ones are inside the "
                           "program"));
    m_port = makeChoice(this, {}, tr("Port"), tr("Serial port, such as /dev/ttyUSB0"));
    m_port->setEditable(true);
    m_port->setInsertPolicy(QComboBox::NoInsert);
    m_port->setCompleter(nullptr); // which would add descriptions to what is typed
    m_port->lineEdit()->setPlaceholderText(tr("choose a port"));
    m_baud = makeChoice(this, {}, tr("Speed"), tr("Bits per second"));
    m_baud->setEditable(true);
    m_baud->setInsertPolicy(QComboBox::NoInsert);
    for (const int baud : USUAL_BAUDS)
        m_baud->addItem(QString::number(baud));
    m_parity = makeChoice(this, {tr("no parity"), tr("even parity"), tr("odd parity")},
                          tr("Parity"), tr("Parity of each character"));
    m_stopBits = makeChoice(this, {tr("1 stop bit"), tr("2 stop bits")}, tr("Stop bits"),
                            tr("Stop bits behind each character"));
    m_gateway = new QLineEdit(this);
    m_gateway->setAccessibleName(tr("Gateway"));
    m_gateway->setPlaceholderText(tr("HOST:PORT"));
    m_gateway->setToolTip(tr("Name or address of the gateway, with a port when it is not %1 (%2 of "
                             "Modbus TCP)")
                              .arg(RTU_PORT)
                              .arg(MODBUS_TCP_PORT));
    m_protocol = makeChoice(this, {tr("Modbus RTU"), tr("Modbus TCP")}, tr("Protocol"),
                            tr("What the gateway takes: the serial line's bytes, or Modbus TCP"));
}

void LineFields::layOut()
{
    auto* const row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    for (QWidget* const field : std::initializer_list<QWidget*>{
             m_kind, m_port, m_gateway, m_protocol, m_baud, m_parity, m_stopBits})
        row->addWidget(field);
    const int mostOfTheRoom = 3;
    row->setStretchFactor(m_port, mostOfTheRoom);
    row->setStretchFactor(m_gateway, mostOfTheRoom);
    row->addStretch(1);
    for (QComboBox* const box : {m_kind, m_protocol, m_baud, m_parity, m_stopBits}) {
        box->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
        setWidth(box, QStringLiteral("1 stop")); // on a small screen
    }
    setWidth(m_port, QStringLiteral("/dev/ttyUSB0"));
    setWidth(m_gateway, QStringLiteral("192.168.100.100:8888"));
    setWidth(m_baud, QStringLiteral("115200"));
}

void LineFields::connectFields()
{
    connect(m_kind, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] {
        showKind();
        emit edited();
    });
    // What is chosen stands there with its description, and is used without it.
    connect(m_port, qOverload<int>(&QComboBox::activated), this,
            [this](int row) { m_port->setEditText(m_port->itemData(row).toString()); });
    for (QComboBox* const box : {m_port, m_baud})
        connect(box, &QComboBox::editTextChanged, this, &LineFields::edited);
    for (QComboBox* const box : {m_parity, m_stopBits, m_protocol})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &LineFields::edited);
    connect(m_gateway, &QLineEdit::textChanged, this, &LineFields::edited);
}

LineFields::Kind LineFields::kind() const
{
    return static_cast<Kind>(m_kind->currentIndex());
}

void LineFields::showKind()
{
    m_port->setVisible(kind() == Serial);
    for (QWidget* const field : std::initializer_list<QWidget*>{m_gateway, m_protocol})
        field->setVisible(kind() == Gateway);
    for (QWidget* const field : {m_baud, m_parity, m_stopBits})
        field->setVisible(kind() != Gateway);
}

void LineFields::setOptions(const kx::ConnectionOptions& options)
{
    const QSignalBlocker quiet(this);
    m_options = options;
    const bool isGateway = !options.gateway.host.isEmpty();
    m_kind->setCurrentIndex(options.simulate ? Simulated : isGateway ? Gateway : Serial);
    m_port->setEditText(options.port);
    m_baud->setEditText(QString::number(options.timing.baud));
    m_parity->setCurrentIndex(options.parity == QSerialPort::EvenParity  ? 1
                              : options.parity == QSerialPort::OddParity ? 2
                                                                         : 0);
    m_stopBits->setCurrentIndex(options.timing.stopBits - 1);
    if (isGateway)
        m_gateway->setText(kx::gatewayText(options.gateway));
    m_protocol->setCurrentIndex(options.protocol == kx::GatewayProtocol::Tcp ? 1 : 0);
    showKind();
}

void LineFields::setLimits(int maxWords, int maxBits)
{
    m_options.session = limited(m_options.session, maxWords, maxBits);
}

bool LineFields::takeOptions(kx::ConnectionOptions* options, QString* fault)
{
    kx::ConnectionOptions read = m_options;
    if (QWidget* const wrong = readFields(&read, fault)) {
        wrong->setFocus();
        return false;
    }
    m_options = read;
    *options = read;
    return true;
}

kx::ConnectionOptions LineFields::shownOptions() const
{
    kx::ConnectionOptions options = m_options;
    QString fault;
    readFields(&options, &fault);
    return options;
}

QWidget* LineFields::readFields(kx::ConnectionOptions* options, QString* fault) const
{
    options->simulate = kind() == Simulated;
    options->gateway.host.clear();
    return kind() == Gateway ? readGateway(options, fault) : readSerial(options, fault);
}

QWidget* LineFields::readSerial(kx::ConnectionOptions* options, QString* fault) const
{
    const QSerialPort::Parity parities[] = {QSerialPort::NoParity, QSerialPort::EvenParity,
                                            QSerialPort::OddParity};
    options->port = m_port->currentText().trimmed();
    options->parity = parities[m_parity->currentIndex()];
    options->timing.parityBits = m_parity->currentIndex() == 0 ? 0 : 1;
    options->timing.stopBits = m_stopBits->currentIndex() + 1;
    if (kind() == Simulated || !options->port.isEmpty())
        return readBaud(options, fault);
    *fault = tr("Name the serial port, such as /dev/ttyUSB0");
    return m_port;
}

QWidget* LineFields::readBaud(kx::ConnectionOptions* options, QString* fault) const
{
    const QString typed = m_baud->currentText().trimmed();
    const int baud = typed.toInt();
    if (kx::hasOnlyDigits(typed, 10) && baud >= 1 && baud <= kx::FASTEST_BAUD) {
        options->timing.baud = baud;
        options->session.gatewayBaud = baud;
        return nullptr;
    }
    *fault = tr("Speed '%1': must be 1 to %2 bits per second").arg(typed).arg(kx::FASTEST_BAUD);
    return m_baud;
}

QWidget* LineFields::readGateway(kx::ConnectionOptions* options, QString* fault) const
{
    const bool isTcp = m_protocol->currentIndex() == 1;
    setProtocol(isTcp ? kx::GatewayProtocol::Tcp : kx::GatewayProtocol::Rtu, options);
    options->gateway.port = isTcp ? MODBUS_TCP_PORT : RTU_PORT;
    const QString typed = m_gateway->text().trimmed();
    if (!typed.isEmpty() && kx::parseGatewayAddress(typed, &options->gateway))
        return nullptr;
    *fault = typed.isEmpty() ? tr("Name the gateway, such as 192.168.0.5:8888")
                             : tr("Gateway '%1': write HOST or HOST:PORT, and an IPv6 address in "
                                  "brackets")
                                   .arg(typed);
    return m_gateway;
}

void LineFields::setLineEnabled(bool isEnabled)
{
    for (QWidget* const field : std::initializer_list<QWidget*>{
             m_kind, m_port, m_gateway, m_protocol, m_baud, m_parity, m_stopBits})
        field->setEnabled(isEnabled);
}

} // namespace kxpanel
