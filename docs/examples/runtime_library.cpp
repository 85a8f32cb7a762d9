// A runtime that links libkxruntime: it polls a few addresses of station 1 and prints each
// change; when the line is open it writes a value, then reads four once, then sends a recipe.
//
//     runtime_library PORT ADDRESS=VALUE RECIPE_FILE
#include <kxruntime.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTextStream>

static const int STATION = 1;

static void say(const QString& line)
{
    QTextStream(stdout) << line << '\n';
}

static int refuse(const QString& reason, int exitCode)
{
    QTextStream(stderr) << reason << '\n';
    return exitCode;
}

static kx::Tag tag(const char* address)
{
    kx::Tag tag;
    QString error;
    kx::parseAddressRange(QString::fromLatin1(address), &tag.range, &error);
    tag.range.station = STATION;
    return tag;
}

static void sayChange(const kx::ValueChange& change)
{
    say(QStringLiteral("%1 = %2")
            .arg(kx::addressText(change.range.type, change.range.address))
            .arg(change.value));
}

static void sayWritten(const kx::WriteOutcome& outcome)
{
    const kx::AddressRange& range = outcome.assignment.range;
    say(outcome.failure.isNone()
            ? QStringLiteral("written: ") + kx::addressText(range.type, range.address)
            : QStringLiteral("not written: ") + outcome.failure.text);
}

static void sayRead(const kx::ReadOutcome& outcome)
{
    QStringList values;
    for (const qint64 value : outcome.values)
        values << QString::number(value);
    say(outcome.failure.isNone() ? QStringLiteral("read: ") + values.join(' ')
                                 : QStringLiteral("not read: ") + outcome.failure.text);
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 4)
        return refuse(QStringLiteral("usage: runtime_library PORT ADDRESS=VALUE RECIPE_FILE"), 2);

    // [main]
    kx::Assignment assignment;
    QByteArray text;
    kx::RecipeFile recipe;
    kx::RecipeLayout layout;
    QString error;
    const kx::SessionSettings settings;
    if (!kx::parseAssignment(arguments.at(2), &assignment, &error)
        || !kx::readRecipeFile(arguments.at(3), &text, &error)
        || !kx::RecipeFile::parse(text, STATION, &recipe, &error)
        || !kx::canBeDownloaded(recipe.rows(), &error)
        || !kx::layOutRecipe(recipe.rows(), settings.maxWords, &layout, &error))
        return refuse(error, 2);
    assignment.range.station = STATION;

    kx::DriverEntryPoints entryPoints;
    if (!kx::loadDriver(QLatin1String(kx::DRIVER_LIBRARY_NAME), &entryPoints, &error))
        return refuse(error, 3);
    kx::ConnectionSettings line;
    line.port = arguments.at(1);
    line.patience = 60000; // milliseconds in which an adapter may be plugged in again
    kx::Connection connection(line);
    const auto session = kx::Session::create(entryPoints, connection.line(), settings, &error);
    if (!session)
        return refuse(error, 3);

    kx::WriteJob write(session.get(), {assignment});
    kx::ReadJob read(session.get(), {tag("D100:4")});
    kx::RecipeJob download(session.get(), layout, kx::RecipeDirection::Download);
    QObject::connect(session.get(), &kx::Session::valueChanged, sayChange);
    QObject::connect(&write, &kx::WriteJob::assignmentFinished, sayWritten);
    QObject::connect(&read, &kx::ReadJob::rangeFinished, sayRead);
    QObject::connect(&write, &kx::Job::finished, &read, &kx::Job::start);
    QObject::connect(&read, &kx::Job::finished, &download, &kx::Job::start);
    QObject::connect(&download, &kx::Job::finished, &download, [&] {
        say(QStringLiteral("recipe: %1 of %2 blocks")
                .arg(download.blocksDone().size())
                .arg(download.blocks()));
    });
    QObject::connect(&connection, &kx::Connection::opened, session.get(), [&] {
        session->start();
        write.start();
    });
    QObject::connect(
        &connection, &kx::Connection::failed, &application,
        [](const kx::Failure& failure) { QCoreApplication::exit(refuse(failure.text, 3)); });
    session->watch({tag("D0:4").range, tag("M0:8").range});
    connection.open();
    // [/main]
    return application.exec();
}
