// Ports that may not be opened. A pseudo-terminal stands for a serial port; root takes
// the place of nobody, since root may open all.

#include "system/port_access.h"

#include <QtTest/QTest>

#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace kx;

namespace
{

const uid_t NOBODY = 65534;

/// Its device has that mode and, when root runs the test, belongs to the group dialout.
class Port
{
public:
    explicit Port(mode_t mode) : m_end(posix_openpt(O_RDWR | O_NOCTTY))
    {
        grantpt(m_end);
        unlockpt(m_end);
        m_name = QString::fromLatin1(ptsname(m_end));
        const QByteArray path = m_name.toLatin1();
        m_isReady = (geteuid() != 0 || chown(path.constData(), 0, getgrnam("dialout")->gr_gid) == 0)
                    && chmod(path.constData(), mode) == 0
                    && (geteuid() != 0 || seteuid(NOBODY) == 0);
    }
    ~Port()
    {
        const bool isOver = getuid() != 0 || seteuid(0) == 0;
        close(isOver ? m_end : -1);
    }
    bool isReady() const { return m_isReady; }
    QString name() const { return m_name; }
    QString group() const
    {
        struct stat status = {};
        stat(m_name.toLatin1().constData(), &status);
        return QString::fromLatin1(getgrgid(status.st_gid)->gr_name);
    }
    QString owner() const
    {
        struct stat status = {};
        stat(m_name.toLatin1().constData(), &status);
        return QString::fromLatin1(getpwuid(status.st_uid)->pw_name);
    }

private:
    int m_end;
    QString m_name;
    bool m_isReady;
};

} // namespace

class PortAccessTest : public QObject
{
    Q_OBJECT

private slots:
    void theGroupToJoinIsNamed()
    {
        const Port port(0060);
        QVERIFY(port.isReady());
        if (getuid() == 0)
            QCOMPARE(port.group(), QString("dialout"));
        QCOMPARE(accessAdvice(port.name()),
                 QString("; it is for members of the group %1: sudo usermod -aG %1 $USER, then log "
                         "in again")
                     .arg(port.group()));
    }

    void aGroupThatMayNotWriteIsNotNamed_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("nobody") << 0000;
        QTest::newRow("the group reads") << 0040;
        QTest::newRow("the group writes") << 0020;
    }

    void aGroupThatMayNotWriteIsNotNamed()
    {
        QFETCH(int, mode);
        const Port port(static_cast<mode_t>(mode));
        QVERIFY(port.isReady());
        QCOMPARE(accessAdvice(port.name()),
                 QString("; only its owner %1 may open it").arg(port.owner()));
    }

    void thereIsNothingToSayOfOtherPorts()
    {
        QCOMPARE(accessAdvice("/dev/null"), QString());
        QCOMPARE(accessAdvice("/dev/kx-no-such-port"), QString());
    }
};

QTEST_APPLESS_MAIN(PortAccessTest)
#include "tst_port_access.moc"
