#include "kxhost/ports/simulated_ports.h"

#include "system/translated_text.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMap>

namespace kx
{

namespace
{

const char* const SIMULATOR = "kxsim";

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The numbers of the pseudo-terminals whose controlling end the process has.
QList<int> terminalsOf(const QString& process)
{
    QList<int> terminals;
    const QDir descriptors(process + QLatin1String("/fdinfo"));
    for (const QString& name : descriptors.entryList(QDir::Files)) {
        for (const QByteArray& line : contentOf(descriptors.filePath(name)).split('\n')) {
            if (line.startsWith("tty-index:"))
                terminals << line.mid(line.indexOf(':') + 1).trimmed().toInt();
        }
    }
    return terminals;
}

/// The value of --symlink, as a path that holds in every folder, when it leads to the device.
QString linkOf(const QString& process, const QString& device)
{
    const QList<QByteArray> words = contentOf(process + QLatin1String("/cmdline")).split('\0');
    QString link;
    for (int i = 1; i < words.size(); ++i) {
        if (words.at(i - 1) == "--symlink")
            link = QFile::decodeName(words.at(i));
        else if (words.at(i).startsWith("--symlink="))
            link = QFile::decodeName(words.at(i).mid(static_cast<int>(qstrlen("--symlink="))));
    }
    if (link.isEmpty())
        return link;
    const QDir folder(QFileInfo(process + QLatin1String("/cwd")).symLinkTarget());
    const QString path = QDir::cleanPath(folder.absoluteFilePath(link));
    return QFileInfo(path).symLinkTarget() == device ? path : QString();
}

} // namespace

QList<PortEntry> simulatedPorts(const QString& processes)
{
    QMap<int, PortEntry> ports;
    for (const QString& name : QDir(processes).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString process = processes + QLatin1Char('/') + name;
        if (contentOf(process + QLatin1String("/comm")).trimmed() != SIMULATOR)
            continue;
        for (const int terminal : terminalsOf(process)) {
            PortEntry& entry = ports[terminal];
            entry.port = QStringLiteral("/dev/pts/%1").arg(terminal);
            entry.description = Text::tr("simulated controllers");
            entry.simulator = {QString::fromLatin1(SIMULATOR), name.toLongLong()};
            entry.link = linkOf(process, entry.port);
        }
    }
    return ports.values();
}

} // namespace kx
