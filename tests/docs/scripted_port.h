/// A pseudo-terminal whose station is the test itself.
#ifndef KX_TESTS_DOCS_SCRIPTED_PORT_H
#define KX_TESTS_DOCS_SCRIPTED_PORT_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

class ScriptedPort
{
public:
    ScriptedPort();
    ~ScriptedPort();

    QString name() const { return m_name; }

    /// The next request, of so many bytes; shorter when it does not come within 30 s.
    QByteArray request(int length) const;
    void send(const QByteArray& bytes) const;

private:
    int m_station = -1;
    int m_host = -1; ///< held open, so that the line outlives its host
    QString m_name;
};

#endif
