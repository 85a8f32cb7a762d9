/// kxhost recording from a simulated controller, for tests.
#ifndef KX_TESTS_TOOLS_KXHOST_RECORD_RECORD_PROCESS_H
#define KX_TESTS_TOOLS_KXHOST_RECORD_RECORD_PROCESS_H

#include "tools/kxhost/commands/watch_process.h"
#include "tools/recording/recording_folder.h"

#include <QtTest/QTest>

namespace kx
{

const int SECOND = 1000; // milliseconds

/// Rows of a test of both kinds of file, of which `kind` is the end of the name.
inline void kindsOfFiles()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("table") << "csv";
    QTest::newRow("database") << "sqlite";
}

/// Arguments that record into the file.
inline QStringList recordOn(const KxsimProcess& simulator, const char* words, const QString& path)
{
    return on(simulator, (QByteArray("record ") + words).constData())
           << QStringLiteral("--to") << path;
}

/// Of the file, without their times.
inline QStringList eventsWithoutTimes(const QString& path)
{
    return withoutTimes(eventsOf(path));
}

/// Of an event, in milliseconds since START.
inline qint64 timeOf(const QString& event)
{
    return event.section(QLatin1Char(' '), 0, 0).toLongLong();
}

/// Of the file, in milliseconds since 1970; 0: it has no event yet.
inline qint64 lastTime(const QString& path)
{
    const QStringList events = eventsOf(path);
    return events.isEmpty() ? 0 : START + timeOf(events.last());
}

} // namespace kx

#endif
